#include "rules/unversioned_scan.h"

#include "rules/folder_set.h"
#include "rules/unversioned_walk.h"
#include "rules/working_copy_paths.h"

namespace kestor {

namespace {

WorkingCopyItem unversionedItem(const QString &path, const QString &scannedFolder) {
    return {.path = path, .kind = SVNStatusKind::unversioned, .unversionedRoot = scannedFolder};
}

bool isPointless(const IgnoreRules &rules, const QString &folder, RequireIncludedDescendant require) {
    return require == RequireIncludedDescendant::yes && !rules.hasIncludedDescendant(folder);
}

} // namespace

void walkUnversioned(FolderReader &reader, const QString &folder, const IgnoreRules &rules,
                     const std::function<void(const FolderEntry &)> &visit) {
    for (const FolderEntry &entry : reader.entries(folder)) {
        const bool ignored = rules.decision(entry.path, entry.isDirectory) == true;
        if (!ignored)
            visit(entry);
        if (entry.isDirectory && (!ignored || rules.hasIncludedDescendant(entry.path)))
            walkUnversioned(reader, entry.path, rules, visit);
    }
}

QList<WorkingCopyItem> displayableRows(FolderReader &reader, const QString &folder, const IgnoreRules &rules) {
    std::vector<const FolderEntry *> found;
    FolderSet occupied;
    walkUnversioned(reader, folder, rules, [&](const FolderEntry &entry) {
        found.push_back(&entry);
        occupied.insertParentsOf(entry.path);
    });
    QList<WorkingCopyItem> rows;
    rows.reserve(static_cast<qsizetype>(found.size()));
    for (const FolderEntry *entry : found) {
        if (!entry->isDirectory || !occupied.contains(entry->path))
            rows.append(unversionedItem(entry->path, folder));
    }
    return rows;
}

QList<UnversionedDescendant> unversionedDescendants(QStringView path, const QString &root, const IgnoreRules &rules,
                                                    RequireIncludedDescendant require) {
    QList<UnversionedDescendant> found;
    const QString folder = normalizedPath(path);
    if (isPointless(rules, folder, require))
        return found;
    FolderReader reader(root);
    walkUnversioned(reader, folder, rules, [&](const FolderEntry &entry) {
        found.append({unversionedItem(entry.path, folder), entry.isDirectory});
    });
    return found;
}

QList<WorkingCopyItem> displayableUnversionedDescendants(QStringView path, const QString &root,
                                                         const IgnoreRules &rules, RequireIncludedDescendant require) {
    const QString folder = normalizedPath(path);
    if (isPointless(rules, folder, require))
        return {};
    FolderReader reader(root);
    return displayableRows(reader, folder, rules);
}

bool unversionedDirectoryContainsEntries(QStringView path, const QString &root) {
    return !FolderReader(root).entries(normalizedPath(path)).empty();
}

} // namespace kestor

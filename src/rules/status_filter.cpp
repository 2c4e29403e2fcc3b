#include "rules/status_filter.h"

#include "model/file_order.h"
#include "rules/folder_reader.h"
#include "rules/folder_set.h"
#include "rules/rule_loading.h"
#include "rules/unversioned_walk.h"
#include "rules/working_copy_paths.h"

#include <QSet>

namespace kestor {

namespace {

/// The folders on the way to the items, and the items that are folders.
FolderSet foldersOfItems(FolderReader &reader, const QList<WorkingCopyItem> &items) {
    FolderSet folders;
    for (const WorkingCopyItem &item : items) {
        const QString path = normalizedPath(item.path);
        folders.insertParentsOf(path);
        if (reader.isDirectory(path))
            folders.insert(path);
    }
    return folders;
}

bool isUnversionedFolder(FolderReader &reader, const WorkingCopyItem &item, const QString &path) {
    return item.kind == SVNStatusKind::unversioned && reader.isDirectory(path);
}

/// The first rules cannot see the ignore files inside unversioned folders, so those folders are scanned with them and
/// the rules are loaded again.
IgnoreRules rulesForItems(FolderReader &reader, const QList<WorkingCopyItem> &items, ExpandUnversioned expand) {
    FolderSet folders = foldersOfItems(reader, items);
    const IgnoreRules outerRules = loadIgnoreRules(reader, folders);
    if (expand == ExpandUnversioned::no)
        return outerRules;
    for (const WorkingCopyItem &item : items) {
        const QString path = normalizedPath(item.path);
        if (!isUnversionedFolder(reader, item, path))
            continue;
        if (outerRules.decision(path, true) == true && !outerRules.hasIncludedDescendant(path))
            continue;
        walkUnversioned(reader, path, outerRules, [&folders](const FolderEntry &entry) {
            folders.insertParentsOf(entry.path);
            if (entry.isDirectory)
                folders.insert(entry.path);
        });
    }
    return loadIgnoreRules(reader, folders);
}

bool isHidden(const WorkingCopyItem &item, std::optional<bool> decision) {
    return item.kind == SVNStatusKind::ignored ? decision != false : decision == true;
}

/// The rows found so far; the first with a path wins.
class Rows {
public:
    void append(WorkingCopyItem item) {
        if (item.path.isEmpty() || paths.contains(item.path))
            return;
        paths.insert(item.path);
        rows.append(std::move(item));
    }
    QList<WorkingCopyItem> sorted() && {
        sortInStandardOrder(rows, [](const WorkingCopyItem &item) { return item.path; });
        return std::move(rows);
    }

private:
    QSet<QString> paths;
    QList<WorkingCopyItem> rows;
};

WorkingCopyItem normalized(WorkingCopyItem item) {
    item.path = normalizedPath(item.path);
    if (item.unversionedRoot)
        item.unversionedRoot = normalizedPath(*item.unversionedRoot);
    return item;
}

QList<WorkingCopyItem> filteredItems(FolderReader &reader, const QList<WorkingCopyItem> &items,
                                     const IgnoreRules &rules, ExpandUnversioned expand) {
    Rows rows;
    for (const WorkingCopyItem &reported : items) {
        const WorkingCopyItem item = normalized(reported);
        if (isHidden(item, rules.decision(item.path, reader.isDirectory(item.path))))
            continue;
        const bool expands = expand == ExpandUnversioned::yes && isUnversionedFolder(reader, item, item.path);
        if (!expands || reader.entries(item.path).empty()) {
            rows.append(item);
            continue;
        }
        for (WorkingCopyItem &row : displayableRows(reader, item.path, rules))
            rows.append(std::move(row));
    }
    return std::move(rows).sorted();
}

} // namespace

QList<WorkingCopyItem> displayedStatusItems(const QList<WorkingCopyItem> &items, const QString &root,
                                            ExpandUnversioned expand) {
    FolderReader reader(root);
    return filteredItems(reader, items, rulesForItems(reader, items, expand), expand);
}

IgnoreRules ignoreRulesForStatusItems(const QList<WorkingCopyItem> &items, const QString &root,
                                      ExpandUnversioned expand) {
    FolderReader reader(root);
    return rulesForItems(reader, items, expand);
}

QList<WorkingCopyItem> statusItemsByApplyingIgnoreRules(const QList<WorkingCopyItem> &items, const QString &root,
                                                        const IgnoreRules &rules, ExpandUnversioned expand) {
    FolderReader reader(root);
    return filteredItems(reader, items, rules, expand);
}

} // namespace kestor

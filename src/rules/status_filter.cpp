#include "rules/status_filter.h"

#include "model/file_order.h"
#include "rules/folder_reader.h"
#include "rules/folder_set.h"
#include "rules/rule_loading.h"
#include "rules/unversioned_walk.h"
#include "rules/working_copy_paths.h"

#include <QSet>

#include <vector>

namespace kestor {

namespace {

/// An item with a normalised path.
struct LocatedItem {
    WorkingCopyItem item{};
    bool isUnversionedFolder = false; ///< on the disk
};

std::vector<LocatedItem> locatedItems(const QList<WorkingCopyItem> &items, const QString &root) {
    std::vector<LocatedItem> located;
    located.reserve(static_cast<std::size_t>(items.size()));
    for (const WorkingCopyItem &item : items) {
        LocatedItem &added = located.emplace_back(LocatedItem{item});
        added.item.path = normalizedPath(item.path);
        if (item.unversionedRoot)
            added.item.unversionedRoot = normalizedPath(*item.unversionedRoot);
        added.isUnversionedFolder =
            item.kind == SVNStatusKind::unversioned && workingCopyPathIsDirectory(added.item.path, root);
    }
    return located;
}

/// The folders on the way to the items, and the items that are folders whose contents are asked for.
FolderSet foldersOfItems(const std::vector<LocatedItem> &items) {
    FolderSet folders;
    for (const LocatedItem &located : items) {
        folders.insertParentsOf(located.item.path);
        if (located.isUnversionedFolder)
            folders.insert(located.item.path);
    }
    return folders;
}

/// The first rules cannot see the ignore files inside unversioned folders, so those folders are scanned with them and
/// the rules are loaded again.
IgnoreRules rulesForItems(FolderReader &reader, const std::vector<LocatedItem> &items, ExpandUnversioned expand) {
    FolderSet folders = foldersOfItems(items);
    IgnoreRules outerRules = loadIgnoreRules(reader, folders);
    if (expand == ExpandUnversioned::no)
        return outerRules;
    for (const LocatedItem &located : items) {
        const QString &path = located.item.path;
        if (!located.isUnversionedFolder)
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

/// What the rules say. The disk is asked whether the path is a folder only where that matters.
std::optional<bool> decisionOn(const LocatedItem &located, const IgnoreRules &rules, const QString &root) {
    const QString &path = located.item.path;
    const std::optional<bool> asFolder = rules.decision(path, true);
    if (located.isUnversionedFolder)
        return asFolder;
    const std::optional<bool> asFile = rules.decision(path, false);
    return asFile != asFolder && workingCopyPathIsDirectory(path, root) ? asFolder : asFile;
}

bool isHidden(const WorkingCopyItem &item, std::optional<bool> decision) {
    return item.kind == SVNStatusKind::ignored ? decision != false : decision == true;
}

/// The rows found so far; the first with a path wins.
class Rows {
public:
    explicit Rows(std::size_t expected) {
        paths.reserve(static_cast<qsizetype>(expected));
        rows.reserve(static_cast<qsizetype>(expected));
    }
    void append(WorkingCopyItem &&item) {
        const qsizetype known = paths.size();
        paths.insert(item.path);
        if (paths.size() > known)
            rows.append(std::move(item));
    }
    QList<WorkingCopyItem> sorted() && {
        sortInStandardOrder(rows, [](const WorkingCopyItem &item) { return item.path; });
        return std::move(rows);
    }

private:
    QSet<QString> paths{QString()}; // the root is no row
    QList<WorkingCopyItem> rows;
};

QList<WorkingCopyItem> filteredItems(FolderReader &reader, std::vector<LocatedItem> items, const IgnoreRules &rules,
                                     ExpandUnversioned expand) {
    Rows rows(items.size());
    for (LocatedItem &located : items) {
        WorkingCopyItem &item = located.item;
        if (isHidden(item, decisionOn(located, rules, reader.rootPath())))
            continue;
        const bool expands = expand == ExpandUnversioned::yes && located.isUnversionedFolder;
        if (!expands || reader.entries(item.path).empty()) {
            rows.append(std::move(item));
            continue;
        }
        for (WorkingCopyItem &row : displayableRows(reader, item.path, rules))
            rows.append(std::move(row));
    }
    return std::move(rows).sorted();
}

} // namespace

QList<WorkingCopyItem> displayedStatusItems(const QList<WorkingCopyItem> &items, FolderReader &folders) {
    std::vector<LocatedItem> located = locatedItems(items, folders.rootPath());
    const IgnoreRules rules = rulesForItems(folders, located, ExpandUnversioned::yes);
    return filteredItems(folders, std::move(located), rules, ExpandUnversioned::yes);
}

IgnoreRules ignoreRulesForStatusItems(const QList<WorkingCopyItem> &items, const QString &root,
                                      ExpandUnversioned expand) {
    FolderReader reader(root);
    return rulesForItems(reader, locatedItems(items, root), expand);
}

QList<WorkingCopyItem> statusItemsByApplyingIgnoreRules(const QList<WorkingCopyItem> &items, const QString &root,
                                                        const IgnoreRules &rules, ExpandUnversioned expand) {
    FolderReader reader(root);
    return filteredItems(reader, locatedItems(items, root), rules, expand);
}

} // namespace kestor

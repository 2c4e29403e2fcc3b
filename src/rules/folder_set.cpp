#include "rules/folder_set.h"

#include "model/file_order.h"
#include "rules/working_copy_paths.h"

#include <algorithm>

namespace kestor {

namespace {

qsizetype depthOf(const QString &folder) {
    return folder.isEmpty() ? 0 : folder.count(u'/') + 1;
}

} // namespace

void FolderSet::insert(QStringView folder) {
    if (folder == latest)
        return;
    latest = folder.toString();
    for (QString added = latest; !folders.contains(added); added = parentPath(added))
        folders.insert(added);
}

void FolderSet::insertParentsOf(QStringView path) {
    insert(path.first(std::max<qsizetype>(path.lastIndexOf(u'/'), 0)));
}

QStringList FolderSet::sorted() const {
    QStringList order(folders.begin(), folders.end());
    sortInStandardOrder(order, [](const QString &folder) { return folder; });
    std::stable_sort(order.begin(), order.end(),
                     [](const QString &left, const QString &right) { return depthOf(left) < depthOf(right); });
    return order;
}

} // namespace kestor

#include "rules/folder_set.h"

#include "model/file_order.h"

#include <algorithm>

namespace kestor {

namespace {

QStringView parentOf(QStringView path) {
    return path.first(std::max<qsizetype>(path.lastIndexOf(u'/'), 0));
}

qsizetype depthOf(const QString &folder) {
    return folder.isEmpty() ? 0 : folder.count(u'/') + 1;
}

} // namespace

void FolderSet::insert(QStringView folder) {
    if (folder == latest)
        return;
    latest = folder.toString();
    for (QString added = latest; !folders.contains(added); added = parentOf(added).toString())
        folders.insert(added);
}

void FolderSet::insertParentsOf(QStringView path) {
    insert(parentOf(path));
}

QStringList FolderSet::sorted() const {
    QStringList order(folders.begin(), folders.end());
    sortInStandardOrder(order, [](const QString &folder) { return folder; });
    std::stable_sort(order.begin(), order.end(),
                     [](const QString &left, const QString &right) { return depthOf(left) < depthOf(right); });
    return order;
}

} // namespace kestor

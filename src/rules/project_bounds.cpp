#include "rules/project_bounds.h"

#include "rules/working_copy_paths.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace kestor {

bool leavesRoot(QStringView path) {
    return path.contains(u"..") && path.split(u'/').contains(u"..");
}

bool liesInside(const QString &path, const QString &root) {
    const auto isLink = [&root](const QString &folder) {
        return QFileInfo(absolutePath(folder, root)).isSymLink();
    };
    const QStringList folders = foldersAbove(normalizedPath(path));
    return !leavesRoot(path) && std::none_of(folders.begin(), folders.end(), isLink);
}

bool standsInside(const QString &path, const QString &root) {
    return isOnDisk(absolutePath(path, root)) && liesInside(path, root);
}

bool readsInside(const QString &path, const QString &root) {
    const QString file = QFileInfo(absolutePath(path, root)).canonicalFilePath();
    return file.startsWith(QFileInfo(root).canonicalFilePath() + u'/');
}

} // namespace kestor

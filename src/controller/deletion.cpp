#include "controller/deletion.h"

#include "rules/working_copy_paths.h"
#include "tools/command_result.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStandardPaths>

#include <algorithm>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

bool removeForGood(const QFileInfo &info) {
    return isFolder(info) ? QDir(info.filePath()).removeRecursively() : QFile::remove(info.filePath());
}

/// Removes the empty folders from `folder` upward as long as they lie inside `unversionedRoot`.
void removeEmptyFolders(QString folder, const QString &unversionedRoot, const QString &root) {
    while (isAtOrBelow(folder, unversionedRoot) && QDir().rmdir(absolutePath(folder, root)))
        folder = parentPath(folder);
}

/// Whether there may be a trash. Qt takes a missing data folder for the current one and would move paths there, so that
/// is made sure of first and looked at afterwards.
bool hasTrash() {
    return QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
}

std::filesystem::path nativePath(const QString &path) {
    return QFile::encodeName(path).toStdString();
}

std::optional<TrashedPath> removedLink(const QString &path) {
    std::error_code error;
    const std::filesystem::path target = std::filesystem::read_symlink(nativePath(path), error);
    if (error || !QFile::remove(path))
        return std::nullopt;
    return TrashedPath{path, {}, QByteArray::fromStdString(target.string())};
}

/// What went from the path to the system's trash; nothing when it refuses.
std::optional<TrashedPath> movedToTrash(const QString &path) {
    const QFileInfo info(path);
    if (info.isSymLink() && !info.exists())
        return removedLink(path);
    QString inTrash;
    if (!QFile::moveToTrash(path, &inTrash))
        return std::nullopt;
    if (QDir::isAbsolutePath(inTrash))
        return TrashedPath{path, inTrash, {}};
    QFile::rename(inTrash, path);
    return std::nullopt;
}

/// A repository inside an unversioned folder: its history exists nowhere else.
std::optional<QString> metadataBelow(const QString &folder) {
    QDirIterator walk(folder, QDir::Dirs | QDir::Files | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString entry = walk.next();
        if (isRepositoryMetadataName(walk.fileName()))
            return entry;
    }
    return std::nullopt;
}

SVNClientError refusal(const QString &message) {
    return SVNClientError::launchFailed(message);
}

/// Refuses folders that nothing may be deleted through: links, and working copies of their own.
void checkFolderOnTheWay(const QString &folder, const QString &path, const QString &root) {
    const QString location = absolutePath(folder, root);
    if (QFileInfo(location).isSymLink())
        throw refusal(u"Refusing to delete through the link "_s + folder + u": "_s + path);
    for (const QString &metadata : {u"/.git"_s, u"/.svn"_s}) {
        if (QFileInfo::exists(location + metadata))
            throw refusal(u"Refusing to delete from the repository at "_s + folder + u": "_s + path);
    }
}

} // namespace

QString deletablePath(const QString &path, const QString &root) {
    QSet<QString> checked;
    return deletablePath(path, root, checked);
}

QString deletablePath(const QString &path, const QString &root, QSet<QString> &checkedFolders) {
    const QString normalized = normalizedPath(path);
    const QStringList pieces = normalized.split(u'/');
    if (normalized.isEmpty() || pieces.contains(u".."_s))
        throw refusal(u"Refusing to delete a path outside the working copy: "_s + path);
    if (std::any_of(pieces.begin(), pieces.end(), isRepositoryMetadataName))
        throw refusal(u"Refusing to delete repository metadata at "_s + normalized);
    for (QString folder = parentPath(normalized); !folder.isEmpty() && !checkedFolders.contains(folder);
         folder = parentPath(folder)) {
        checkFolderOnTheWay(folder, normalized, root);
        checkedFolders.insert(folder);
    }
    const QFileInfo info(absolutePath(normalized, root));
    if (isFolder(info)) {
        if (const std::optional<QString> metadata = metadataBelow(info.filePath()))
            throw refusal(u"Refusing to delete repository metadata at "_s + metadata->sliced(root.size() + 1));
    }
    return normalized;
}

QList<UnversionedPath> topLevelWorkingCopyPaths(QList<UnversionedPath> paths) {
    // With the slash at their ends the paths below a folder follow it without a gap.
    const auto sortKey = [](const UnversionedPath &path) {
        return path.path + u'/';
    };
    std::sort(paths.begin(), paths.end(),
              [&sortKey](const UnversionedPath &a, const UnversionedPath &b) { return sortKey(a) < sortKey(b); });
    QList<UnversionedPath> top;
    for (const UnversionedPath &path : std::as_const(paths)) {
        if (top.isEmpty() || !isAtOrBelow(path.path, top.last().path))
            top.append(path);
    }
    return top;
}

DeletionResult deleteUnversionedItems(const QList<UnversionedPath> &paths, const QString &root) {
    DeletionResult result;
    QList<UnversionedPath> checked;
    QSet<QString> checkedFolders;
    try {
        for (const UnversionedPath &path : paths)
            checked.append({deletablePath(path.path, root, checkedFolders), path.root});
    } catch (const SVNClientError &error) {
        result.error = error.errorDescription();
        return result;
    }
    QHash<QString, QString> leftFolders; // to the unversioned folder that they lie in
    const bool trash = hasTrash();
    for (const UnversionedPath &path : topLevelWorkingCopyPaths(checked)) {
        const QFileInfo info(absolutePath(path.path, root));
        if (!isOnDisk(info.filePath()))
            continue;
        const std::optional<TrashedPath> moved = trash ? movedToTrash(info.filePath()) : std::nullopt;
        if (moved)
            result.moved.append(*moved);
        else if (!removeForGood(info)) {
            result.error = u"Could not delete "_s + path.path + u'.';
            break;
        }
        ++result.deleted;
        leftFolders.insert(parentPath(path.path), path.root);
    }
    for (auto folder = leftFolders.cbegin(); folder != leftFolders.cend(); ++folder)
        removeEmptyFolders(folder.key(), folder.value(), root);
    if (result.deleted == 0 && !result.error)
        return {0, {}, u"No unversioned paths were found on disk."_s, true};
    return result;
}

TrashResult moveToTrash(const QStringList &paths, const QString &root) {
    TrashResult result;
    const bool trash = hasTrash();
    for (const QString &path : paths) {
        const QString source = absolutePath(path, root);
        if (!isOnDisk(source))
            continue;
        const std::optional<TrashedPath> moved = trash ? movedToTrash(source) : std::nullopt;
        if (!moved) {
            takeBack(result.moved);
            return {{}, path + u" could not be moved to the trash. Nothing was changed."_s};
        }
        result.moved.append(*moved);
    }
    return result;
}

void takeBack(const QList<TrashedPath> &paths) {
    for (const TrashedPath &path : paths) {
        QDir().mkpath(QFileInfo(path.original).path());
        std::error_code standsThere;
        if (path.inTrash.isEmpty())
            std::filesystem::create_symlink(path.linkTarget.toStdString(), nativePath(path.original), standsThere);
        else
            QFile::rename(path.inTrash, path.original);
    }
}

} // namespace kestor

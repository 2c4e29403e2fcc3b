#include "controller/deletion.h"

#include "rules/working_copy_paths.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// Whether something is there, a link without target included.
bool isOnDisk(const QFileInfo &info) {
    return info.exists() || info.isSymLink();
}

bool isRealDirectory(const QFileInfo &info) {
    return info.isDir() && !info.isSymLink();
}

QString parentPath(const QString &path) {
    const qsizetype slash = path.lastIndexOf(u'/');
    return slash < 0 ? QString() : path.first(slash);
}

bool removeForGood(const QFileInfo &info) {
    return isRealDirectory(info) ? QDir(info.filePath()).removeRecursively() : QFile::remove(info.filePath());
}

void removeEmptyFoldersAbove(const QString &path, const QString &root) {
    for (QString folder = parentPath(path); !folder.isEmpty(); folder = parentPath(folder)) {
        if (!QDir().rmdir(absolutePath(folder, root)))
            return;
    }
}

/// Where the path went in the system's trash; nothing when there is no trash or it refuses. Qt takes a missing data
/// folder for the current one and would move the path there, so that is made sure of first and looked at afterwards.
std::optional<QString> movedToTrash(const QString &path) {
    QString inTrash;
    if (!QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)))
        return std::nullopt;
    if (!QFile::moveToTrash(path, &inTrash))
        return std::nullopt;
    if (QDir::isAbsolutePath(inTrash))
        return inTrash;
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

} // namespace

QString deletablePath(const QString &path, const QString &root) {
    const QString normalized = normalizedPath(path);
    const QStringList pieces = normalized.split(u'/');
    if (normalized.isEmpty() || pieces.contains(u".."_s))
        throw refusal(u"Refusing to delete a path outside the working copy: "_s + path);
    if (std::any_of(pieces.begin(), pieces.end(), isRepositoryMetadataName))
        throw refusal(u"Refusing to delete repository metadata at "_s + normalized);
    for (QString folder = parentPath(normalized); !folder.isEmpty(); folder = parentPath(folder)) {
        if (QFileInfo(absolutePath(folder, root)).isSymLink())
            throw refusal(u"Refusing to delete through the link "_s + folder + u": "_s + normalized);
    }
    const QFileInfo info(absolutePath(normalized, root));
    if (isRealDirectory(info)) {
        if (const std::optional<QString> metadata = metadataBelow(info.filePath()))
            throw refusal(u"Refusing to delete repository metadata at "_s + metadata->sliced(root.size() + 1));
    }
    return normalized;
}

QStringList topLevelWorkingCopyPaths(QStringList paths) {
    // With the slash at their ends the paths below a folder follow it without a gap.
    const auto sortKey = [](const QString &path) {
        return path + u'/';
    };
    std::sort(paths.begin(), paths.end(),
              [&sortKey](const QString &a, const QString &b) { return sortKey(a) < sortKey(b); });
    QStringList top;
    for (const QString &path : std::as_const(paths)) {
        if (top.isEmpty() || !sortKey(path).startsWith(sortKey(top.last())))
            top.append(path);
    }
    return top;
}

DeletionResult deleteUnversionedItems(const QStringList &paths, const QString &root) {
    DeletionResult result;
    QStringList checked;
    try {
        for (const QString &path : paths)
            checked.append(deletablePath(path, root));
    } catch (const SVNClientError &error) {
        result.error = error.errorDescription();
        return result;
    }
    for (const QString &path : topLevelWorkingCopyPaths(checked)) {
        const QFileInfo info(absolutePath(path, root));
        if (!isOnDisk(info))
            continue;
        if (!movedToTrash(info.filePath()) && !removeForGood(info)) {
            result.error = u"Could not delete "_s + path + u'.';
            return result;
        }
        ++result.deleted;
        removeEmptyFoldersAbove(path, root);
    }
    if (result.deleted == 0)
        result.error = u"No unversioned paths were found on disk."_s;
    return result;
}

DeletionResult moveToTrash(const QStringList &paths, const QString &root) {
    DeletionResult result;
    QList<std::pair<QString, QString>> moved;
    for (const QString &path : paths) {
        const QString source = absolutePath(path, root);
        if (!isOnDisk(QFileInfo(source)))
            continue;
        const std::optional<QString> inTrash = movedToTrash(source);
        if (!inTrash) {
            for (const auto &[original, trashed] : std::as_const(moved))
                QFile::rename(trashed, original);
            return {0, path + u" could not be moved to the trash. Nothing was changed."_s};
        }
        moved.append({source, *inTrash});
        ++result.deleted;
    }
    return result;
}

} // namespace kestor

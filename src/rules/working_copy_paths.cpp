#include "rules/working_copy_paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

bool isDroppedPiece(QStringView piece) {
    return piece.isEmpty() || piece == u".";
}

} // namespace

bool isNormalizedPath(QStringView path) {
    bool beginsPiece = true;
    for (qsizetype i = 0; i < path.size(); ++i) {
        const bool endsPiece = i + 1 == path.size() || path[i + 1] == u'/';
        if (path[i] == u'/' ? beginsPiece || endsPiece : path[i] == u'.' && beginsPiece && endsPiece)
            return false;
        beginsPiece = path[i] == u'/';
    }
    return true;
}

QString normalizedPath(QStringView path) {
    QString result;
    result.reserve(path.size());
    for (const QStringView piece : path.tokenize(u'/')) {
        if (isDroppedPiece(piece))
            continue;
        if (!result.isEmpty())
            result.append(u'/');
        result.append(piece);
    }
    return result;
}

QString normalizedPath(const QString &path) {
    return isNormalizedPath(path) ? path : normalizedPath(QStringView(path));
}

QString parentPath(const QString &path) {
    return path.first(std::max<qsizetype>(path.lastIndexOf(u'/'), 0));
}

bool isAtOrBelow(QStringView path, QStringView folder) {
    return !folder.isEmpty() && path.startsWith(folder) &&
           (path.size() == folder.size() || path[folder.size()] == u'/');
}

QStringList foldersAbove(const QString &path) {
    QStringList folders;
    for (qsizetype slash = path.indexOf(u'/'); slash >= 0; slash = path.indexOf(u'/', slash + 1))
        folders.append(path.first(slash));
    return folders;
}

QString absolutePath(QStringView path, const QString &root) {
    QString result;
    result.reserve(root.size() + 1 + path.size());
    return result.append(root).append(u'/').append(path);
}

bool isOnDisk(const QString &absolutePath) {
    const QFileInfo info(absolutePath);
    return info.exists() || info.isSymLink();
}

std::optional<QString> repositoryRelativePath(const QString &absolutePath, const QString &root) {
    const QString path = QDir::cleanPath(absolutePath);
    const QString cleanRoot = QDir::cleanPath(root);
    if (path == cleanRoot)
        return QString();
    const QString prefix = cleanRoot.endsWith(u'/') ? cleanRoot : cleanRoot + u'/';
    if (!path.startsWith(prefix))
        return std::nullopt;
    return normalizedPath(QStringView(path).sliced(prefix.size()));
}

bool isFolder(const QFileInfo &info) {
    return info.isDir() && !info.isSymLink();
}

bool isDirectory(const QString &absolutePath) {
    struct stat status {};
    return ::stat(QFile::encodeName(absolutePath).constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool workingCopyPathIsDirectory(QStringView path, const QString &root) {
    return isDirectory(absolutePath(path, root));
}

bool isRepositoryMetadataName(QStringView name) {
    return name == u".svn" || name == u".git";
}

QString metadataName(RepositoryKind kind) {
    return kind == RepositoryKind::svn ? u".svn"_s : u".git"_s;
}

QString ignoreFileURL(const QString &root) {
    const QString gitIgnore = absolutePath(gitIgnoreName, root);
    return QFile::exists(gitIgnore) ? gitIgnore : absolutePath(kestorIgnoreName, root);
}

} // namespace kestor

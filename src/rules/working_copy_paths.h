#pragma once

#include "model/project.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

class QFileInfo;

namespace kestor {

// Working-copy paths are relative to the project root and "/"-separated; the root is "". Any thread.

/// The ignore files of a folder. Where both exist, rules of the second decide over those of the first.
inline constexpr QStringView gitIgnoreName = u".gitignore";
inline constexpr QStringView kestorIgnoreName = u".kestorignore";

/// `path` without empty and "." pieces. ".." is not resolved.
QString normalizedPath(QStringView path);
/// The same for a string: a path that needs no change is shared, not copied.
QString normalizedPath(const QString &path);

/// Whether normalizedPath() would change nothing.
bool isNormalizedPath(QStringView path);

/// The folder that holds a normalised path; "" for what lies in the root.
QString parentPath(const QString &path);

/// Whether a normalised path is `folder` or lies below it. Nothing lies below "".
bool isAtOrBelow(QStringView path, QStringView folder);

/// The folders above a normalised path, the topmost first, without the root.
QStringList foldersAbove(const QString &path);

/// The absolute path of a working-copy path below `root`.
QString absolutePath(QStringView path, const QString &root);

/// The normalised path of `absolutePath` below `root` ("" for the root itself); nothing when it lies outside. Both are
/// cleaned of "." and ".." first; links are not resolved.
std::optional<QString> repositoryRelativePath(const QString &absolutePath, const QString &root);

/// Whether something is at the absolute path, a link without target included.
bool isOnDisk(const QString &absolutePath);

/// Whether it is a folder itself, and no link to one.
bool isFolder(const QFileInfo &info);

/// Whether the absolute path exists and is a folder (links are followed).
bool isDirectory(const QString &absolutePath);

/// Whether the working-copy path exists below `root` and is a folder (links are followed).
bool workingCopyPathIsDirectory(QStringView path, const QString &root);

/// True for ".svn" and ".git", which no walk lists or enters.
bool isRepositoryMetadataName(QStringView name);

/// The one of the two that makes a folder a repository of that kind.
QString metadataName(RepositoryKind kind);

/// The ignore file that the ignore command writes for the project at `root` (absolute): ".gitignore" when it exists
/// there, else ".kestorignore", which need not exist.
QString ignoreFileURL(const QString &root);

} // namespace kestor

#pragma once

#include "model/repository_info.h"

#include <QString>
#include <QStringView>

#include <optional>

namespace kestor {

/// What a working copy's folder is called in the repository, as the log prints it: `relativeURL` ("^/my%20trunk")
/// without escapes, "^" and outer slashes.
QString repositoryFolder(const QString &relativeURL);

/// The path below `folder` (as repositoryFolder gives it) of a path of the repository: "." for the folder itself, and
/// the whole path without outer slashes when it lies elsewhere. A slice of `repositoryPath`, or "." itself.
QStringView workingCopyPath(QStringView repositoryPath, QStringView folder);

/// The URL of a path of the repository, escaped, with "@" and the peg revision; nothing when `info` has no valid
/// repository root.
std::optional<QString> repositoryURLForRepositoryPath(const RepositoryInfo &info, const QString &path, qint64 peg);

/// The URL of a path of the working copy in the same form; nothing when `info` has no valid URL.
std::optional<QString> repositoryURLForWorkingCopyPath(const RepositoryInfo &info, const QString &path, qint64 peg);

} // namespace kestor

#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace kestor {

/// Whether a path names a file that this user may execute (a folder does not count).
using IsExecutable = std::function<bool(const QString &path)>;

bool isExecutableFile(const QString &path);

/// Where `svn` is: `preferredPath` as it stands when not empty (not tested), else PATH, else the usual folders.
std::optional<QString> resolvedSVNPath(const QString &preferredPath, const QProcessEnvironment &environment,
                                       const IsExecutable &isExecutable);
/// Where `svnadmin` is: beside `preferredSVNPath` when that is executable, else PATH, else the usual folders.
std::optional<QString> resolvedSVNAdminPath(const QString &preferredSVNPath, const QProcessEnvironment &environment,
                                            const IsExecutable &isExecutable);
/// Where `git` is: PATH, else the usual folders.
std::optional<QString> resolvedGitPath(const QProcessEnvironment &environment, const IsExecutable &isExecutable);

} // namespace kestor

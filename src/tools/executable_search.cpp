#include "tools/executable_search.h"

#include <QDir>
#include <QFileInfo>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

// A Subversion from a package manager is preferred over the system's.
QStringList usualSubversionPaths(const QString &name) {
    return {u"/opt/local/bin/"_s + name, u"/opt/homebrew/bin/"_s + name, u"/usr/local/bin/"_s + name,
            u"/usr/bin/"_s + name};
}

// The system's Git is preferred over any other.
QStringList usualGitPaths() {
    return {u"/usr/bin/git"_s, u"/opt/homebrew/bin/git"_s, u"/opt/local/bin/git"_s, u"/usr/local/bin/git"_s};
}

std::optional<QString> firstExecutable(const QStringList &paths, const IsExecutable &isExecutable) {
    for (const QString &path : paths) {
        if (isExecutable(path))
            return path;
    }
    return std::nullopt;
}

std::optional<QString> foundInPathOr(const QStringList &usualPaths, const QString &name,
                                     const QProcessEnvironment &environment, const IsExecutable &isExecutable) {
    QStringList candidates;
    const QStringList folders = environment.value(u"PATH"_s).split(u':', Qt::SkipEmptyParts);
    for (const QString &folder : folders)
        candidates.append(QDir(folder).filePath(name));
    return firstExecutable(candidates + usualPaths, isExecutable);
}

} // namespace

bool isExecutableFile(const QString &path) {
    const QFileInfo info(path);
    return info.isFile() && info.isExecutable();
}

std::optional<QString> resolvedSVNPath(const QString &preferredPath, const QProcessEnvironment &environment,
                                       const IsExecutable &isExecutable) {
    if (!preferredPath.isEmpty())
        return preferredPath;
    return foundInPathOr(usualSubversionPaths(u"svn"_s), u"svn"_s, environment, isExecutable);
}

std::optional<QString> resolvedSVNAdminPath(const QString &preferredSVNPath, const QProcessEnvironment &environment,
                                            const IsExecutable &isExecutable) {
    const QString name = u"svnadmin"_s;
    if (!preferredSVNPath.isEmpty()) {
        const QString beside = QFileInfo(preferredSVNPath).dir().filePath(name);
        if (isExecutable(beside))
            return beside;
    }
    return foundInPathOr(usualSubversionPaths(name), name, environment, isExecutable);
}

std::optional<QString> resolvedGitPath(const QProcessEnvironment &environment, const IsExecutable &isExecutable) {
    return foundInPathOr(usualGitPaths(), u"git"_s, environment, isExecutable);
}

} // namespace kestor

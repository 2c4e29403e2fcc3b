#include "controller/path_command.h"

#include "controller/path_targets.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

// Well below what any system passes to a child, its environment included.
constexpr qsizetype longestArguments = qsizetype{100} << 10;

using Target = QString (*)(const QString &);

QStringList targets(const QStringList &paths, Target target) {
    QStringList all;
    all.reserve(paths.size());
    for (const QString &path : paths)
        all.append(target(path));
    return all;
}

bool hasLineFeed(const QString &path) {
    return path.contains(u'\n');
}

} // namespace

QStringList plainArguments(RepositoryKind kind, const PathCommand &command) {
    const bool separated = kind == RepositoryKind::git && !command.paths.isEmpty();
    const QStringList separator = separated ? QStringList(u"--"_s) : QStringList();
    const Target target = kind == RepositoryKind::svn ? svnTarget : gitTarget;
    return command.before + separator + targets(command.paths, target) + command.after;
}

bool needsPathFile(const PathCommand &command) {
    qsizetype total = 0;
    for (const QString &path : command.paths)
        total += path.toUtf8().size() + 1;
    return total > longestArguments;
}

QStringList argumentsWithPathFile(RepositoryKind kind, const PathCommand &command, const QString &file) {
    if (kind == RepositoryKind::svn) {
        QStringList ofSeveralLines = command.paths;
        ofSeveralLines.removeIf(std::not_fn(hasLineFeed));
        return command.before + QStringList{u"--targets"_s, file} + targets(ofSeveralLines, svnTarget) + command.after;
    }
    return command.before + QStringList{u"--pathspec-from-file="_s + file, u"--pathspec-file-nul"_s} + command.after;
}

QByteArray pathFileContent(RepositoryKind kind, const PathCommand &command) {
    const bool isSvn = kind == RepositoryKind::svn;
    QStringList paths = command.paths;
    if (isSvn)
        paths.removeIf(hasLineFeed);
    QByteArray content;
    for (const QString &target : targets(paths, isSvn ? svnListedTarget : gitTarget))
        content += target.toUtf8() + (isSvn ? '\n' : '\0');
    return content;
}

} // namespace kestor

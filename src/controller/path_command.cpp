#include "controller/path_command.h"

#include "controller/svn_target.h"

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

// Well below what any system passes to a child, its environment included.
constexpr qsizetype longestArguments = qsizetype{100} << 10;

QStringList targets(RepositoryKind kind, const QStringList &paths) {
    if (kind == RepositoryKind::git)
        return paths;
    QStringList all;
    all.reserve(paths.size());
    for (const QString &path : paths)
        all.append(svnTarget(path));
    return all;
}

} // namespace

QStringList plainArguments(RepositoryKind kind, const PathCommand &command) {
    const bool separated = kind == RepositoryKind::git && !command.paths.isEmpty();
    const QStringList separator = separated ? QStringList(u"--"_s) : QStringList();
    return command.before + separator + targets(kind, command.paths) + command.after;
}

bool needsPathFile(const PathCommand &command) {
    qsizetype total = 0;
    for (const QString &path : command.paths)
        total += path.toUtf8().size() + 1;
    return total > longestArguments;
}

QStringList argumentsWithPathFile(RepositoryKind kind, const PathCommand &command, const QString &file) {
    if (kind == RepositoryKind::svn)
        return command.before + QStringList{u"--targets"_s, file} + command.after;
    return command.before + QStringList{u"--pathspec-from-file="_s + file, u"--pathspec-file-nul"_s} + command.after;
}

QByteArray pathFileContent(RepositoryKind kind, const PathCommand &command) {
    const char end = kind == RepositoryKind::svn ? '\n' : '\0';
    QByteArray content;
    for (const QString &target : targets(kind, command.paths))
        content += target.toUtf8() + end;
    return content;
}

} // namespace kestor

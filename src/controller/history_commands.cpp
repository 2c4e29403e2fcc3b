#include "controller/history_commands.h"

#include "tools/arguments.h"

using namespace Qt::StringLiterals;

namespace kestor {

QList<PromptField> pathAndRevisionFields(const QString &path, const QString &revision) {
    return {{u"path"_s, u"Path"_s, path}, {u"revision"_s, u"Revision"_s, revision}};
}

QStringList rollbackArguments(RepositoryKind kind, const QString &revision) {
    if (kind == RepositoryKind::svn)
        return args(u"merge", u"-c", QString(u'-' + revision), u".");
    return args(u"revert", u"--no-commit", revision);
}

QStringList diffAgainstArguments(RepositoryKind kind, const QString &revision, const QString &path) {
    if (kind == RepositoryKind::svn)
        return args(u"diff", u"-r", revision) + (path.isEmpty() ? QStringList() : args(path));
    return args(u"show", u"--format=", u"--patch", u"--find-renames", revision) +
           (path.isEmpty() ? QStringList() : args(u"--", path));
}

QStringList pullFileArguments(RepositoryKind kind, const QString &revision, const QString &path) {
    if (kind == RepositoryKind::svn)
        return args(u"update", u"-r", revision, path);
    return args(u"checkout", revision, u"--", path);
}

QStringList catArguments(RepositoryKind kind, const QString &revision, const QString &target) {
    if (kind == RepositoryKind::svn)
        return args(u"cat") + (revision.isEmpty() ? QStringList() : args(u"-r", revision)) + args(target);
    return args(u"show", QString((revision.isEmpty() ? u"HEAD"_s : revision) + u':' + target));
}

} // namespace kestor

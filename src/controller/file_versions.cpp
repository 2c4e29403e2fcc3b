#include "controller/file_versions.h"

#include "controller/path_targets.h"
#include "tools/arguments.h"

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QCoro::Task<std::optional<QByteArray>> printedContent(std::shared_ptr<Tool> tool, Project project,
                                                      QStringList arguments) {
    const SVNCommandResult result =
        co_await tool->run(arguments, project.path, CheckStatus::no, RunPurpose::backgroundRead);
    co_return result.status == 0 ? std::optional(result.stdoutData) : std::nullopt;
}

} // namespace

QCoro::Task<std::optional<QByteArray>> baseContent(std::shared_ptr<Tool> tool, Project project, QString path) {
    if (project.kind == RepositoryKind::git)
        return gitContent(tool, project, u"HEAD"_s, path);
    return printedContent(tool, project, args(u"cat", u"-r", u"BASE", svnTarget(path)));
}

QCoro::Task<std::optional<QByteArray>> gitContent(std::shared_ptr<Tool> git, Project project, QString revision,
                                                  QString path) {
    return printedContent(git, project, args(u"show", revision + u':' + path));
}

QCoro::Task<std::optional<QByteArray>> svnContent(std::shared_ptr<Tool> svn, Project project, QString source,
                                                  qint64 revision) {
    return printedContent(svn, project, args(u"cat", u"-r", QString::number(revision), source));
}

QCoro::Task<FileContents> svnContents(std::shared_ptr<Tool> svn, Project project, SvnVersions versions) {
    FileContents contents;
    if (versions.before)
        contents.before = co_await svnContent(svn, project, versions.before->source, versions.before->revision);
    if (versions.after)
        contents.after = co_await svnContent(svn, project, versions.after->source, versions.after->revision);
    co_return contents;
}

} // namespace kestor

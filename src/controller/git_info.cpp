#include "controller/git_info.h"

#include "controller/tool_text.h"
#include "parsers/git_parsers.h"
#include "tools/arguments.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr QStringView localPrefix = u"refs/heads/";

/// The non-empty lines a command printed; none when it failed or could not be started.
QCoro::Task<QStringList> printedLines(std::shared_ptr<Tool> git, QStringList arguments, QString directory) {
    try {
        const SVNCommandResult result =
            co_await git->run(arguments, directory, CheckStatus::no, RunPurpose::backgroundRead);
        if (result.status != 0)
            co_return QStringList();
        co_return toolText(result.stdoutData).split(u'\n', Qt::SkipEmptyParts);
    } catch (const SVNClientError &) {
        co_return QStringList();
    }
}

std::optional<QString> firstOf(const QStringList &lines) {
    return lines.isEmpty() ? std::nullopt : std::optional(lines.first());
}

/// Of what HEAD stands for. Git's own short form is a longer one where a tag has the same name.
std::optional<QString> branchName(const QStringList &head) {
    std::optional<QString> name = firstOf(head);
    if (name && name->startsWith(localPrefix))
        name->remove(0, localPrefix.size());
    return name;
}

QCoro::Task<std::optional<QString>> remoteURL(std::shared_ptr<Tool> git, QString branch, QString directory) {
    const QString upstreamKey = u"branch."_s + branch + u".remote"_s;
    const QStringList upstream = co_await printedLines(git, args(u"config", u"--get", upstreamKey), directory);
    // "." stands for a branch of this very repository.
    const QString remote = upstream.isEmpty() || upstream.first() == u"." ? u"origin"_s : upstream.first();
    const QStringList url = co_await printedLines(git, args(u"remote", u"get-url", u"--", remote), directory);
    co_return firstOf(url);
}

void fillLastCommit(RepositoryInfo &info, const QStringList &lines) {
    if (lines.size() < 4)
        return;
    info.revision = lines[0];
    info.lastChangedRevision = lines[1];
    info.lastChangedDate = GitParsers::parseDate(lines[2]);
    info.lastChangedAuthor = lines[3];
}

} // namespace

QCoro::Task<RepositoryInfo> gitRepositoryInfo(std::shared_ptr<Tool> git, QString projectPath) {
    RepositoryInfo info;
    const SVNCommandResult found = co_await git->run(args(u"rev-parse", u"--show-toplevel", u"--git-common-dir"),
                                                     projectPath, CheckStatus::yes, RunPurpose::backgroundRead);
    const QStringList folders = toolText(found.stdoutData).split(u'\n', Qt::SkipEmptyParts);
    if (folders.size() == 2) {
        info.workingCopyRoot = folders[0];
        // Printed relative to the working directory inside a main working tree.
        info.repositoryRoot = QDir::cleanPath(QDir(projectPath).absoluteFilePath(folders[1]));
    }
    const QStringList head = co_await printedLines(git, args(u"symbolic-ref", u"--quiet", u"HEAD"), projectPath);
    const std::optional<QString> branch = branchName(head);
    info.workingRevision = branch.value_or(u"(detached)"_s);
    const QStringList commit =
        co_await printedLines(git, args(u"log", u"-1", u"--format=%H%n%h%n%aI%n%an"), projectPath);
    fillLastCommit(info, commit);
    const std::optional<QString> url = co_await remoteURL(git, branch.value_or(QString()), projectPath);
    info.url = url;
    co_return info;
}

} // namespace kestor

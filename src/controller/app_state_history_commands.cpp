#include "controller/app_state.h"
#include "controller/checkout_losses.h"
#include "controller/combined_output.h"
#include "controller/history_commands.h"
#include "controller/path_targets.h"
#include "controller/repository_addresses.h"
#include "controller/written_file.h"

#include <QCoroFuture>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

using Answer = std::optional<QMap<QString, QString>>;

QString rollbackQuestion(RepositoryKind kind, const QString &revision) {
    const QString what =
        kind == RepositoryKind::svn ? u"Reverse-merge r"_s + revision : u"Revert "_s + revision.left(7);
    return what + u" into the working copy? Review the resulting changes before committing."_s;
}

QCoro::Task<> rollBack(Workspace *shared, Project project, QString title, QString revision) {
    QString question = rollbackQuestion(project.kind, revision);
    if (project.kind == RepositoryKind::git) {
        // What the commit deleted comes back.
        const QString range = revision + u".."_s + revision + u'^';
        const QStringList overwritten = co_await overwrittenIgnoredPaths(shared, project, title, range);
        if (!overwritten.isEmpty())
            question += u' ' + overwritingText(overwritten);
    }
    if (shared->closing)
        co_return;
    const bool confirmed = co_await shared->user.confirm(title, question);
    if (!confirmed)
        co_return;
    const QStringList arguments = rollbackArguments(project.kind, revision);
    co_await shared->runAskedCommand(project, u"Rollback"_s, arguments, RefreshAfter::yes);
}

} // namespace

QCoro::Task<> AppState::rollbackSelectedRevision() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    const bool isGit = project->kind == RepositoryKind::git;
    const std::optional<qint64> number = selectedRevision;
    const QString revision = isGit ? selectedRevisionToken() : number ? QString::number(*number) : QString();
    if (revision.isEmpty()) {
        showAlert(isGit ? u"No Commit Selected"_s : u"No Revision Selected"_s,
                  isGit ? u"Select a Git commit in History first."_s : u"Select a revision in History first."_s);
        co_return;
    }
    const QString title = isGit ? u"Rollback Commit"_s : u"Rollback Revision"_s;
    co_await reporting(u"Rollback Failed"_s, rollBack(this, *project, title, revision));
}

QCoro::Task<> AppState::showDiffAgainstRevision() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    const QString token = selectedRevisionToken();
    const QList<PromptField> fields{{u"revision"_s, u"Revision Or Range"_s, token.isEmpty() ? u"BASE"_s : token},
                                    {u"path"_s, u"Path"_s, selectedActionPath()}};
    const Answer answer = co_await user.prompt(u"Diff"_s, fields);
    if (!answer || answer->value(u"revision"_s).isEmpty())
        co_return;
    const QString revision = answer->value(u"revision"_s);
    const QString path = answer->value(u"path"_s);
    const bool isWorkingFile = project->kind == RepositoryKind::svn && isKnownPath(*project, path);
    const QString target = isWorkingFile ? svnDiffTarget(path, revision) : typedTarget(*project, path);
    const QStringList arguments = diffAgainstArguments(project->kind, revision, target);
    co_await runAskedCommand(*project, u"Diff"_s, arguments, RefreshAfter::no);
}

QCoro::Task<> AppState::pullFileAtRevision() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    const QList<PromptField> fields = pathAndRevisionFields(selectedActionPath(), selectedRevisionToken());
    const Answer answer = co_await user.prompt(u"Pull File"_s, fields);
    if (!answer || answer->value(u"path"_s).isEmpty() || answer->value(u"revision"_s).isEmpty())
        co_return;
    const QString typed = answer->value(u"path"_s);
    const QString revision = answer->value(u"revision"_s);
    const QString path = typedTarget(*project, typed);
    // Subversion merges the changes into what it gets, Git overwrites them.
    if (project->kind == RepositoryKind::git) {
        const bool changed = co_await overwritesChanges(this, *project, u"Pull File"_s, revision, path);
        if (closing)
            co_return;
        if (changed) {
            const QString question = u"Local changes in %1 will be discarded."_s.arg(typed);
            const bool confirmed = co_await user.confirm(u"Pull File"_s, question);
            if (!confirmed)
                co_return;
        }
    }
    const QStringList arguments = pullFileArguments(project->kind, revision, path);
    co_await runAskedCommand(*project, u"Pull File"_s, arguments, RefreshAfter::yes);
}

QCoro::Task<> AppState::catTarget() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    const QList<PromptField> fields{{u"target"_s, u"URL Or Path"_s, selectedActionPath()},
                                    {u"revision"_s, u"Revision"_s, selectedRevisionToken()}};
    const Answer answer = co_await user.prompt(u"Cat"_s, fields);
    if (!answer || answer->value(u"target"_s).isEmpty())
        co_return;
    const QString target = typedSource(*project, answer->value(u"target"_s));
    const QStringList arguments = catArguments(project->kind, answer->value(u"revision"_s), target);
    co_await runAskedCommand(*project, u"Cat"_s, arguments, RefreshAfter::no);
}

QCoro::Task<> AppState::listTarget() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    const QString url = svnPrintedURLTarget(repositoryInfo.value().url.value_or(QString()));
    const QList<PromptField> fields{{u"target"_s, u"URL Or Path"_s, url}};
    const Answer answer = co_await user.prompt(u"List"_s, fields);
    if (!answer || answer->value(u"target"_s).isEmpty())
        co_return;
    const QStringList arguments{u"list"_s, typedTarget(*project, answer->value(u"target"_s))};
    if (requiredProject(RepositoryKind::svn))
        co_await runAskedCommand(*project, u"List"_s, arguments, RefreshAfter::no);
}

QCoro::Task<> AppState::exportFileAtRevision() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    const QList<PromptField> fields = pathAndRevisionFields(selectedActionPath(), selectedRevisionToken());
    const Answer answer = co_await user.prompt(u"Export File"_s, fields);
    if (!answer || answer->value(u"path"_s).isEmpty() || answer->value(u"revision"_s).isEmpty())
        co_return;
    const QString path = answer->value(u"path"_s);
    const std::optional<QString> destination =
        co_await user.chooseSaveFile(u"Save File At Revision"_s, u"Save"_s, path.section(u'/', -1));
    if (!destination)
        co_return;
    const QStringList arguments =
        catArguments(project->kind, answer->value(u"revision"_s), typedSource(*project, path));
    co_await reporting(u"Export File Failed"_s, exportFile(*project, arguments, *destination));
}

QCoro::Task<> AppState::exportFile(Project project, QStringList arguments, QString destination) {
    SVNCommandResult result;
    {
        const BusyScope exporting(busy, u"Exporting file"_s, BusyKind::interruptible);
        const std::shared_ptr<Tool> tool = toolFor(project.kind);
        result = co_await tool->run(arguments, project.path, CheckStatus::yes);
        const auto save = [content = result.stdoutData, destination] {
            return writeFile(destination, content);
        };
        const QString failure = co_await QtConcurrent::run(&workers, save);
        if (!failure.isEmpty())
            throw SVNClientError::launchFailed(failure);
    }
    commandOutput = combinedOutput(u"Export File"_s, result.commandLine, result.status,
                                   QStringList(u"Saved "_s + destination), QStringList());
}

} // namespace kestor

#include "controller/app_state.h"
#include "controller/commit_look.h"
#include "controller/commit_plan.h"
#include "controller/commit_preparation.h"
#include "controller/path_command_run.h"
#include "controller/working_copy_command.h"

#include <QCoroFuture>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

SVNClientError nothingToCommit(const CommitRequest &request, RepositoryKind kind) {
    if (kind == RepositoryKind::git && !request.folders.isEmpty())
        return SVNClientError::launchFailed(onlyFoldersText());
    return SVNClientError::launchFailed(
        u"What is ticked was added and is gone from disk again, so there is nothing to commit."_s);
}

} // namespace

QCoro::Task<> AppState::commitSelected() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    const CommitRequest request{changes, selectedCommitPaths, commitMessage.value().trimmed(), gitFacts, {}};
    if (request.ticked.in(request.changes).isEmpty()) {
        showAlert(u"Nothing To Commit"_s, u"Select at least one changed path."_s);
        co_return;
    }
    if (request.message.isEmpty()) {
        showAlert(u"Commit Message Required"_s, u"Enter a commit message before committing."_s);
        co_return;
    }
    co_await commit(*project, request);
}

QCoro::Task<> AppState::commit(Project project, CommitRequest ticked) {
    std::optional<SVNClientError> failure;
    SVNCommandResult result;
    {
        const BusyScope committing(busy, u"Committing"_s);
        try {
            const CommitRequest request = co_await lookedAt(project, ticked);
            if (project.kind == RepositoryKind::svn)
                result = co_await commitToSubversion(project, request);
            else
                result = co_await commitToGit(project, request);
        } catch (const SVNClientError &error) {
            failure = error;
        }
    }
    if (closing)
        co_return;
    if (failure) {
        co_await showError(u"Commit Failed"_s, *failure);
        co_await loadStatus(RunPurpose::userCommand);
        co_return;
    }
    const CommandOutput output = co_await outputOf(u"Commit"_s, std::move(result));
    commandOutput = output;
    commitMessage = QString();
    selectedCommitPaths = MarkedPaths();
    // A path of the commit that is a row again, such as a file that Git stopped tracking, is another change.
    tickDecisions = decisionsWithout(ticked.ticked, tickDecisions);
    co_await reloadAfterChange();
}

QCoro::Task<CommitRequest> AppState::lookedAt(Project project, CommitRequest ticked) {
    const auto look = [ticked, project] {
        return lookAtTickedPaths(ticked, project);
    };
    const CommitLook seen = co_await QtConcurrent::run(&workers, look);
    if (seen.obstacle)
        throw SVNClientError::launchFailed(*seen.obstacle);
    co_return seen.request;
}

QCoro::Task<SVNCommandResult> AppState::commitToSubversion(Project project, CommitRequest request) {
    const CommitPlan plan = svnCommitPlan(request, messageNamesFile(request.message, project.path));
    const QStringList inDoubt = svnPathsInDoubt(request);
    SvnScheduled scheduled;
    std::optional<SVNClientError> failure;
    try {
        for (const PathCommand &step : plan.preparation) {
            const SVNCommandResult result = co_await runPathCommand(tools.svn, project.kind, project.path, step);
            scheduled.add(result);
        }
        const std::optional<PathCommand> commit = co_await stillToCommit(tools.svn, project.path, plan.commit, inDoubt);
        if (!commit)
            throw nothingToCommit(request, project.kind);
        co_return co_await runPathCommand(tools.svn, project.kind, project.path, *commit);
    } catch (const SVNClientError &error) {
        failure = error;
    }
    if (failure->failedResult() != nullptr)
        scheduled.add(*failure->failedResult());
    co_await undoSvnPreparation(tools.svn, project.path, scheduled);
    throw *failure;
}

QCoro::Task<SVNCommandResult> AppState::commitToGit(Project project, CommitRequest request) {
    const bool merging = co_await isMerging(tools.git, project.path);
    if (merging && !coversWholeMerge(request)) {
        throw SVNClientError::launchFailed(
            u"A merge is committed as a whole. Tick every changed path, then commit again."_s);
    }
    const bool whole = merging || !request.keptOnDisk.isEmpty();
    const CommitPlan plan = gitCommitPlan(request, whole ? GitCommitExtent::index : GitCommitExtent::paths);
    const GitIndexCopy index = co_await copyOfGitIndex(tools.git, project.path);
    std::optional<SVNClientError> failure;
    try {
        for (const PathCommand &step : plan.preparation)
            co_await runPathCommand(tools.git, project.kind, project.path, step);
        if (whole || !plan.commit.paths.isEmpty())
            co_return co_await runPathCommand(tools.git, project.kind, project.path, plan.commit);
    } catch (const SVNClientError &error) {
        failure = error;
    }
    if (!failure)
        throw nothingToCommit(request, project.kind);
    co_await restoreGitIndex(tools.git, project.path, index);
    throw *failure;
}

QCoro::Task<> AppState::reloadAfterChange() {
    ++repositoryChanges;
    return reloadEverything(RunPurpose::userCommand, selectedTab);
}

} // namespace kestor

#include "controller/app_state.h"
#include "controller/combined_output.h"
#include "controller/deletion.h"
#include "controller/git_reference.h"
#include "controller/path_command_run.h"
#include "controller/refusal.h"
#include "controller/revert_plan.h"
#include "controller/tool_text.h"
#include "rules/project_bounds.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QCoroFuture>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// The plan with those files only that there are to lose. Reads the disk; workers.
RevertPlan onDisk(RevertPlan plan, const QString &root) {
    plan.overwritten.removeIf([&root](const QString &path) {
        const QString location = absolutePath(path, root);
        return !isOnDisk(location) || isDirectory(location) || !liesInside(path, root);
    });
    return plan;
}

CommandOutput revertOutput(const QList<SVNCommandResult> &results, qsizetype deleted) {
    QStringList commandLines;
    QStringList printed;
    QStringList errors;
    for (const SVNCommandResult &result : results) {
        commandLines.append(result.commandLine);
        printed.append(toolText(result.stdoutData));
        errors.append(toolText(result.stderrData));
    }
    if (deleted > 0)
        printed.append(u"Deleted %1 path(s)"_s.arg(deleted));
    return combinedOutput(u"Revert"_s, commandLines.join(u"; "_s), 0, printed, errors);
}

} // namespace

QCoro::Task<> AppState::revertSelectedPaths() {
    return revert(actionItems(), u"Select a changed path first."_s, RevertScope::selection);
}

QCoro::Task<> AppState::revertAllPaths() {
    return revert(changes, u"There are no changed paths to revert."_s, RevertScope::all);
}

QCoro::Task<> AppState::revertPath(QString path) {
    QList<WorkingCopyItem> items = changes;
    items.removeIf([&path](const WorkingCopyItem &item) { return item.path != path; });
    return revert(items, u"Select a changed path first."_s, RevertScope::oneRow);
}

QCoro::Task<> AppState::revert(QList<WorkingCopyItem> items, QString emptyMessage, RevertScope scope) {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    if (items.isEmpty()) {
        showAlert(u"No Paths Selected"_s, emptyMessage);
        co_return;
    }
    co_await reporting(u"Revert Failed"_s, revertAfterConfirmation(*project, items, scope));
}

QCoro::Task<> AppState::revertAfterConfirmation(Project project, QList<WorkingCopyItem> items, RevertScope scope) {
    std::optional<BusyScope> planning(std::in_place, busy, u"Reverting"_s);
    const RevertPlan plan = co_await revertPlan(project, items);
    planning.reset();
    const QString question = revertQuestion(scope, items.size(), plan.deletions());
    const bool confirmed = co_await user.confirm(u"Revert"_s, question);
    if (!confirmed)
        co_return;
    std::optional<SVNClientError> failure;
    try {
        const BusyScope reverting(busy, u"Reverting"_s);
        const CommandOutput output = co_await runRevert(project, plan);
        commandOutput = output;
    } catch (const SVNClientError &error) {
        failure = error;
    }
    if (closing)
        co_return;
    if (failure)
        co_await showError(u"Revert Failed"_s, *failure);
    co_await reloadAfterChange();
}

QCoro::Task<RevertPlan> AppState::revertPlan(Project project, QList<WorkingCopyItem> items) {
    if (project.kind == RepositoryKind::svn) {
        // Nothing would notice that before the question is asked.
        if (const std::optional<Refusal> missing = missingFolder(project.path))
            throw SVNClientError::launchFailed(missing->message);
        const auto plan = [items, root = project.path] {
            return onDisk(svnRevertPlan(items), root);
        };
        co_return co_await QtConcurrent::run(&workers, plan);
    }
    const GitRowFacts facts = gitFacts;
    const SVNCommandResult head = co_await lookedUpReference(tools.git, u"HEAD"_s, project.path);
    // Without an answer nobody knows what a revert would go back to.
    if (head.status != 0 && head.status != 1)
        throw SVNClientError::commandFailed(head);
    const GitHead commits = head.status == 0 ? GitHead::exists : GitHead::unborn;
    const auto plan = [items, facts, commits, root = project.path] {
        return onDisk(gitRevertPlan(items, withVacantOldNames(facts, root), commits), root);
    };
    co_return co_await QtConcurrent::run(&workers, plan);
}

QCoro::Task<CommandOutput> AppState::runRevert(Project project, RevertPlan plan) {
    const auto trash = [paths = plan.overwritten, root = project.path] {
        return moveToTrash(paths, root);
    };
    const TrashResult trashed = co_await QtConcurrent::run(&workers, trash);
    if (trashed.error)
        throw SVNClientError::launchFailed(*trashed.error);
    QList<SVNCommandResult> results;
    std::optional<SVNClientError> failure;
    try {
        for (const PathCommand &command : plan.commands) {
            const SVNCommandResult result =
                co_await runPathCommand(toolFor(project.kind), project.kind, project.path, command);
            results.append(result);
        }
    } catch (const SVNClientError &error) {
        failure = error;
    }
    if (failure) {
        const auto back = [files = trashed.moved] {
            takeBack(files);
        };
        co_await QtConcurrent::run(&workers, back);
        throw *failure;
    }
    qsizetype deleted = trashed.moved.size();
    if (!plan.unversioned.isEmpty()) {
        const auto remove = [items = plan.unversioned, root = project.path] {
            return deleteUnversionedItems(items, root);
        };
        const DeletionResult removed = co_await QtConcurrent::run(&workers, remove);
        // The tool may have taken them away itself, as svn does with the files of a conflict.
        if (removed.error && !(removed.foundNone && !results.isEmpty()))
            throw SVNClientError::launchFailed(*removed.error);
        deleted += removed.deleted;
    }
    co_return revertOutput(results, deleted);
}

} // namespace kestor

#include "controller/app_state.h"
#include "controller/combined_output.h"
#include "controller/deletion.h"
#include "controller/path_command_run.h"
#include "controller/revert_plan.h"
#include "controller/tool_text.h"
#include "tools/arguments.h"

#include <QCoroFuture>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

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
    const RevertPlan plan = co_await revertPlan(project, items);
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
        showError(u"Revert Failed"_s, *failure);
    co_await reloadAfterChange();
}

QCoro::Task<RevertPlan> AppState::revertPlan(Project project, QList<WorkingCopyItem> items) {
    if (project.kind == RepositoryKind::svn)
        co_return svnRevertPlan(items, changes);
    const QHash<QString, QString> oldNames = gitOldNames;
    const SVNCommandResult head = co_await tools.git->run(args(u"rev-parse", u"--verify", u"--quiet", u"HEAD"),
                                                          project.path, CheckStatus::no, RunPurpose::backgroundRead);
    co_return gitRevertPlan(items, oldNames, head.status == 0 ? GitHead::exists : GitHead::unborn);
}

QCoro::Task<CommandOutput> AppState::runRevert(Project project, RevertPlan plan) {
    const auto trash = [paths = plan.deletedByGit, root = project.path] {
        return moveToTrash(paths, root);
    };
    DeletionResult deletion = co_await QtConcurrent::run(&workers, trash);
    if (deletion.error)
        throw SVNClientError::launchFailed(*deletion.error);
    QStringList commandLines;
    QStringList printed;
    QStringList errors;
    for (const PathCommand &command : plan.commands) {
        const SVNCommandResult result =
            co_await runPathCommand(toolFor(project.kind), project.kind, project.path, command);
        commandLines.append(result.commandLine);
        printed.append(toolText(result.stdoutData));
        errors.append(toolText(result.stderrData));
    }
    if (!plan.unversioned.isEmpty()) {
        const auto remove = [items = plan.unversioned, root = project.path] {
            return deleteUnversionedItems(items, root);
        };
        const DeletionResult removed = co_await QtConcurrent::run(&workers, remove);
        if (removed.error)
            throw SVNClientError::launchFailed(*removed.error);
        deletion.deleted += removed.deleted;
    }
    if (deletion.deleted > 0)
        printed.append(u"Deleted %1 path(s)"_s.arg(deletion.deleted));
    co_return combinedOutput(u"Revert"_s, commandLines.join(u"; "_s), 0, printed, errors);
}

} // namespace kestor

#include "controller/app_state.h"
#include "controller/combined_output.h"
#include "controller/deletion.h"
#include "controller/git_reference.h"
#include "controller/git_status.h"
#include "controller/path_command_run.h"
#include "controller/refusal.h"
#include "controller/revert_plan.h"
#include "controller/tool_text.h"
#include "model/utf8_text.h"
#include "parsers/svn_xml_parsers.h"
#include "tools/arguments.h"

#include <QCoroFuture>
#include <QtConcurrent>

#include <utility>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// What left the disk before the tool ran.
struct Removal {
    TrashResult overwritten{};
    DeletionResult unversioned{};

    QList<TrashedPath> inTrash() const { return overwritten.moved + unversioned.moved; }
    qsizetype count() const { return overwritten.moved.size() + unversioned.deleted; }
};

/// Takes from the disk what is in the way of the plan now, unversioned paths only when nothing else refused. Workers.
Removal removed(const RevertPlan &raw, const QString &root) {
    const RevertPlan plan = onDisk(raw, root);
    Removal removal{moveToTrash(plan.overwritten, root), {}};
    if (!removal.overwritten.error && !plan.unversioned.isEmpty())
        removal.unversioned = deleteUnversionedItems(plan.unversioned, root);
    return removal;
}

/// Those of the paths that svn added as copies of others.
QCoro::Task<QSet<QString>> copiesAmong(std::shared_ptr<Tool> svn, QString directory, QStringList added) {
    if (added.isEmpty())
        co_return QSet<QString>();
    const QStringList arguments = addedPathsArguments(added);
    const SVNCommandResult status =
        co_await svn->run(arguments, directory, CheckStatus::yes, RunPurpose::backgroundRead);
    const std::optional<QSet<QString>> copies = parsedOutput<CopiedPathsParser>(status.stdoutData);
    if (!copies)
        throw SVNClientError::launchFailed(u"What svn printed could not be read to its end."_s);
    co_return *copies;
}

/// Those of the folders that are submodules in the last commit.
QCoro::Task<QSet<QString>> committedSubmodules(std::shared_ptr<Tool> git, QString directory, QSet<QString> folders) {
    if (folders.isEmpty())
        co_return QSet<QString>();
    const QStringList arguments = committedEntriesArguments(folders);
    const SVNCommandResult listed =
        co_await git->run(arguments, directory, CheckStatus::yes, RunPurpose::backgroundRead);
    co_return submodulesAmong(listed.stdoutData);
}

/// Whether nothing that Git tracks is changed but for what the plan takes back, hidden rows included.
QCoro::Task<bool> leavesNoChange(std::shared_ptr<Tool> git, QString directory, RevertPlan plan) {
    const QStringList arguments = args(u"status", u"--porcelain=v1", u"--untracked-files=no");
    const SVNCommandResult left = co_await git->run(arguments, directory, CheckStatus::no, RunPurpose::backgroundRead);
    if (left.status != 0)
        co_return false;
    const auto look = [plan, printed = left.stdoutData] {
        return takesBackAll(plan, gitStatus(utf8Text(printed)).items);
    };
    co_return co_await QtConcurrent::run(look);
}

/// The commands that make Git forget what waits for a commit of the changes, when the plan leaves none. Its commit
/// would record as taken in what was thrown away.
QCoro::Task<QList<PathCommand>> endingCommands(std::shared_ptr<Tool> git, QString directory, RevertPlan plan) {
    const QList<std::pair<QString, QString>> waiting{
        {u"MERGE_HEAD"_s, u"merge"_s}, {u"CHERRY_PICK_HEAD"_s, u"cherry-pick"_s}, {u"REVERT_HEAD"_s, u"revert"_s}};
    QList<PathCommand> commands;
    for (const auto &[head, command] : waiting) {
        const SVNCommandResult found = co_await lookedUpReference(git, head, directory);
        if (found.status == 0)
            commands.append(PathCommand{args(command, u"--quit")});
    }
    if (commands.isEmpty())
        co_return commands;
    const bool ends = co_await leavesNoChange(git, directory, plan);
    co_return ends ? commands : QList<PathCommand>();
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
    return revert(changes.value().toList(), u"There are no changed paths to revert."_s, RevertScope::all);
}

QCoro::Task<> AppState::revertPath(QString path) {
    const std::optional<qsizetype> row = changes.value().indexOf(path);
    const QList<WorkingCopyItem> items = row ? QList{changes.value()[*row]} : QList<WorkingCopyItem>();
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
    const auto count = [plan, root = project.path] {
        return onDisk(plan, root).deletions();
    };
    const qsizetype deletions = co_await QtConcurrent::run(&workers, count);
    planning.reset();
    const QString question = revertQuestion(scope, items.size() - plan.leftOut, deletions, plan.leftOut);
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
        const auto whichAdded = [items] {
            return addedPaths(items);
        };
        const QStringList added = co_await QtConcurrent::run(&workers, whichAdded);
        const QSet<QString> copied = co_await copiesAmong(tools.svn, project.path, added);
        const auto plan = [items, copied] {
            return svnRevertPlan(items, copied);
        };
        co_return co_await QtConcurrent::run(&workers, plan);
    }
    co_return co_await planWithGit(project, items);
}

QCoro::Task<RevertPlan> AppState::planWithGit(Project project, QList<WorkingCopyItem> items) {
    const auto look = [items, facts = gitFacts, root = project.path] {
        return gitRevertRows(items, facts, root);
    };
    const SVNCommandResult head = co_await lookedUpReference(tools.git, u"HEAD"_s, project.path);
    // Without an answer nobody knows what a revert would go back to.
    if (head.status != 0 && head.status != 1)
        throw SVNClientError::commandFailed(head);
    const GitHead commits = head.status == 0 ? GitHead::exists : GitHead::unborn;
    GitRevertRows rows = co_await QtConcurrent::run(&workers, look);
    if (rows.items.isEmpty())
        throw SVNClientError::launchFailed(leftOutText(rows.leftOut));
    if (commits == GitHead::exists) {
        const QSet<QString> submodules = co_await committedSubmodules(tools.git, project.path, rows.folders);
        rows.submodules = submodules;
    }
    const auto make = [rows, commits] {
        return gitRevertPlan(rows, commits);
    };
    RevertPlan plan = co_await QtConcurrent::run(&workers, make);
    if (!plan.commands.isEmpty()) {
        const QList<PathCommand> endings = co_await endingCommands(tools.git, project.path, plan);
        plan.commands += endings;
    }
    co_return plan;
}

QCoro::Task<CommandOutput> AppState::runRevert(Project project, RevertPlan plan) {
    // Before the tool runs: what it restores may stand there afterwards. More may have come since the question.
    const auto remove = [plan, root = project.path] {
        return removed(plan, root);
    };
    const Removal removal = co_await QtConcurrent::run(&workers, remove);
    if (removal.overwritten.error)
        throw SVNClientError::launchFailed(*removal.overwritten.error);
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
        const auto back = [paths = removal.inTrash()] {
            takeBack(paths);
        };
        co_await QtConcurrent::run(&workers, back);
        throw *failure;
    }
    // They may have gone with a folder that held them.
    const bool othersGone = removal.unversioned.foundNone && !plan.commands.isEmpty();
    if (removal.unversioned.error && !othersGone)
        throw SVNClientError::launchFailed(*removal.unversioned.error);
    co_return revertOutput(results, removal.count());
}

} // namespace kestor

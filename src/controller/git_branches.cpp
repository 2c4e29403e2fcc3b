#include "controller/git_branches.h"

#include "controller/checkout_losses.h"
#include "controller/git_reference.h"
#include "controller/tool_text.h"

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr QStringView failureTitle = u"Switch Branch Failed";

} // namespace

GitBranches::GitBranches(Workspace &shared) : workspace(shared) {}

QCoro::Task<> GitBranches::switchGitBranch() {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<Project> project = workspace.requiredProject(RepositoryKind::git);
    if (!project)
        co_return;
    co_await workspace.reporting(failureTitle.toString(), chooseAndSwitch(*project));
}

QCoro::Task<> GitBranches::chooseAndSwitch(Project project) {
    const QList<GitBranch> branches = co_await loadedBranches(project);
    const std::optional<SwitchTarget> target = co_await promptGitBranchSwitch(branches);
    if (target)
        co_await switchGitBranch(*target, project, branches);
}

QCoro::Task<QList<GitBranch>> GitBranches::loadedBranches(Project project) {
    const BusyScope loading(workspace.busy, u"Loading branches"_s, BusyKind::interruptible);
    const SVNCommandResult listing =
        co_await workspace.tools.git->run(branchListArguments(), project.path, CheckStatus::yes);
    co_return switchableBranches(toolText(listing.stdoutData));
}

QCoro::Task<std::optional<SwitchTarget>> GitBranches::promptGitBranchSwitch(QList<GitBranch> branches) {
    return workspace.user.chooseBranch(branches, currentGitBranchName(branches));
}

QCoro::Task<> GitBranches::switchGitBranch(SwitchTarget target, Project project, QList<GitBranch> branches) {
    if (const QString obstacle = branchNameObstacle(target.name); !obstacle.isEmpty())
        throw SVNClientError::launchFailed(obstacle);
    const SwitchPlan plan = switchPlan(target, branches, project.path);
    QString emptyTree;
    if (!currentGitBranchName(branches)) {
        const BusyScope looking(workspace.busy, u"Switch Branch"_s, BusyKind::interruptible);
        emptyTree = co_await emptyTreeBeforeFirstCommit(workspace.tools.git, project.path);
    }
    const QString range = (emptyTree.isEmpty() ? u"HEAD"_s : emptyTree) + u".."_s + plan.revision;
    const bool agreed = co_await agreesToOverwrite(&workspace, project, u"Switch Branch"_s, range);
    if (!agreed)
        co_return;
    SVNCommandResult result;
    {
        const BusyScope switching(workspace.busy, u"Switching branch"_s);
        result = co_await runGitSwitch(plan.arguments, plan.fallbackArguments, project.path);
    }
    co_await publish(result, plan.note);
    // Also after a failure: a hook can fail when the branch is switched already.
    co_await workspace.reloadAfterChange();
}

QCoro::Task<SVNCommandResult> GitBranches::runGitSwitch(QStringList arguments, QStringList fallbackArguments,
                                                        QString directory) {
    const std::shared_ptr<Tool> git = workspace.tools.git;
    const SVNCommandResult result = co_await git->run(arguments, directory, CheckStatus::no);
    if (result.status == 0 || fallbackArguments.isEmpty() || !gitSwitchUnavailable(result))
        co_return result;
    co_return co_await git->run(fallbackArguments, directory, CheckStatus::no);
}

QCoro::Task<> GitBranches::publish(SVNCommandResult result, QString note) {
    if (result.status != 0)
        co_return co_await workspace.showError(failureTitle.toString(), SVNClientError::commandFailed(result));
    CommandOutput output = co_await workspace.outputOf(u"Switch Branch"_s, std::move(result));
    if (!note.isEmpty())
        output.stdoutText += note + u'\n';
    workspace.commandOutput = output;
}

} // namespace kestor

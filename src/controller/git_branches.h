#pragma once

#include "controller/branch_switch.h"
#include "controller/workspace.h"

#include <QCoroTask>
#include <QList>
#include <QStringList>

#include <optional>

namespace kestor {

/// The branches of the selected Git project. Main thread only.
class GitBranches {
public:
    /// `shared` must outlive it.
    explicit GitBranches(Workspace &shared);

    /// Asks which branch to switch to, and before ignored files are overwritten; switches, shows what Git printed and
    /// loads everything that is shown.
    QCoro::Task<> switchGitBranch();

private:
    QCoro::Task<> chooseAndSwitch(Project project);
    QCoro::Task<QList<GitBranch>> loadedBranches(Project project);
    QCoro::Task<std::optional<SwitchTarget>> promptGitBranchSwitch(QList<GitBranch> branches);
    /// Looks at everything again even when Git failed.
    QCoro::Task<> switchGitBranch(SwitchTarget target, Project project, QList<GitBranch> branches);
    /// What came of the vector, or of the fallback where Git does not know the subcommand. Throws SVNClientError only
    /// when Git cannot be started.
    QCoro::Task<SVNCommandResult> runGitSwitch(QStringList arguments, QStringList fallbackArguments, QString directory);

    QCoro::Task<> publish(SVNCommandResult result, QString note);

    Workspace &workspace;
};

} // namespace kestor

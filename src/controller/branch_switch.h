#pragma once

#include "model/git_branch.h"
#include "model/switch_target.h"
#include "tools/command_result.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

namespace kestor {

/// The arguments of `git` that list what switchableBranches reads.
QStringList branchListArguments();

/// The branches of that listing, in its order. A local branch whose name a tag has too goes by its own name, since
/// `git switch` does not take the short name that tells the two apart. Any thread.
QList<GitBranch> switchableBranches(QStringView listing);

/// The name of the branch that is checked out; nothing when HEAD is detached or has no commit yet.
std::optional<QString> currentGitBranchName(const QList<GitBranch> &branches);

/// Why no branch can have the name, in words for the user; "" when Git shall decide. What begins with "-" would be an
/// option.
QString branchNameObstacle(const QString &name);

/// How to switch to a branch.
struct SwitchPlan {
    QStringList arguments{};
    QStringList fallbackArguments{}; ///< for a Git without `switch`; empty when `checkout` could overwrite files
    QString note{};                  ///< what the output shall say besides
    QString revision{};              ///< what will be checked out, as Git takes it in a range

    friend bool operator==(const SwitchPlan &, const SwitchPlan &) = default;
};

/// The plan for `target` among `branches`, in the repository at `root`. A remote branch whose local branch exists
/// already leads to that one. Looks on the disk whether a name that is no local branch is a path.
SwitchPlan switchPlan(const SwitchTarget &target, const QList<GitBranch> &branches, const QString &root);

/// Whether the failed run says that this Git has no such subcommand.
bool gitSwitchUnavailable(const SVNCommandResult &result);

} // namespace kestor

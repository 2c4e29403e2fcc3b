#include "controller/branch_switch.h"

#include "controller/tool_text.h"
#include "parsers/git_parsers.h"
#include "tools/arguments.h"

#include <QFileInfo>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr QStringView branchPrefix = u"refs/heads/";
/// Begins the short name of a remote branch that a local one resembles.
constexpr QStringView remotePrefix = u"remotes/";

/// A line of the listing with the name of a local branch as it stands in its reference.
QString lineWithOwnName(QStringView line) {
    QStringList pieces = line.toString().split(u'\t');
    if (pieces.size() == 3 && pieces[1].startsWith(branchPrefix))
        pieces[2] = pieces[1].mid(branchPrefix.size());
    return pieces.join(u'\t');
}

bool hasLocal(const QList<GitBranch> &branches, const QString &name) {
    return std::any_of(branches.begin(), branches.end(),
                       [&name](const GitBranch &branch) { return !branch.isRemote && branch.name == name; });
}

/// The name that `--track` gives to the new local branch: all behind the first "/".
QString localNameOf(const QString &remoteBranch) {
    const qsizetype remote = remoteBranch.startsWith(remotePrefix) ? remotePrefix.size() : 0;
    return remoteBranch.mid(remoteBranch.indexOf(u'/', remote) + 1);
}

/// Whether `git checkout NAME` could take the name for files, whose changes it would throw away.
bool mayNamePaths(const QString &name, const QString &root) {
    return QFileInfo::exists(root + u'/' + name) ||
           std::any_of(name.begin(), name.end(), [](QChar character) { return u"*?[\\:"_s.contains(character); });
}

SwitchPlan planForLocal(const QString &name) {
    return {args(u"switch", name), args(u"checkout", name), QString(), branchPrefix.toString() + name};
}

QString remoteReference(const QString &shortName) {
    return (shortName.startsWith(remotePrefix) ? u"refs/"_s : u"refs/remotes/"_s) + shortName;
}

/// What a name that no local branch has is taken for: the branch of a remote, else whatever Git finds.
QString typedRevision(const QString &name, const QList<GitBranch> &branches) {
    const auto remote = std::find_if(branches.begin(), branches.end(), [&name](const GitBranch &branch) {
        return branch.isRemote && localNameOf(branch.name) == name;
    });
    return remote == branches.end() ? name : remoteReference(remote->name);
}

} // namespace

QStringList branchListArguments() {
    return args(u"for-each-ref", u"--format=%(HEAD)%09%(refname)%09%(refname:short)", u"refs/heads", u"refs/remotes");
}

QList<GitBranch> switchableBranches(QStringView listing) {
    QString lines;
    for (const QStringView line : qTokenize(listing, u'\n', Qt::SkipEmptyParts))
        lines += lineWithOwnName(line) + u'\n';
    return GitParsers::parseBranches(lines);
}

std::optional<QString> currentGitBranchName(const QList<GitBranch> &branches) {
    const auto current = std::find_if(branches.begin(), branches.end(), std::mem_fn(&GitBranch::isCurrent));
    return current == branches.end() ? std::nullopt : std::optional(current->name);
}

QString branchNameObstacle(const QString &name) {
    return name.startsWith(u'-') ? u"The name of a branch cannot begin with \"-\": "_s + name : QString();
}

SwitchPlan switchPlan(const SwitchTarget &target, const QList<GitBranch> &branches, const QString &root) {
    if (!target.isRemote) {
        SwitchPlan plan = planForLocal(target.name);
        if (hasLocal(branches, target.name))
            return plan;
        plan.revision = typedRevision(target.name, branches);
        if (mayNamePaths(target.name, root))
            plan.fallbackArguments.clear();
        return plan;
    }
    const QString local = localNameOf(target.name);
    if (!hasLocal(branches, local))
        return {args(u"switch", u"--track", target.name), args(u"checkout", u"--track", target.name), QString(),
                remoteReference(target.name)};
    SwitchPlan plan = planForLocal(local);
    plan.note = u"The local branch %1 already exists and was switched to as it is, not created from %2."_s.arg(
        local, target.name);
    return plan;
}

bool gitSwitchUnavailable(const SVNCommandResult &result) {
    const QString text = (toolText(result.stdoutData) + u'\n' + toolText(result.stderrData)).toLower();
    return text.contains(u"is not a git command") || text.contains(u"unknown subcommand");
}

} // namespace kestor

#include "controller/revert_plan.h"

#include "rules/project_bounds.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QFileInfo>

#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

bool isNew(const WorkingCopyItem &item) {
    return item.kind == SVNStatusKind::added || item.kind == SVNStatusKind::replaced;
}

/// Whether svn lists a folder of that kind without what is in it.
bool standsForContents(const WorkingCopyItem &item) {
    switch (item.kind) {
    case SVNStatusKind::added:
    case SVNStatusKind::replaced:
    case SVNStatusKind::deleted:
    case SVNStatusKind::missing:
    case SVNStatusKind::obstructed:
        return true;
    default:
        return false;
    }
}

UnversionedPath unversionedPath(const WorkingCopyItem &item) {
    return {item.path, item.unversionedRoot.value_or(QString())};
}

bool isBelowOneOf(const QSet<QString> &folders, const QString &path) {
    const QStringList above = foldersAbove(path);
    return std::any_of(above.begin(), above.end(),
                       [&folders](const QString &folder) { return folders.contains(folder); });
}

/// `paths` without those below another one of them.
QStringList topmost(QStringList paths) {
    const QSet<QString> all(paths.begin(), paths.end());
    paths.removeIf([&all](const QString &path) { return isBelowOneOf(all, path); });
    return paths;
}

/// The rows that svn reverts with all that is in them.
QList<WorkingCopyItem> wholeRows(QList<WorkingCopyItem> items) {
    items.removeIf(std::not_fn(standsForContents));
    QSet<QString> paths;
    for (const WorkingCopyItem &item : std::as_const(items))
        paths.insert(item.path);
    items.removeIf([&paths](const WorkingCopyItem &item) { return isBelowOneOf(paths, item.path); });
    return items;
}

/// The commands of Git's that a revert runs.
struct GitCommands {
    PathCommand restored{args(u"restore", u"--staged", u"--worktree")};
    PathCommand removed{args(u"rm", u"--force")};
    PathCommand unstaged{args(u"rm", u"--cached", u"--force")};

    /// The one that takes this row back.
    PathCommand &takingBack(const WorkingCopyItem &item, const GitRevertRows &rows, GitHead head) {
        if (head == GitHead::unborn)
            return unstaged;
        if (item.kind != SVNStatusKind::conflicted || !rows.facts.notInHead.contains(item.path))
            return restored;
        // A submodule would go with all that is in it.
        return rows.folders.contains(item.path) ? unstaged : removed;
    }
};

/// Whether Git leaves nothing of what stands at the row's path. A submodule's folder it leaves as it is.
bool replacesWhatStandsThere(const WorkingCopyItem &item, const GitRevertRows &rows) {
    const bool replaced = item.kind == SVNStatusKind::deleted || rows.facts.retyped.contains(item.path);
    return replaced && !rows.submodules.contains(item.path);
}

/// The links and files that stand where the paths need folders.
QStringList inTheWayOf(const QStringList &paths, const QString &root) {
    QSet<QString> folders;
    for (const QString &path : paths) {
        for (const QString &folder : foldersAbove(path))
            folders.insert(folder);
    }
    QStringList obstacles;
    for (const QString &folder : std::as_const(folders)) {
        const QString location = absolutePath(folder, root);
        if (isOnDisk(location) && !isFolder(QFileInfo(location)))
            obstacles.append(folder);
    }
    return obstacles;
}

void appendUnlessEmpty(QList<PathCommand> &commands, const PathCommand &command) {
    if (!command.paths.isEmpty())
        commands.append(command);
}

} // namespace

QStringList addedPaths(const QList<WorkingCopyItem> &items) {
    QStringList paths;
    for (const WorkingCopyItem &item : wholeRows(items)) {
        if (item.kind == SVNStatusKind::added)
            paths.append(item.path);
    }
    return paths;
}

QStringList addedPathsArguments(const QStringList &paths) {
    PathCommand command{args(u"status", u"--xml", u"--depth", u"empty"), paths};
    if (needsPathFile(command))
        command = {args(u"status", u"--xml")};
    return plainArguments(RepositoryKind::svn, command);
}

RevertPlan svnRevertPlan(const QList<WorkingCopyItem> &items, const QSet<QString> &copied) {
    RevertPlan plan;
    PathCommand changed{args(u"revert")};
    PathCommand whole{args(u"revert", u"--depth", u"infinity")};
    for (const WorkingCopyItem &item : wholeRows(items)) {
        whole.paths.append(item.path);
        if (item.kind != SVNStatusKind::added || copied.contains(item.path))
            plan.displaced.append(item.path);
    }
    plan.written = plan.displaced;
    const QSet<QString> folders(whole.paths.begin(), whole.paths.end());
    for (const WorkingCopyItem &item : items) {
        if (item.kind == SVNStatusKind::unversioned)
            plan.unversioned.append(unversionedPath(item));
        else if (!standsForContents(item) && !isBelowOneOf(folders, item.path))
            changed.paths.append(item.path);
    }
    plan.written += changed.paths;
    appendUnlessEmpty(plan.commands, changed);
    appendUnlessEmpty(plan.commands, whole);
    return plan;
}

RevertPlan gitRevertPlan(const GitRevertRows &rows, GitHead head) {
    RevertPlan plan;
    plan.leftOut = rows.leftOut;
    GitCommands commands;
    // What is in submodules is changed there and not here.
    if (!rows.folders.isEmpty())
        commands.restored.before.append(u"--no-recurse-submodules"_s);
    QStringList oldNames;
    for (const WorkingCopyItem &item : rows.items) {
        if (item.kind == SVNStatusKind::unversioned) {
            plan.unversioned.append(unversionedPath(item));
            continue;
        }
        commands.takingBack(item, rows, head).paths.append(item.path);
        if (head == GitHead::unborn)
            continue;
        if (rows.facts.notInHead.contains(item.path) || isNew(item))
            plan.overwritten.append(item.path);
        else if (replacesWhatStandsThere(item, rows))
            plan.displaced.append(item.path);
        if (rows.facts.oldNames.contains(item.path))
            oldNames.append(rows.facts.oldNames.value(item.path));
    }
    // Nothing stands there yet.
    plan.displaced += oldNames;
    plan.written = plan.displaced;
    // Where a file became a folder, or a folder a file, Git knows only the upper name.
    commands.restored.paths = topmost(commands.restored.paths + oldNames);
    for (const PathCommand &command : {commands.restored, commands.removed, commands.unstaged})
        appendUnlessEmpty(plan.commands, command);
    return plan;
}

bool takesBackAll(const RevertPlan &plan, const QList<WorkingCopyItem> &items) {
    QSet<QString> reverted;
    for (const PathCommand &command : plan.commands)
        reverted.unite(QSet<QString>(command.paths.begin(), command.paths.end()));
    return std::ranges::all_of(items, [&reverted](const WorkingCopyItem &item) {
        return reverted.contains(item.path) || isBelowOneOf(reverted, item.path);
    });
}

RevertPlan onDisk(RevertPlan plan, const QString &root) {
    plan.overwritten.removeIf([&root](const QString &path) { return isFolder(QFileInfo(absolutePath(path, root))); });
    plan.overwritten += plan.displaced;
    plan.overwritten.removeIf([&root](const QString &path) { return !standsInside(path, root); });
    plan.overwritten += inTheWayOf(plan.written, root);
    plan.overwritten.removeDuplicates();
    plan.overwritten = topmost(plan.overwritten);
    const QSet<QString> leaving(plan.overwritten.begin(), plan.overwritten.end());
    plan.unversioned.removeIf([&leaving](const UnversionedPath &path) { return leaving.contains(path.path); });
    return plan;
}

QString leftOutText(qsizetype count) {
    return u"%1 path(s) whose names are not UTF-8 stay as they are. Revert them in a terminal."_s.arg(count);
}

QString revertQuestion(RevertScope scope, qsizetype count, qsizetype deletions, qsizetype leftOut) {
    QString question;
    switch (scope) {
    case RevertScope::oneRow:
        question = u"Revert this path? Local changes will be discarded."_s;
        break;
    case RevertScope::selection:
        question = u"Revert %1 selected path(s)? Local changes will be discarded."_s.arg(count);
        break;
    case RevertScope::all:
        question = u"Revert all %1 changed path(s)? Local changes will be discarded."_s.arg(count);
        break;
    }
    if (deletions > 0)
        question += u" %1 unversioned path(s) will be deleted from disk."_s.arg(deletions);
    if (leftOut > 0)
        question += u' ' + leftOutText(leftOut);
    return question;
}

} // namespace kestor

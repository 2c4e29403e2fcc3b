#include "controller/revert_plan.h"

#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

bool isNew(const WorkingCopyItem &item) {
    return item.kind == SVNStatusKind::added || item.kind == SVNStatusKind::replaced;
}

/// Whether svn lists a folder of that kind without what is in it.
bool standsForContents(const WorkingCopyItem &item) {
    return isNew(item) || item.kind == SVNStatusKind::deleted || item.kind == SVNStatusKind::missing;
}

UnversionedPath unversionedPath(const WorkingCopyItem &item) {
    return {item.path, item.unversionedRoot.value_or(QString())};
}

/// `paths` without those below another one of them.
QStringList topmost(QStringList paths) {
    const QSet<QString> all(paths.begin(), paths.end());
    paths.removeIf([&all](const QString &path) {
        const QStringList folders = foldersAbove(path);
        return std::any_of(folders.begin(), folders.end(),
                           [&all](const QString &folder) { return all.contains(folder); });
    });
    return paths;
}

void appendUnlessEmpty(QList<PathCommand> &commands, const PathCommand &command) {
    if (!command.paths.isEmpty())
        commands.append(command);
}

} // namespace

RevertPlan svnRevertPlan(const QList<WorkingCopyItem> &items) {
    RevertPlan plan;
    PathCommand changed{args(u"revert")};
    PathCommand whole{args(u"revert", u"--depth", u"infinity")};
    for (const WorkingCopyItem &item : items) {
        if (item.kind == SVNStatusKind::unversioned)
            plan.unversioned.append(unversionedPath(item));
        else
            (standsForContents(item) ? whole : changed).paths.append(item.path);
        if (item.kind == SVNStatusKind::deleted)
            plan.overwritten.append(item.path);
    }
    whole.paths = topmost(whole.paths);
    appendUnlessEmpty(plan.commands, changed);
    appendUnlessEmpty(plan.commands, whole);
    return plan;
}

RevertPlan gitRevertPlan(const QList<WorkingCopyItem> &items, const GitRowFacts &facts, GitHead head) {
    RevertPlan plan;
    PathCommand restored{args(u"restore", u"--staged", u"--worktree")};
    PathCommand unstaged{args(u"rm", u"--cached", u"--force")};
    PathCommand removed{args(u"rm", u"--force")};
    for (const WorkingCopyItem &item : items) {
        if (item.kind == SVNStatusKind::unversioned) {
            plan.unversioned.append(unversionedPath(item));
            continue;
        }
        if (head == GitHead::unborn) {
            unstaged.paths.append(item.path);
            continue;
        }
        const bool notInHead = facts.notInHead.contains(item.path);
        if (notInHead || isNew(item) || facts.notInIndex.contains(item.path))
            plan.overwritten.append(item.path);
        if (notInHead && item.kind == SVNStatusKind::conflicted) {
            removed.paths.append(item.path);
            continue;
        }
        restored.paths.append(item.path);
        if (facts.oldNames.contains(item.path))
            restored.paths.append(facts.oldNames.value(item.path));
    }
    appendUnlessEmpty(plan.commands, restored);
    appendUnlessEmpty(plan.commands, removed);
    appendUnlessEmpty(plan.commands, unstaged);
    return plan;
}

QString revertQuestion(RevertScope scope, qsizetype count, qsizetype deletions) {
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
    return question;
}

} // namespace kestor

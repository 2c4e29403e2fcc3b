#include "controller/revert_plan.h"

#include "tools/arguments.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

bool isNew(const WorkingCopyItem &item) {
    return item.kind == SVNStatusKind::added || item.kind == SVNStatusKind::replaced;
}

bool isBelowAny(const QString &path, const QSet<QString> &folders) {
    for (qsizetype slash = path.indexOf(u'/'); slash >= 0; slash = path.indexOf(u'/', slash + 1)) {
        if (folders.contains(path.first(slash)))
            return true;
    }
    return false;
}

} // namespace

RevertPlan svnRevertPlan(const QList<WorkingCopyItem> &items, const QList<WorkingCopyItem> &changes) {
    RevertPlan plan;
    QSet<QString> newPaths;
    QSet<QString> paths;
    for (const WorkingCopyItem &item : items) {
        if (item.kind == SVNStatusKind::unversioned) {
            plan.unversioned.append(item.path);
            continue;
        }
        paths.insert(item.path);
        if (isNew(item))
            newPaths.insert(item.path);
    }
    // An added folder is only given back together with what was added inside it.
    for (const WorkingCopyItem &item : changes) {
        if (isNew(item) && isBelowAny(item.path, newPaths))
            paths.insert(item.path);
    }
    QStringList sorted(paths.begin(), paths.end());
    std::sort(sorted.begin(), sorted.end(), std::greater<>());
    if (!sorted.isEmpty())
        plan.commands.append(PathCommand{args(u"revert"), sorted});
    return plan;
}

RevertPlan gitRevertPlan(const QList<WorkingCopyItem> &items, const QHash<QString, QString> &oldNames, GitHead head) {
    RevertPlan plan;
    PathCommand restored{args(u"restore", u"--staged", u"--worktree")};
    PathCommand unstaged{args(u"rm", u"--cached", u"--force")};
    for (const WorkingCopyItem &item : items) {
        if (item.kind == SVNStatusKind::unversioned) {
            plan.unversioned.append(item.path);
            continue;
        }
        if (head == GitHead::unborn) {
            unstaged.paths.append(item.path);
            continue;
        }
        restored.paths.append(item.path);
        if (isNew(item))
            plan.deletedByGit.append(item.path);
        if (oldNames.contains(item.path))
            restored.paths.append(oldNames.value(item.path));
    }
    for (const PathCommand &command : {restored, unstaged}) {
        if (!command.paths.isEmpty())
            plan.commands.append(command);
    }
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

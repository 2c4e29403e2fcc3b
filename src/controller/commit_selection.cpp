#include "controller/commit_selection.h"

namespace kestor {

bool isCommittable(const WorkingCopyItem &item) {
    switch (item.kind) {
    case SVNStatusKind::external:
    case SVNStatusKind::ignored:
        return false;
    case SVNStatusKind::none:
    case SVNStatusKind::normal:
        return isChange(item.propertiesKind);
    default:
        return true;
    }
}

bool isTickedAtFirst(const WorkingCopyItem &item) {
    if (!isCommittable(item) || !isChange(item.kind) || item.treeConflict)
        return false;
    switch (item.kind) {
    case SVNStatusKind::unversioned:
    case SVNStatusKind::missing:
    case SVNStatusKind::conflicted:
        return false;
    default:
        return item.propertiesKind != SVNStatusKind::conflicted;
    }
}

QSet<QString> ticksFor(const QList<WorkingCopyItem> &items, const TickDecisions &decisions) {
    QSet<QString> ticks;
    for (const WorkingCopyItem &item : items) {
        if (isCommittable(item) && decisions.value(item.path, isTickedAtFirst(item)))
            ticks.insert(item.path);
    }
    return ticks;
}

TickDecisions remainingDecisions(const QList<WorkingCopyItem> &items, const TickDecisions &decisions) {
    TickDecisions remaining;
    if (decisions.isEmpty())
        return remaining;
    for (const WorkingCopyItem &item : items) {
        const auto decision = decisions.constFind(item.path);
        if (decision != decisions.constEnd())
            remaining.insert(item.path, *decision);
    }
    return remaining;
}

} // namespace kestor

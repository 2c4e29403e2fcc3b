#include "controller/commit_selection.h"

namespace kestor {

namespace {

bool isDoubtful(const WorkingCopyItem &item) {
    return item.treeConflict || item.kind == SVNStatusKind::missing || item.kind == SVNStatusKind::conflicted ||
           item.propertiesKind == SVNStatusKind::conflicted;
}

/// Whether a decision of earlier is still one on this row.
bool counts(TickDecision decision, const WorkingCopyItem &item) {
    return decision != TickDecision::tick || !isDoubtful(item);
}

} // namespace

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
    return isCommittable(item) && isChange(item.kind) && item.kind != SVNStatusKind::unversioned && !isDoubtful(item);
}

TickDecision decisionOn(const WorkingCopyItem &item, bool selected) {
    if (!selected)
        return TickDecision::untick;
    return isDoubtful(item) ? TickDecision::tickOfDoubtful : TickDecision::tick;
}

QSet<QString> ticksFor(const QList<WorkingCopyItem> &items, const TickDecisions &decisions) {
    QSet<QString> ticks;
    for (const WorkingCopyItem &item : items) {
        const auto decision = decisions.constFind(item.path);
        const bool decided = decision != decisions.constEnd() && counts(*decision, item);
        const bool ticked = decided ? *decision != TickDecision::untick : isTickedAtFirst(item);
        if (ticked && isCommittable(item))
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
        if (decision != decisions.constEnd() && counts(*decision, item))
            remaining.insert(item.path, *decision);
    }
    return remaining;
}

} // namespace kestor

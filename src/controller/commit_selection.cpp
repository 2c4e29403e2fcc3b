#include "controller/commit_selection.h"

#include "rules/working_copy_paths.h"

#include <algorithm>

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

QSet<QString> externalFolders(const QList<WorkingCopyItem> &items) {
    QSet<QString> folders;
    for (const WorkingCopyItem &item : items) {
        if (item.kind == SVNStatusKind::external)
            folders.insert(item.path);
    }
    return folders;
}

bool liesInAny(const QString &path, const QSet<QString> &folders) {
    if (folders.isEmpty())
        return false;
    const QStringList above = foldersAbove(path);
    return std::any_of(above.begin(), above.end(),
                       [&folders](const QString &folder) { return folders.contains(folder); });
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
    const QSet<QString> externals = externalFolders(items);
    QSet<QString> ticks;
    for (const WorkingCopyItem &item : items) {
        const auto decision = decisions.constFind(item.path);
        const bool decided = decision != decisions.constEnd() && counts(*decision, item);
        const bool ticked =
            decided ? *decision != TickDecision::untick : isTickedAtFirst(item) && !liesInAny(item.path, externals);
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

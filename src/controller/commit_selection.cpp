#include "controller/commit_selection.h"

#include "rules/working_copy_paths.h"

#include <QSet>
#include <QStringList>

#include <algorithm>

namespace kestor {

namespace {

bool isDoubtful(const WorkingCopyItem &item) {
    switch (item.kind) {
    case SVNStatusKind::missing:
    case SVNStatusKind::obstructed:
    case SVNStatusKind::incomplete:
        return true;
    default:
        return isInConflict(item);
    }
}

QSet<QString> externalFolders(const WorkingCopyItems &items) {
    QSet<QString> folders;
    for (qsizetype row = 0; row < items.size(); ++row) {
        if (items.statusAt(row).kind == SVNStatusKind::external)
            folders.insert(items.pathAt(row).toString());
    }
    return folders;
}

bool liesInAny(QStringView path, const QSet<QString> &folders) {
    if (folders.isEmpty())
        return false;
    const QStringList above = foldersAbove(path.toString());
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

void TickDecisions::decide(qsizetype row, const WorkingCopyItem &item, bool selected) {
    const bool doubtful = isDoubtful(item);
    unticked.mark(row, !selected);
    ticked.mark(row, selected && !doubtful);
    tickedDoubtful.mark(row, selected && doubtful);
}

MarkedPaths ticksFor(const WorkingCopyItems &items, const TickDecisions &decisions) {
    const TickDecisions known = remainingDecisions(items, decisions);
    const QSet<QString> externals = externalFolders(items);
    MarkedPaths ticks(items);
    for (qsizetype row = 0; row < items.size(); ++row) {
        const WorkingCopyItem status = items.statusAt(row);
        const bool isTicked =
            known.ticked.isMarked(row) || known.tickedDoubtful.isMarked(row) ||
            (!known.unticked.isMarked(row) && isTickedAtFirst(status) && !liesInAny(items.pathAt(row), externals));
        ticks.mark(row, isTicked && isCommittable(status));
    }
    return ticks;
}

TickDecisions remainingDecisions(const WorkingCopyItems &items, const TickDecisions &decisions) {
    TickDecisions remaining{decisions.unticked.in(items), decisions.ticked.in(items),
                            decisions.tickedDoubtful.in(items)};
    for (qsizetype row = 0; row < items.size(); ++row) {
        if (remaining.ticked.isMarked(row) && isDoubtful(items.statusAt(row)))
            remaining.ticked.mark(row, false);
    }
    return remaining;
}

TickDecisions decisionsWithout(const MarkedPaths &paths, const TickDecisions &decisions) {
    return {decisions.unticked.without(paths), decisions.ticked.without(paths),
            decisions.tickedDoubtful.without(paths)};
}

} // namespace kestor

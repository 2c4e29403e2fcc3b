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

QSet<QString> ticksAfterLoad(const QList<WorkingCopyItem> &items, const QSet<QString> &known,
                             const QSet<QString> &ticked) {
    QSet<QString> ticks;
    for (const WorkingCopyItem &item : items) {
        if (!isCommittable(item))
            continue;
        const bool selected = known.contains(item.path) ? ticked.contains(item.path) : isTickedAtFirst(item);
        if (selected)
            ticks.insert(item.path);
    }
    return ticks;
}

} // namespace kestor

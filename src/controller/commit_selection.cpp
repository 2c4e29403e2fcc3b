#include "controller/commit_selection.h"

#include <QHash>

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

QSet<QString> ticksAfterLoad(const QList<WorkingCopyItem> &items, const QList<WorkingCopyItem> &previous,
                             const QSet<QString> &ticked) {
    QHash<QStringView, bool> startedTicked;
    startedTicked.reserve(previous.size());
    for (const WorkingCopyItem &item : previous)
        startedTicked.insert(item.path, isTickedAtFirst(item));
    QSet<QString> ticks;
    for (const WorkingCopyItem &item : items) {
        const bool atFirst = isTickedAtFirst(item);
        const auto known = startedTicked.constFind(item.path);
        const bool keeps = known != startedTicked.constEnd() && *known == atFirst;
        if (isCommittable(item) && (keeps ? ticked.contains(item.path) : atFirst))
            ticks.insert(item.path);
    }
    return ticks;
}

} // namespace kestor

#include "model/working_copy_item.h"

namespace kestor {

bool isInConflict(const WorkingCopyItem &item) {
    return item.treeConflict || item.kind == SVNStatusKind::conflicted ||
           item.propertiesKind == SVNStatusKind::conflicted;
}

QString statusLabel(const WorkingCopyItem &item) {
    if (item.treeConflict)
        return QStringLiteral("Tree Conflict");
    const QString label = displayName(item.kind).toString();
    if (!isChange(item.propertiesKind))
        return label;
    return label + QStringLiteral(", Props ") + shortName(item.propertiesKind);
}

} // namespace kestor

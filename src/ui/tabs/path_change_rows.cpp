#include "ui/tabs/path_change_rows.h"

namespace kestor {

void PathChangeRows::publish(const QList<SVNPathChange> &published) {
    if (changes == published)
        return;
    replaceRecords([&] { changes = published; });
}

RowContent PathChangeRows::content(int record, const Theme &theme) const {
    const SVNPathChange &change = changes.at(record);
    return PathRow{.badge = badgeForAction(change.action, theme),
                   .status = displayName(statusKindOfAction(change.action)).toString(),
                   .path = change.path};
}

} // namespace kestor

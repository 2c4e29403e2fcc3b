#include "ui/tabs/history_file_rows.h"

namespace kestor {

void HistoryFileRows::publish(const FileHistory &published) {
    if (files == published)
        return;
    replaceRecords([&] { files = published; });
}

RowContent HistoryFileRows::content(int record, const Theme &theme) const {
    const FileHistoryItem file = files[record];
    const FileHistoryRevision newest = file.revisions.isEmpty() ? FileHistoryRevision() : file.revisions.first();
    return PathRow{.badge = badgeForAction(newest.action, theme),
                   .status = displayName(statusKindOfAction(newest.action)).toString(),
                   .path = file.path,
                   .label = newest.displayRevision(),
                   .labelKind = LabelKind::revision};
}

} // namespace kestor

#include "ui/tabs/outdated_rows.h"

#include "ui/tabs/change_rows.h"

namespace kestor {

void OutdatedRows::publish(const QList<WorkingCopyItem> &published) {
    if (items == published)
        return;
    replaceRecords([&] { items = published; });
}

RowContent OutdatedRows::content(int record, const Theme &theme) const {
    return changeRow(items.at(record), Tick::noColumn, theme);
}

} // namespace kestor

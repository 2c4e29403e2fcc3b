#include "ui/list/row_model.h"

#include "ui/look/elided_path.h"

#include <algorithm>

namespace kestor {

int RowModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown.size());
}

QVariant RowModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const int record = recordAt(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return copiedText(record);
    case Qt::ToolTipRole:
        return toolTip(record);
    case Qt::AccessibleTextRole:
        return std::visit([](const auto &row) { return accessibleText(row); }, content(record, Theme()));
    default:
        return {};
    }
}

void RowModel::setFilter(const ListFilter &wanted) {
    if (wanted == currentFilter)
        return;
    const auto text = [this](int record, QString &made) {
        return filterText(record, made);
    };
    std::vector<int> matching = wanted.narrows(currentFilter) ? matchingRecords(wanted, shown, text)
                                                              : matchingRecords(wanted, recordCount(), text);
    if (matching == shown) {
        currentFilter = wanted;
        announceNewLook();
        return;
    }
    beginResetModel();
    currentFilter = wanted;
    shown = std::move(matching);
    endResetModel();
}

int RowModel::rowOf(const QString &id) const {
    QString made;
    const auto found = std::find_if(shown.begin(), shown.end(), [&](int record) { return idView(record, made) == id; });
    return found == shown.end() ? -1 : static_cast<int>(found - shown.begin());
}

Tick RowModel::tickOf(int record) const {
    const RowContent shownContent = content(record, Theme());
    const auto *path = std::get_if<PathRow>(&shownContent);
    return path ? path->tick : Tick::noColumn;
}

QString RowModel::searchText(int record) const {
    const QString id = recordId(record);
    return id.sliced(fileNameStart(id));
}

void RowModel::replaceRecords(const std::function<void()> &replace) {
    beginResetModel();
    replace();
    shown = matchingRecords(currentFilter, recordCount(),
                            [this](int record, QString &made) { return filterText(record, made); });
    endResetModel();
}

void RowModel::announceNewLook() {
    if (!shown.empty())
        emit dataChanged(index(0), index(rowCount() - 1));
}

} // namespace kestor

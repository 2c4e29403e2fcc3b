#pragma once

#include "ui/list/language_row.h"
#include "ui/list/list_filter.h"
#include "ui/list/path_row.h"
#include "ui/list/revision_row.h"

#include <QAbstractListModel>

#include <cstdint>
#include <functional>
#include <variant>
#include <vector>

namespace kestor {

/// What a row says.
using RowContent = std::variant<PathRow, RevisionRow, LanguageRow>;

/// How the rows of a list are laid out.
enum class RowShape : std::uint8_t {
    oneLine,
    twoLines,
    columns, ///< revisions on one line where there is room, else on two
};

/// The rows of a list: an index vector over records, which a filter narrows. A subclass holds the records and says what
/// each of them shows. "Record" counts all records, "row" those that the filter leaves.
class RowModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const final;
    /// Display role: the text that is copied; tooltip and accessible text hold all of the row.
    QVariant data(const QModelIndex &index, int role) const final;

    /// Narrows the rows. The same words in other blanks change nothing.
    void setFilter(const ListFilter &wanted);
    const ListFilter &filter() const { return currentFilter; }

    int recordAt(int row) const { return shown.at(static_cast<std::size_t>(row)); }
    QString idAt(int row) const { return recordId(recordAt(row)); }
    /// The row that shows the record of this identity, -1 when none does. Linear.
    int rowOf(const QString &id) const;
    /// The tick of a record; `noColumn` for a list without ticks.
    Tick tickOf(int record) const;

    virtual RowShape shape() const { return RowShape::oneLine; }
    virtual int recordCount() const = 0;
    virtual QString recordId(int record) const = 0;
    /// The same for passes over all records: no copy where they hold it otherwise, else in `made`.
    virtual QStringView idView(int record, QString &made) const { return made = recordId(record); }
    virtual RowContent content(int record, const Theme &theme) const = 0;
    /// What the filter looks at; perhaps in `made`.
    virtual QStringView filterText(int record, QString &made) const { return idView(record, made); }
    virtual QString copiedText(int record) const { return recordId(record); }
    virtual QString toolTip(int record) const { return recordId(record); }
    /// What a typed letter begins: the file name of a path.
    virtual QString searchText(int record) const;

protected:
    /// Lets `replace` exchange the records within one reset.
    void replaceRecords(const std::function<void()> &replace);
    /// The same records look different.
    void announceNewLook();

private:
    ListFilter currentFilter{};
    std::vector<int> shown{};
};

} // namespace kestor

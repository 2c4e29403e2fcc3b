#pragma once

#include "model/line_change_summary.h"
#include "ui/list/row_delegate.h"
#include "ui/look/placeholder.h"
#include "ui/tabs/change_rows.h"

#include <QWidget>

namespace kestor {

class CommitPanel;
class FilterField;
class LineSummaryLabel;
class RowListView;
class TickAllBox;

/// The left side of the Changes tab: tick-all box, filter and line summary above the list, the commit panel below.
class ChangesColumn final : public QWidget {
    Q_OBJECT

public:
    /// `shownRows` must outlive the column.
    explicit ChangesColumn(ChangeRows &shownRows, QWidget *parent = nullptr);

    RowListView &list() { return *rowList; }
    FilterField &filter() { return *filterField; }
    CommitPanel &commitPanel() { return *panel; }

    void setSummary(const LineChangeSummary &summary);
    void setTickAccess(TickAccess access);
    /// What the list says while there are no rows at all.
    void setEmptyText(const PlaceholderText &text);
    /// To be called when rows or ticks have changed.
    void updateCounts();

signals:
    void ticksRequested(const QList<int> &records, kestor::Tick wanted);

private:
    QWidget *bar();
    QWidget *body();
    void applyFilter(const QString &text);
    void tickAllShown(Tick wanted);

    ChangeRows &rows;
    TickAllBox *tickAll;
    FilterField *filterField;
    LineSummaryLabel *summaryLabel;
    RowListView *rowList;
    Placeholder *placeholder;
    CommitPanel *panel;
    PlaceholderText emptyText{};
};

} // namespace kestor

#pragma once

#include "model/line_change_summary.h"
#include "ui/list/row_delegate.h"
#include "ui/tabs/change_rows.h"

#include <QWidget>

namespace kestor {

class CommitPanel;
class FilteredList;
class LineSplitter;
class LineSummaryLabel;
class RowListView;
class TickAllBox;

/// The left side of the Changes tab: the list with tick-all box and line summary in its bar, the commit panel below.
class ChangesColumn final : public QWidget {
    Q_OBJECT

public:
    /// `shownRows` must outlive the column.
    explicit ChangesColumn(ChangeRows &shownRows, QWidget *parent = nullptr);

    FilteredList &filteredList() { return *filtered; }
    RowListView &list();
    CommitPanel &commitPanel() { return *panel; }

    /// The height of the commit panel; 0 until somebody has set one.
    int panelHeight() const { return chosenHeight; }
    void setPanelHeight(int height);

    void setSummary(const LineChangeSummary &summary);
    void setTickAccess(TickAccess access);
    /// To be called when ticks have changed.
    void updateCounts();

signals:
    void ticksRequested(const QList<int> &records, kestor::Tick wanted);

private:
    void tickAllShown(Tick wanted);

    ChangeRows &rows;
    FilteredList *filtered;
    TickAllBox *tickAll;
    LineSummaryLabel *summaryLabel;
    CommitPanel *panel;
    LineSplitter *parts;
    int chosenHeight = 0;
};

} // namespace kestor

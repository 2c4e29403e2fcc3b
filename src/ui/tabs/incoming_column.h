#pragma once

#include "model/line_change_summary.h"
#include "ui/tabs/outdated_rows.h"
#include "ui/tabs/revision_rows.h"

#include <QWidget>

#include <optional>

namespace kestor {

class FilteredList;
class LineSplitter;
class LineSummaryLabel;
class RowListView;
class SectionBar;

/// The left side of the Incoming tab: the revisions with filter, line summary and range, and below them the items that
/// are out of date, where there are any. The revisions are as high as they need, up to a part of the column, until the
/// user moves the line between both.
class IncomingColumn final : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive the column.
    IncomingColumn(LogRows &revisions, OutdatedRows &outdated, QWidget *parent = nullptr);

    FilteredList &filteredList() { return *filtered; }
    RowListView &revisionList();
    RowListView &outdatedList() { return *outdatedView; }

    void setSummary(const LineChangeSummary &summary);
    /// What the bar above the revisions says of them; without revisions there is none.
    void setRange(const std::optional<QString> &description);
    /// The height of the revisions; 0 until the user has chosen one.
    int revisionsHeight() const { return chosenHeight; }
    void setRevisionsHeight(int height);
    /// To be called when there are other rows in one of the lists.
    void fit();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *outdatedPart();
    void showCounts();
    int wantedRevisionsHeight() const;

    LogRows &revisionRows;
    OutdatedRows &outdatedRows;
    FilteredList *filtered;
    LineSummaryLabel *summaryLabel;
    SectionBar *rangeBar;
    SectionBar *outdatedBar;
    RowListView *outdatedView;
    LineSplitter *parts;
    QWidget *lower;
    QString range{};
    int chosenHeight = 0; ///< of the revisions, by the user
};

} // namespace kestor

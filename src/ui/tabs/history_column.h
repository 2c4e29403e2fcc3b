#pragma once

#include "model/line_change_summary.h"
#include "ui/tabs/history_file_rows.h"
#include "ui/tabs/history_sizes.h"
#include "ui/tabs/revision_rows.h"

#include <QWidget>

#include <cstdint>

namespace kestor {

class FilteredList;
class LineSplitter;
class LineSummaryLabel;
class RowListView;
class SectionBar;
enum class ListExtent : std::uint8_t;

/// How the two lists of the History tab stand to each other.
enum class HistoryColumns : std::uint8_t { stacked, sideBySide };

/// The left side of the History tab: the files with filter and line summary, and the revisions of the selected one.
class HistoryColumn final : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive the column.
    HistoryColumn(HistoryFileRows &files, FileRevisionRows &revisions, QWidget *parent = nullptr);

    FilteredList &filteredList() { return *filtered; }
    RowListView &fileList();
    RowListView &revisionList() { return *revisionView; }

    void setColumns(HistoryColumns wanted);
    HistoryColumns columns() const { return shownColumns; }
    const HistorySizes &sizes() const { return chosen; }
    void setSizes(const HistorySizes &wanted);
    /// Takes the sizes that the lists have as the user's choice.
    void keepSizes();
    /// The width that both lists want side by side.
    int sideBySideWidth() const;

    void setSummary(const LineChangeSummary &summary);
    /// Says whose revisions are listed; "" for none.
    void setFile(const QString &path, ListExtent extent);

private:
    QWidget *revisionPart();
    void applySizes();

    FileRevisionRows &revisionRows;
    FilteredList *filtered;
    LineSummaryLabel *summaryLabel;
    SectionBar *revisionBar;
    RowListView *revisionView;
    LineSplitter *parts;
    HistoryColumns shownColumns = HistoryColumns::stacked;
    HistorySizes chosen{};
};

} // namespace kestor

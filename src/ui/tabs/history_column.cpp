#include "ui/tabs/history_column.h"

#include "ui/list/filtered_list.h"
#include "ui/list/line_summary_label.h"
#include "ui/list/row_list_view.h"
#include "ui/list/section_bar.h"
#include "ui/look/elided_path.h"
#include "ui/look/line_splitter.h"
#include "ui/look/metrics.h"
#include "ui/tabs/revision_count.h"

#include <QLocale>
#include <QVBoxLayout>

namespace kestor {

namespace {

constexpr int firstShownRevisions = 5;
constexpr int leastShownRevisions = 2;
/// Of each list when they stand side by side.
constexpr int standardWidth = 360;

} // namespace

HistoryColumn::HistoryColumn(HistoryFileRows &files, FileRevisionRows &revisions, QWidget *parent)
    : QWidget(parent), revisionRows(revisions), filtered(new FilteredList(files, tr("Filter files"), tr("Files"))),
      summaryLabel(new LineSummaryLabel), revisionBar(new SectionBar), revisionView(new RowListView(revisions)),
      parts(new LineSplitter(Qt::Vertical, this)) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(parts);
    parts->addWidget(filtered);
    parts->addWidget(revisionPart());
    parts->setStretchFactor(0, 1);
    filtered->addAfterFilter(summaryLabel);
    summaryLabel->setSummary({});
    connect(parts, &QSplitter::splitterMoved, this, &HistoryColumn::keepSizes);
    applySizes();
    setFile({}, ListExtent::whole);
}

QWidget *HistoryColumn::revisionPart() {
    auto *part = new QWidget;
    auto *layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(revisionBar);
    layout->addWidget(revisionView, 1);
    revisionView->setAccessibleName(tr("Revisions"));
    part->setMinimumHeight(revisionBar->sizeHint().height() + leastShownRevisions * twoLineRowHeight(font()));
    return part;
}

RowListView &HistoryColumn::fileList() {
    return filtered->list();
}

void HistoryColumn::setColumns(HistoryColumns wanted) {
    if (wanted == shownColumns)
        return;
    shownColumns = wanted;
    const bool stacked = wanted == HistoryColumns::stacked;
    parts->setOrientation(stacked ? Qt::Vertical : Qt::Horizontal);
    revisionBar->setMinimumHeight(stacked ? 0 : barHeight);
    applySizes();
}

void HistoryColumn::setSizes(const HistorySizes &wanted) {
    chosen = wanted;
    applySizes();
}

void HistoryColumn::keepSizes() {
    if (shownColumns == HistoryColumns::stacked) {
        chosen.revisionsHeight = parts->sizes().last();
        return;
    }
    chosen.listsWidth = width();
    chosen.filesWidth = parts->sizes().first();
}

int HistoryColumn::sideBySideWidth() const {
    return chosen.listsWidth > 0 ? chosen.listsWidth : 2 * standardWidth + 1;
}

void HistoryColumn::applySizes() {
    if (shownColumns == HistoryColumns::sideBySide) {
        const int files = chosen.filesWidth > 0 ? chosen.filesWidth : standardWidth;
        return parts->setSizes({files, sideBySideWidth() - parts->handleWidth() - files});
    }
    const int firstShown = revisionBar->sizeHint().height() + firstShownRevisions * twoLineRowHeight(font());
    parts->setSizes({1, chosen.revisionsHeight > 0 ? chosen.revisionsHeight : firstShown});
}

void HistoryColumn::setSummary(const LineChangeSummary &summary) {
    summaryLabel->setSummary(summary);
}

void HistoryColumn::setFile(const QString &path, ListExtent extent) {
    const QString count = revisionCountText(revisionRows.recordCount(), locale());
    const QString title = extent == ListExtent::part ? tr("%1 so far").arg(count) : count;
    revisionBar->setTexts(path.isEmpty() ? tr("Revisions") : title, path.sliced(fileNameStart(path)));
}

} // namespace kestor

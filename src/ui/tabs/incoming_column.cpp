#include "ui/tabs/incoming_column.h"

#include "ui/list/filter_field.h"
#include "ui/list/filtered_list.h"
#include "ui/list/line_summary_label.h"
#include "ui/list/row_list_view.h"
#include "ui/list/section_bar.h"
#include "ui/look/line_splitter.h"
#include "ui/look/metrics.h"
#include "ui/tabs/revision_count.h"

#include <QLocale>
#include <QVBoxLayout>

#include <algorithm>

namespace kestor {

namespace {

constexpr int leastShownIncoming = 3;
constexpr int leastShownItems = 3;
/// The most that the revisions take of the column by themselves.
constexpr double greatestPart = 0.6;

} // namespace

IncomingColumn::IncomingColumn(LogRows &revisions, OutdatedRows &outdated, QWidget *parent)
    : QWidget(parent), revisionRows(revisions), outdatedRows(outdated),
      filtered(new FilteredList(revisions, tr("Filter revisions"), tr("Incoming revisions"))),
      summaryLabel(new LineSummaryLabel), rangeBar(new SectionBar), outdatedBar(new SectionBar),
      outdatedView(new RowListView(outdated)), parts(new LineSplitter(Qt::Vertical, this)), lower(outdatedPart()) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(parts);
    parts->addWidget(filtered);
    parts->addWidget(lower);
    parts->setStretchFactor(1, 1);
    filtered->addAfterFilter(summaryLabel);
    filtered->addHeader(rangeBar);
    filtered->setMinimumHeight(barHeight + SectionBar::standardHeight + leastShownIncoming * twoLineRowHeight(font()));
    connect(parts, &QSplitter::splitterMoved, this, [this] { chosenHeight = parts->sizes().first(); });
    summaryLabel->setSummary({});
    setRange({});
    fit();
}

QWidget *IncomingColumn::outdatedPart() {
    auto *part = new QWidget;
    auto *layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(outdatedBar);
    layout->addWidget(outdatedView, 1);
    outdatedView->setAccessibleName(tr("Out of date"));
    part->setMinimumHeight(outdatedBar->sizeHint().height() + leastShownItems * rowHeight(font()));
    return part;
}

RowListView &IncomingColumn::revisionList() {
    return filtered->list();
}

void IncomingColumn::setSummary(const LineChangeSummary &summary) {
    summaryLabel->setSummary(summary);
}

void IncomingColumn::setRange(const std::optional<QString> &description) {
    range = description.value_or(QString());
    showCounts();
}

void IncomingColumn::showCounts() {
    const int revisions = revisionRows.recordCount();
    rangeBar->setVisible(revisions > 0);
    rangeBar->setTexts(range, revisionCountText(revisions, locale()));
    outdatedBar->setTexts(tr("Out of date"), itemCountText(outdatedRows.recordCount(), locale()));
}

void IncomingColumn::setRevisionsHeight(int height) {
    chosenHeight = height;
    fit();
}

void IncomingColumn::fit() {
    showCounts();
    const bool isOutdated = outdatedRows.recordCount() > 0;
    if (!isOutdated && outdatedView->hasFocus())
        revisionList().setFocus();
    lower->setVisible(isOutdated);
    const int revisions = chosenHeight > 0 ? chosenHeight : wantedRevisionsHeight();
    parts->setSizes({revisions, std::max(0, height() - revisions)});
}

int IncomingColumn::wantedRevisionsHeight() const {
    const int rowsHeight = revisionRows.recordCount() * twoLineRowHeight(font());
    const int barsHeight = filtered->filter().parentWidget()->sizeHint().height() + rangeBar->sizeHint().height();
    return std::min(barsHeight + rowsHeight, static_cast<int>(height() * greatestPart));
}

void IncomingColumn::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    fit();
}

} // namespace kestor

#include "ui/tabs/changes_column.h"

#include "ui/list/filtered_list.h"
#include "ui/list/line_summary_label.h"
#include "ui/list/row_list_view.h"
#include "ui/look/line_splitter.h"
#include "ui/tabs/commit_panel.h"
#include "ui/tabs/tick_all_box.h"

#include <QVBoxLayout>

namespace kestor {

ChangesColumn::ChangesColumn(ChangeRows &shownRows, QWidget *parent)
    : QWidget(parent), rows(shownRows), filtered(new FilteredList(shownRows, tr("Filter changes"), tr("Changes"))),
      tickAll(new TickAllBox), summaryLabel(new LineSummaryLabel), panel(new CommitPanel),
      parts(new LineSplitter(Qt::Vertical, this)) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(parts);
    parts->addWidget(filtered);
    parts->addWidget(panel);
    parts->setStretchFactor(0, 1);
    filtered->addBeforeFilter(tickAll);
    filtered->addAfterFilter(summaryLabel);
    summaryLabel->setSummary({});
    connect(parts, &QSplitter::splitterMoved, this, [this] { chosenHeight = parts->sizes().last(); });
    connect(filtered, &FilteredList::rowsChanged, this, &ChangesColumn::updateCounts);
    connect(&list(), &RowListView::ticksRequested, this, &ChangesColumn::ticksRequested);
    connect(tickAll, &TickAllBox::requested, this, &ChangesColumn::tickAllShown);
    updateCounts();
}

RowListView &ChangesColumn::list() {
    return filtered->list();
}

void ChangesColumn::setPanelHeight(int height) {
    chosenHeight = height;
    parts->setSizes({1, height});
}

void ChangesColumn::setSummary(const LineChangeSummary &summary) {
    summaryLabel->setSummary(summary);
}

void ChangesColumn::setTickAccess(TickAccess access) {
    tickAll->setTickAccess(access);
    list().setTickAccess(access);
    panel->setTickAccess(access);
}

void ChangesColumn::updateCounts() {
    const TickCounts counts = rows.tickCounts();
    tickAll->showCounts(counts);
    panel->showCounts(counts);
}

void ChangesColumn::tickAllShown(Tick wanted) {
    QList<int> records;
    for (int row = 0; row < rows.rowCount(); ++row)
        records += rows.recordAt(row);
    emit ticksRequested(records, wanted);
}

} // namespace kestor

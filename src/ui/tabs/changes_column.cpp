#include "ui/tabs/changes_column.h"

#include "ui/list/filter_field.h"
#include "ui/list/line_summary_label.h"
#include "ui/list/row_list_view.h"
#include "ui/look/bar.h"
#include "ui/look/line_splitter.h"
#include "ui/look/metrics.h"
#include "ui/tabs/commit_panel.h"
#include "ui/tabs/tick_all_box.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace kestor {

namespace {

constexpr int smallestWidth = 280;

} // namespace

ChangesColumn::ChangesColumn(ChangeRows &shownRows, QWidget *parent)
    : QWidget(parent), rows(shownRows), tickAll(new TickAllBox), filterField(new FilterField(tr("Filter changes"))),
      summaryLabel(new LineSummaryLabel), rowList(new RowListView(shownRows)), placeholder(new Placeholder),
      panel(new CommitPanel) {
    setMinimumWidth(smallestWidth);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(bar());
    auto *parts = new LineSplitter(Qt::Vertical, this);
    parts->addWidget(body());
    parts->addWidget(panel);
    parts->setStretchFactor(0, 1);
    layout->addWidget(parts, 1);
    connect(filterField, &QLineEdit::textChanged, this, &ChangesColumn::applyFilter);
    connect(filterField, &FilterField::leaveRequested, rowList, qOverload<>(&QWidget::setFocus));
    connect(filterField, &FilterField::firstMatchRequested, this, [this] {
        rowList->setFocus();
        rowList->chooseFirst();
    });
    connect(rowList, &RowListView::filterRequested, filterField, [this] {
        filterField->setFocus(Qt::ShortcutFocusReason);
        filterField->selectAll();
    });
    connect(rowList, &RowListView::ticksRequested, this, &ChangesColumn::ticksRequested);
    connect(tickAll, &TickAllBox::requested, this, &ChangesColumn::tickAllShown);
    connect(placeholder, &Placeholder::buttonClicked, filterField, &QLineEdit::clear);
    updateCounts();
}

QWidget *ChangesColumn::bar() {
    auto *bar = new Bar(BarLine::below, this);
    bar->setFixedHeight(barHeight);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(paneEdge, 0, paneEdge, 1);
    layout->setSpacing(gap);
    layout->addWidget(tickAll);
    layout->addWidget(filterField, 1);
    layout->addWidget(summaryLabel);
    summaryLabel->setSummary({});
    return bar;
}

/// The placeholder lies upon the list, which keeps the focus below it.
QWidget *ChangesColumn::body() {
    auto *body = new QWidget(this);
    auto *layout = new QGridLayout(body);
    layout->setContentsMargins({});
    layout->addWidget(rowList, 0, 0);
    layout->addWidget(placeholder, 0, 0);
    rowList->setAccessibleName(tr("Changes"));
    return body;
}

void ChangesColumn::setSummary(const LineChangeSummary &summary) {
    summaryLabel->setSummary(summary);
}

void ChangesColumn::setTickAccess(TickAccess access) {
    tickAll->setTickAccess(access);
    rowList->setTickAccess(access);
    panel->setTickAccess(access);
}

void ChangesColumn::setEmptyText(const PlaceholderText &text) {
    emptyText = text;
    updateCounts();
}

void ChangesColumn::applyFilter(const QString &text) {
    rows.setFilter(ListFilter(text));
    updateCounts();
}

void ChangesColumn::updateCounts() {
    const TickCounts counts = rows.tickCounts();
    tickAll->showCounts(counts);
    panel->showCounts(counts);
    filterField->setCounts(rows.rowCount(), rows.recordCount());
    placeholder->setVisible(rows.rowCount() == 0);
    const QString nothing = tr("Nothing contains “%1”.").arg(filterField->text());
    placeholder->setText(rows.recordCount() == 0 ? emptyText
                                                 : PlaceholderText{tr("No Matches"), nothing, tr("Clear Filter")});
}

void ChangesColumn::tickAllShown(Tick wanted) {
    QList<int> records;
    for (int row = 0; row < rows.rowCount(); ++row)
        records += rows.recordAt(row);
    emit ticksRequested(records, wanted);
}

} // namespace kestor

#include "ui/list/filtered_list.h"

#include "ui/list/filter_field.h"
#include "ui/list/row_list_view.h"
#include "ui/look/bar.h"
#include "ui/look/control_size.h"
#include "ui/look/metrics.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <utility>

namespace kestor {

FilteredList::FilteredList(RowModel &shownRows, const QString &filterName, const QString &listName, QWidget *parent)
    : QWidget(parent), rows(shownRows), filterField(new FilterField(filterName)), rowList(new RowListView(shownRows)),
      placeholder(new Placeholder), parts(new QVBoxLayout(this)) {
    rowList->setAccessibleName(listName);
    parts->setContentsMargins({});
    parts->setSpacing(0);
    parts->addWidget(bar());
    parts->addWidget(body(), 1);
    connectParts();
    updateCounts();
}

QWidget *FilteredList::bar() {
    auto *bar = new Bar(BarLine::below, this);
    barParts = new QHBoxLayout(bar);
    barParts->setContentsMargins(paneEdge, 0, paneEdge, 1);
    barParts->setSpacing(gap);
    barParts->addWidget(filterField, 1);
    setRowHeight(*barParts, barHeight);
    return bar;
}

/// The placeholder lies upon the list, which has the focus of both.
QWidget *FilteredList::body() {
    auto *body = new QWidget(this);
    auto *layout = new QGridLayout(body);
    layout->setContentsMargins({});
    layout->addWidget(rowList, 0, 0);
    layout->addWidget(placeholder, 0, 0);
    placeholder->setFocusPolicy(Qt::ClickFocus);
    placeholder->setFocusProxy(rowList);
    return body;
}

void FilteredList::connectParts() {
    connect(filterField, &QLineEdit::textChanged, this, &FilteredList::narrow);
    connect(filterField, &FilterField::leaveRequested, rowList, qOverload<>(&QWidget::setFocus));
    connect(filterField, &FilterField::firstMatchRequested, this, &FilteredList::enterList);
    connect(filterField, &QLineEdit::returnPressed, this, &FilteredList::enterList);
    connect(rowList, &RowListView::filterRequested, this, &FilteredList::focusFilter);
    connect(placeholder, &Placeholder::buttonClicked, this, &FilteredList::clickedPlaceholder);
    connect(&rows, &RowModel::modelReset, this, &FilteredList::updateCounts);
}

/// A current row that comes back is brought into view: the rows before it that the filter left may be all that there
/// is room for.
void FilteredList::narrow(const QString &text) {
    const bool wasHidden = !rowList->currentIndex().isValid();
    rows.setFilter(ListFilter(text));
    updateCounts();
    if (wasHidden)
        rowList->scrollTo(rowList->currentIndex());
}

void FilteredList::enterList() {
    if (rows.rowCount() == 0)
        return;
    rowList->setFocus();
    rowList->chooseFirst();
}

void FilteredList::focusFilter() {
    filterField->setFocus(Qt::ShortcutFocusReason);
    filterField->selectAll();
}

void FilteredList::addBeforeFilter(QWidget *part) {
    auto *pair = new QHBoxLayout;
    pair->setSpacing(gap - smallGap);
    pair->addWidget(part);
    pair->addWidget(filterField, 1);
    barParts->insertLayout(0, pair, 1);
    barParts->setContentsMargins(paneEdge - smallGap, 0, paneEdge, 1);
    // In two steps: as the last widget of a ring the part precedes the filter already, which would change nothing.
    setTabOrder(filterField, part);
    setTabOrder(part, filterField);
}

void FilteredList::addAfterFilter(QWidget *part) {
    barParts->addWidget(part);
}

void FilteredList::addHeader(QWidget *header) {
    parts->insertWidget(parts->count() - 1, header);
}

void FilteredList::setEmptyText(const PlaceholderText &text) {
    emptyText = text;
    updateCounts();
}

void FilteredList::setExtent(ListExtent extent) {
    if (std::exchange(shownExtent, extent) != extent)
        updateCounts();
}

void FilteredList::setEmptyActionHeld(bool held) {
    emptyActionHeld = held;
    holdAction();
}

/// Clearing the filter is always possible.
void FilteredList::holdAction() {
    placeholder->setButtonHeld(emptyActionHeld && rows.recordCount() == 0);
}

void FilteredList::clickedPlaceholder() {
    if (rows.recordCount() == 0)
        return emit emptyActionRequested();
    // Before the button that has the focus is hidden.
    rowList->setFocus();
    filterField->clear();
}

void FilteredList::updateCounts() {
    filterField->setCounts(rows.rowCount(), rows.recordCount());
    placeholder->setVisible(rows.rowCount() == 0);
    const QString nothing =
        shownExtent == ListExtent::part ? tr("Nothing so far contains \"%1\".") : tr("Nothing contains \"%1\".");
    placeholder->setText(rows.recordCount() == 0
                             ? emptyText
                             : PlaceholderText{tr("No Matches"), nothing.arg(filterField->text()), tr("Clear Filter")});
    holdAction();
    emit rowsChanged();
}

} // namespace kestor

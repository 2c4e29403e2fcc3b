#include "ui/list/row_list_view.h"

#include "ui/look/focus_frame.h"

#include <QHash>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <chrono>

namespace kestor {

namespace {

constexpr std::chrono::milliseconds settleTime{60};

} // namespace

RowListView::RowListView(RowModel &shownModel, QWidget *parent)
    : QListView(parent), rows(shownModel), delegate(*new RowDelegate(shownModel, this)) {
    setUniformItemSizes(true);
    setItemDelegate(&delegate);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_Hover);
    settled.setSingleShot(true);
    settled.setInterval(settleTime);
    connect(&settled, &QTimer::timeout, this, [this] { emit rowChosen(current); });
    connect(&rows, &RowModel::modelAboutToBeReset, this, [this] { anchors = visibleAnchors(); });
    setModel(&rows);
    // After setModel: the selection model forgets its rows at a reset too, and has to come first.
    connect(&rows, &RowModel::modelReset, this, &RowListView::restore);
    applyTheme();
}

void RowListView::setCurrentId(const QString &id) {
    if (id == current && currentIndex().isValid())
        return;
    settled.stop();
    current = id;
    showCurrent();
}

/// Announces nothing and scrolls nothing.
void RowListView::showCurrent() {
    const QScopedValueRollback silence(pace, Pace::silent);
    const int row = current.isEmpty() ? -1 : rows.rowOf(current);
    setAutoScroll(false);
    if (row >= 0)
        selectionModel()->setCurrentIndex(rows.index(row), QItemSelectionModel::ClearAndSelect);
    else
        selectionModel()->clear();
    setAutoScroll(true);
}

void RowListView::setTickAccess(TickAccess wanted) {
    access = wanted;
    delegate.setTickAccess(wanted);
    viewport()->update();
}

void RowListView::chooseFirst() {
    if (rows.rowCount() > 0)
        setCurrentIndex(rows.index(0));
}

bool RowListView::chooseBeside(int distance) {
    const int outside = distance > 0 ? -1 : rows.rowCount();
    const int row = (currentIndex().isValid() ? currentIndex().row() : outside) + distance;
    if (row < 0 || row >= rows.rowCount())
        return false;
    setCurrentIndex(rows.index(row));
    return true;
}

void RowListView::currentChanged(const QModelIndex &index, const QModelIndex &previous) {
    QListView::currentChanged(index, previous);
    if (index.isValid() != previous.isValid())
        viewport()->update(); // the frame of a list without a current row comes or goes
    if (pace == Pace::silent || !index.isValid())
        return;
    current = rows.idAt(index.row());
    settled.stop();
    if (pace == Pace::settling)
        settled.start();
    else
        emit rowChosen(current);
}

QItemSelectionModel::SelectionFlags RowListView::selectionCommand(const QModelIndex &index, const QEvent *) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

/// The base class would make the first row current when none is, for example while the filter hides the current one.
void RowListView::focusInEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    viewport()->update();
    emit focused();
}

/// A row that is current shows the focus itself.
void RowListView::paintEvent(QPaintEvent *event) {
    QListView::paintEvent(event);
    if (hasFocus() && !currentIndex().isValid())
        paintFocusFrame(*viewport());
}

/// Another width may be another height of the rows. A current row that was in view remains so.
void RowListView::resizeEvent(QResizeEvent *event) {
    const bool showedCurrent = QRect(QPoint(), event->oldSize()).intersects(visualRect(currentIndex()));
    const bool sameHeight =
        delegate.rowHeight(font(), event->oldSize().width()) == delegate.rowHeight(font(), event->size().width());
    if (!sameHeight)
        anchors = visibleAnchors();
    QListView::resizeEvent(event);
    if (!sameHeight)
        restore();
    if (showedCurrent)
        scrollTo(currentIndex());
}

void RowListView::changeEvent(QEvent *event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyTheme();
}

void RowListView::applyTheme() {
    delegate.setTheme(themeFor(palette()));
    viewport()->update();
}

/// The current row first when it is in view, then the others from top to bottom.
QList<RowListView::Anchor> RowListView::visibleAnchors() const {
    QList<Anchor> visible;
    const QModelIndex top = indexAt(QPoint(0, 0));
    for (int row = top.row(); top.isValid() && row < rows.rowCount(); ++row) {
        const QRect rect = visualRect(rows.index(row));
        if (rect.top() >= viewport()->height())
            break;
        const Anchor anchor{rows.idAt(row), rect.top()};
        visible.insert(anchor.id == current ? 0 : visible.size(), anchor);
    }
    return visible;
}

/// Moves the first of the anchors that is still there to where it was. One pass over the rows for all anchors.
void RowListView::restore() {
    doItemsLayout();
    showCurrent();
    const QList<Anchor> wanted = std::exchange(anchors, {});
    QHash<QStringView, qsizetype> places;
    for (qsizetype place = 0; place < wanted.size(); ++place)
        places.insert(wanted.at(place).id, place);
    qsizetype best = wanted.size();
    int bestRow = 0;
    QString made;
    for (int row = 0; best > 0 && row < rows.rowCount(); ++row) {
        const qsizetype place = places.value(rows.idView(rows.recordAt(row), made), best);
        if (place >= best)
            continue;
        best = place;
        bestRow = row;
    }
    if (best < wanted.size())
        verticalScrollBar()->setValue(bestRow * delegate.rowHeight(font(), viewport()->width()) - wanted.at(best).top);
}

} // namespace kestor

// What keys and the mouse do in the list.

#include "ui/list/row_list_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace kestor {

void RowListView::keyboardSearch(const QString &typed) {
    if (!sinceSearch.isValid() || sinceSearch.elapsed() > QApplication::keyboardInputInterval())
        searched.clear();
    sinceSearch.restart();
    const bool sameLetterAgain = searched == typed;
    if (!sameLetterAgain)
        searched += typed;
    const int count = rows.rowCount();
    const int first = qMax(currentIndex().row(), 0) + (currentIndex().isValid() && searched.size() == 1 ? 1 : 0);
    for (int step = 0; step < count; ++step) {
        const int row = (first + step) % count;
        if (rows.searchText(rows.recordAt(row)).startsWith(searched, Qt::CaseInsensitive))
            return setCurrentIndex(rows.index(row));
    }
}

void RowListView::keyPressEvent(QKeyEvent *event) {
    if (pressedTickKey(*event) || pressedLeavingKey(*event))
        return event->accept();
    if (event->key() == Qt::Key_Escape) // the base class would search for it
        return event->ignore();
    const QScopedValueRollback wait(pace, event->isAutoRepeat() ? Pace::settling : pace);
    QListView::keyPressEvent(event);
}

bool RowListView::pressedTickKey(const QKeyEvent &event) {
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    const Qt::KeyboardModifiers others = event.modifiers() & ~Qt::ShiftModifier;
    if (event.key() == Qt::Key_Space && !others) {
        if (shift)
            tickUpTo(currentIndex().row());
        else
            toggleTick(currentIndex().row());
        return true;
    }
    if (event.key() != Qt::Key_A || others != Qt::ControlModifier)
        return false;
    requestTicks(0, rows.rowCount() - 1, shift ? Tick::unticked : Tick::ticked);
    return true;
}

bool RowListView::pressedLeavingKey(const QKeyEvent &event) {
    const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (enter && !(event.modifiers() & ~Qt::KeypadModifier)) {
        if (currentIndex().isValid())
            emit detailRequested();
        return true;
    }
    if (event.text() != u"/" && event.keyCombination() != (Qt::CTRL | Qt::Key_F))
        return false;
    emit filterRequested();
    return true;
}

void RowListView::mousePressEvent(QMouseEvent *event) {
    ticking = pressedTickBox(*event);
    if (!ticking)
        QListView::mousePressEvent(event);
}

void RowListView::mouseDoubleClickEvent(QMouseEvent *event) {
    if (!pressedTickBox(*event))
        QListView::mouseDoubleClickEvent(event);
}

/// The base class makes the row under a held button current, also when a tick box was pressed.
void RowListView::mouseMoveEvent(QMouseEvent *event) {
    if (ticking)
        return;
    const QScopedValueRollback wait(pace, Pace::settling);
    QListView::mouseMoveEvent(event);
}

void RowListView::mouseReleaseEvent(QMouseEvent *event) {
    ticking = false;
    QListView::mouseReleaseEvent(event);
}

bool RowListView::pressedTickBox(const QMouseEvent &event) {
    const QModelIndex index = indexAt(event.position().toPoint());
    if (event.button() != Qt::LeftButton || !index.isValid() ||
        !RowDelegate::isAtTickBox(event.position().toPoint().x()))
        return false;
    const Tick tick = rows.tickOf(rows.recordAt(index.row()));
    if (tick == Tick::noColumn || tick == Tick::none)
        return false;
    if (event.modifiers() & Qt::ShiftModifier)
        tickUpTo(index.row());
    else
        toggleTick(index.row());
    return true;
}

void RowListView::toggleTick(int row) {
    if (row < 0)
        return;
    const Tick tick = rows.tickOf(rows.recordAt(row));
    if (tick == Tick::noColumn || tick == Tick::none)
        return;
    requestTicks(row, row, tick == Tick::ticked ? Tick::unticked : Tick::ticked);
    if (tick == Tick::unticked)
        lastTicked = rows.idAt(row);
}

void RowListView::tickUpTo(int row) {
    if (row < 0)
        return;
    const int anchor = lastTicked.isEmpty() ? -1 : rows.rowOf(lastTicked);
    const int from = anchor < 0 ? row : anchor;
    requestTicks(qMin(from, row), qMax(from, row), Tick::ticked);
    lastTicked = rows.idAt(row);
}

void RowListView::requestTicks(int firstRow, int lastRow, Tick wanted) {
    if (access != TickAccess::editable || lastRow < firstRow)
        return;
    QList<int> records;
    for (int row = firstRow; row <= lastRow; ++row)
        records += rows.recordAt(row);
    emit ticksRequested(records, wanted);
}

void RowListView::contextMenuEvent(QContextMenuEvent *event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid())
        return;
    if (byKey)
        scrollTo(index);
    const QPoint position = byKey ? viewport()->mapToGlobal(visualRect(index).bottomLeft()) : event->globalPos();
    emit rowMenuRequested(index.row(), position);
}

} // namespace kestor

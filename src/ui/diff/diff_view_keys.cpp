// The part of DiffView that answers the keyboard.

#include "ui/diff/diff_view.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace kestor {

namespace {

struct SelectionKey {
    QKeySequence::StandardKey key;
    CaretStep step;
    CaretDirection direction;
};

constexpr SelectionKey selectionKeys[] = {
    {QKeySequence::SelectNextChar, CaretStep::character, CaretDirection::ahead},
    {QKeySequence::SelectPreviousChar, CaretStep::character, CaretDirection::back},
    {QKeySequence::SelectNextWord, CaretStep::word, CaretDirection::ahead},
    {QKeySequence::SelectPreviousWord, CaretStep::word, CaretDirection::back},
    {QKeySequence::SelectNextLine, CaretStep::line, CaretDirection::ahead},
    {QKeySequence::SelectPreviousLine, CaretStep::line, CaretDirection::back},
    {QKeySequence::SelectEndOfLine, CaretStep::lineEdge, CaretDirection::ahead},
    {QKeySequence::SelectStartOfLine, CaretStep::lineEdge, CaretDirection::back},
    {QKeySequence::SelectNextPage, CaretStep::page, CaretDirection::ahead},
    {QKeySequence::SelectPreviousPage, CaretStep::page, CaretDirection::back},
    {QKeySequence::SelectEndOfDocument, CaretStep::textEdge, CaretDirection::ahead},
    {QKeySequence::SelectStartOfDocument, CaretStep::textEdge, CaretDirection::back},
};

struct ScrollKey {
    int key;
    Qt::KeyboardModifiers modifiers;
    Qt::Orientation orientation;
    QAbstractSlider::SliderAction action;
};

constexpr ScrollKey scrollKeys[] = {
    {Qt::Key_Up, Qt::NoModifier, Qt::Vertical, QAbstractSlider::SliderSingleStepSub},
    {Qt::Key_Down, Qt::NoModifier, Qt::Vertical, QAbstractSlider::SliderSingleStepAdd},
    {Qt::Key_Left, Qt::NoModifier, Qt::Horizontal, QAbstractSlider::SliderSingleStepSub},
    {Qt::Key_Right, Qt::NoModifier, Qt::Horizontal, QAbstractSlider::SliderSingleStepAdd},
    {Qt::Key_PageUp, Qt::NoModifier, Qt::Vertical, QAbstractSlider::SliderPageStepSub},
    {Qt::Key_PageDown, Qt::NoModifier, Qt::Vertical, QAbstractSlider::SliderPageStepAdd},
    {Qt::Key_Space, Qt::ShiftModifier, Qt::Vertical, QAbstractSlider::SliderPageStepSub},
    {Qt::Key_Space, Qt::NoModifier, Qt::Vertical, QAbstractSlider::SliderPageStepAdd},
    {Qt::Key_Home, Qt::NoModifier, Qt::Vertical, QAbstractSlider::SliderToMinimum},
    {Qt::Key_End, Qt::NoModifier, Qt::Vertical, QAbstractSlider::SliderToMaximum},
};

const SelectionKey *selectionKey(QKeyEvent *event) {
    const auto *found =
        std::ranges::find_if(selectionKeys, [event](const SelectionKey &key) { return event->matches(key.key); });
    return found == std::end(selectionKeys) ? nullptr : found;
}

const ScrollKey *scrollKey(const QKeyEvent &event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const auto *found = std::ranges::find_if(
        scrollKeys, [&](const ScrollKey &key) { return key.key == event.key() && key.modifiers == modifiers; });
    return found == std::end(scrollKeys) ? nullptr : found;
}

bool isPlainLetter(const QKeyEvent &event) {
    return event.modifiers() == Qt::NoModifier && (event.key() == Qt::Key_N || event.key() == Qt::Key_P);
}

} // namespace

/// The view's own keys come before shortcuts of the window.
bool DiffView::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto *const key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::SelectAll) || selectionKey(key) ||
            scrollKey(*key) || isPlainLetter(*key)) {
            event->accept();
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

void DiffView::keyPressEvent(QKeyEvent *event) {
    if (!keySelects(event) && !keyScrolls(event) && !keyCommands(event))
        event->ignore();
}

bool DiffView::keySelects(QKeyEvent *event) {
    const SelectionKey *const key = selectionKey(event);
    if (!key)
        return false;
    extendSelection(key->step, key->direction);
    return true;
}

/// Without a caret the selection begins with the line at the top of the view.
void DiffView::extendSelection(CaretStep step, CaretDirection direction) {
    if (shown->lineCount == 0)
        return;
    TextSelection selection;
    if (selected) {
        selection = *selected;
    } else {
        selection.anchor = selection.caret = positionAt(QPoint(measures.textLeft, coveredHeight()));
    }
    const qint64 pageLines = std::max(1, viewport()->height() / measures.rows.line - 1);
    selection.caret = stepped(*shown, selection.caret, step, direction, pageLines);
    setSelection(selection);
    showCaret();
}

bool DiffView::keyScrolls(QKeyEvent *event) {
    const ScrollKey *const key = scrollKey(*event);
    if (!key)
        return false;
    (key->orientation == Qt::Vertical ? verticalScrollBar() : horizontalScrollBar())->triggerAction(key->action);
    return true;
}

bool DiffView::keyCommands(QKeyEvent *event) {
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        return true;
    }
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
        return true;
    }
    if ((event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (event->key()) {
    case Qt::Key_N:
        stepHunkByKey(CaretDirection::ahead);
        return true;
    case Qt::Key_P:
        stepHunkByKey(CaretDirection::back);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (rowIndex.hasFileHeads())
            toggleFold(currentFile());
        return rowIndex.hasFileHeads();
    case Qt::Key_Escape:
        emit leaveRequested();
        return true;
    default:
        return false;
    }
}

} // namespace kestor

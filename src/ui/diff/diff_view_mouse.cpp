// The part of DiffView that answers the mouse.

#include "ui/diff/diff_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace kestor {

namespace {

constexpr int autoScrollMilliseconds = 30;
constexpr qint64 mostPrimaryLines = 20'000;

/// How far `value` lies outside of 0 to `end`, with its sign.
int distanceOutside(int value, int end) {
    return value < 0 ? value : std::max(0, value - end);
}

} // namespace

TextPosition DiffView::positionAt(const QPoint &point) const {
    const qint64 y = scrollTop() + point.y();
    const qint64 rowNumber = rowIndex.rowAt(y);
    if (rowNumber < 0 || shown->lineCount == 0)
        return {};
    if (y >= rowIndex.height())
        return wholeText(*shown).end();
    const DiffRow row = rowIndex.at(rowNumber);
    if (row.kind == DiffRowKind::hunkHead)
        return {std::min(rowIndex.hunk(row.hunk).firstLine, shown->lineCount - 1), 0};
    if (row.kind != DiffRowKind::line)
        return {std::min(rowIndex.firstLine(row.file), shown->lineCount - 1), 0};
    const int indent = shown->isError(row.line) ? errorIndent : 0;
    const double x = point.x() + horizontalScrollBar()->value() - measures.textLeft - indent;
    const auto column = std::max<qint64>(0, std::llround(x / measures.advance));
    return {row.line, shown->longLines.positionAt(shown->lineText(row.line), column).index};
}

std::optional<qint64> DiffView::fileHeadAt(const QPoint &point) const {
    const auto sticky = stickyHead(rowIndex, measures, scrollTop());
    if (sticky && point.y() < sticky->top + measures.rows.fileHead)
        return sticky->file;
    const qint64 row = rowIndex.rowAt(scrollTop() + point.y());
    if (row < 0 || scrollTop() + point.y() >= rowIndex.height())
        return std::nullopt;
    const DiffRow shownRow = rowIndex.at(row);
    return shownRow.kind == DiffRowKind::fileHead ? std::optional(shownRow.file) : std::nullopt;
}

void DiffView::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton)
        return;
    const QPoint point = event->position().toPoint();
    if (const auto file = fileHeadAt(point)) {
        toggleFold(*file);
        return;
    }
    if (shown->lineCount == 0)
        return;
    const TextPosition place = positionAt(point);
    const bool extends = event->modifiers().testFlag(Qt::ShiftModifier) && selected;
    dragging = true;
    setSelection({extends ? selected->anchor : place, place});
}

void DiffView::mouseMoveEvent(QMouseEvent *event) {
    const QPoint point = event->position().toPoint();
    if (!dragging) {
        setPointerShape(point);
        return;
    }
    dragTo(point);
    if (viewport()->rect().contains(point)) {
        autoScroll.stop();
    } else if (!autoScroll.isActive()) {
        autoScroll.start(autoScrollMilliseconds, this);
    }
}

void DiffView::dragTo(const QPoint &point) {
    dragPoint = point;
    const QRect area = viewport()->rect();
    const QPoint inside(std::clamp(point.x(), area.left(), area.right()),
                        std::clamp(point.y(), area.top() + coveredHeight(), std::max(coveredHeight(), area.bottom())));
    setSelection({selected->anchor, positionAt(inside)});
}

void DiffView::timerEvent(QTimerEvent *event) {
    if (event->timerId() != autoScroll.timerId()) {
        QAbstractScrollArea::timerEvent(event);
        return;
    }
    QScrollBar *const down = verticalScrollBar();
    QScrollBar *const right = horizontalScrollBar();
    down->setValue(down->value() + distanceOutside(dragPoint.y(), viewport()->height()));
    right->setValue(right->value() + distanceOutside(dragPoint.x(), viewport()->width()));
    dragTo(dragPoint);
}

void DiffView::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton || !dragging)
        return;
    dragging = false;
    autoScroll.stop();
    QClipboard *const clipboard = QGuiApplication::clipboard();
    const bool isShort = selected->end().line - selected->begin().line <= mostPrimaryLines;
    if (clipboard->supportsSelection() && hasSelectedText() && isShort)
        clipboard->setText(selectedText(*shown, *selected), QClipboard::Selection);
}

void DiffView::mouseDoubleClickEvent(QMouseEvent *event) {
    const QPoint point = event->position().toPoint();
    if (event->button() != Qt::LeftButton || shown->lineCount == 0)
        return;
    if (fileHeadAt(point)) {
        mousePressEvent(event);
    } else {
        setSelection(wordAt(*shown, positionAt(point)));
    }
}

void DiffView::setPointerShape(const QPoint &point) {
    if (fileHeadAt(point)) {
        viewport()->setCursor(Qt::PointingHandCursor);
    } else {
        viewport()->setCursor(point.x() < measures.textLeft && measures.hasGutters() ? Qt::ArrowCursor
                                                                                     : Qt::IBeamCursor);
    }
}

} // namespace kestor

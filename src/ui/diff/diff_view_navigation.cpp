// The part of DiffView that scrolls and that knows which hunk and file are current.

#include "ui/diff/accessible_diff.h"
#include "ui/diff/diff_view.h"

#include <QScrollBar>

#include <algorithm>
#include <limits>

namespace kestor {

qint64 DiffView::scrollTop() const {
    return verticalScrollBar()->value();
}

void DiffView::scrollTo(qint64 y) {
    verticalScrollBar()->setValue(static_cast<int>(std::clamp<qint64>(y, 0, std::numeric_limits<int>::max())));
}

std::pair<qint64, qint64> DiffView::topLine() const {
    for (qint64 row = rowIndex.rowAt(scrollTop()); row >= 0 && row < rowIndex.count(); ++row) {
        const qint64 line = rowIndex.at(row).line;
        if (line >= 0)
            return {line, scrollTop() - rowIndex.top(row)};
    }
    return {-1, 0};
}

/// How much of the viewport a file head covers that stays at the top.
int DiffView::coveredHeight() const {
    return rowIndex.hasFileHeads() ? measures.rows.fileHead : 0;
}

bool DiffView::isInView(qint64 hunkIndex) const {
    const qint64 top = scrollTop() + coveredHeight();
    return rowIndex.top(rowIndex.rowOfHunk(hunkIndex)) < scrollTop() + viewport()->height() &&
           rowIndex.top(rowIndex.endOfHunk(hunkIndex)) > top;
}

void DiffView::setCurrentHunk(qint64 hunkIndex, qint64 newHeadedFile) {
    headedFile = newHeadedFile;
    hunk = hunkIndex;
    viewport()->update();
    announceCaret(*this);
    emit currentHunkChanged();
}

/// Scrolls as little as possible to show all of a hunk; one that does not fit begins at the top.
void DiffView::showHunk(qint64 hunkIndex) {
    const qint64 top = rowIndex.top(rowIndex.rowOfHunk(hunkIndex));
    const qint64 end = rowIndex.top(rowIndex.endOfHunk(hunkIndex));
    if (top < scrollTop() + coveredHeight() || end > scrollTop() + viewport()->height())
        scrollTo(top - coveredHeight());
}

/// The current hunk stays current while any of it is in view.
void DiffView::followScroll() {
    if (hunk < 0 || isInView(hunk))
        return;
    const qint64 row = rowIndex.rowAt(scrollTop() + coveredHeight());
    setCurrentHunk(rowIndex.hunkNear(row));
}

qint64 DiffView::currentFile() const {
    if (headedFile >= 0)
        return headedFile;
    return hunk < 0 ? -1 : rowIndex.fileOfHunk(hunk);
}

StepResult DiffView::stepHunk(CaretDirection direction) {
    const auto step = static_cast<qint64>(direction);
    qint64 next = hunk + step;
    if (headedFile >= 0)
        next = rowIndex.firstHunk(headedFile) - (direction == CaretDirection::back ? 1 : 0);
    while (next >= 0 && next < shown->hunkCount && rowIndex.isFolded(rowIndex.fileOfHunk(next)))
        next += step;
    if (next < 0)
        return StepResult::outside;
    if (next >= shown->hunkCount)
        return shown->part == DocumentPart::first ? StepResult::waiting : StepResult::outside;
    showHunk(next);
    setCurrentHunk(next);
    return StepResult::moved;
}

void DiffView::showLastHunk() {
    if (shown->hunkCount == 0)
        return;
    showHunk(shown->hunkCount - 1);
    setCurrentHunk(shown->hunkCount - 1);
}

StepResult DiffView::stepFile(CaretDirection direction) {
    const qint64 next = currentFile() + static_cast<qint64>(direction);
    if (!rowIndex.hasFileHeads() || next < 0)
        return StepResult::outside;
    if (next >= shown->diff.files.size())
        return shown->part == DocumentPart::first ? StepResult::waiting : StepResult::outside;
    scrollTo(rowIndex.top(rowIndex.rowOfFile(next)));
    setCurrentHunk(rowIndex.hunkNear(rowIndex.rowOfFile(next)), next);
    return StepResult::moved;
}

void DiffView::stepHunkByKey(CaretDirection direction) {
    if (stepHunk(direction) == StepResult::outside)
        emit hunksEnded(direction);
}

void DiffView::toggleFold(qint64 file) {
    const QString path = shown->diff.files[file].displayPath();
    if (!folded.remove(path))
        folded.insert(path);
    const qint64 headTop = rowIndex.top(rowIndex.rowOfFile(file));
    const qint64 shift = std::max<qint64>(0, headTop - scrollTop());
    rebuildRows();
    scrollTo(rowIndex.top(rowIndex.rowOfFile(file)) - shift);
    setCurrentHunk(rowIndex.hunkNear(rowIndex.rowOfFile(file)), file);
}

/// Scrolls until the caret is in view, one column beside the edge.
void DiffView::showCaret() {
    const TextPosition caret = selected->caret;
    const qint64 row = rowIndex.rowOfLine(caret.line);
    const qint64 top = rowIndex.top(row);
    if (top < scrollTop() + coveredHeight()) {
        scrollTo(top - coveredHeight());
    } else if (top + rowIndex.rowHeight(row) > scrollTop() + viewport()->height()) {
        scrollTo(top + rowIndex.rowHeight(row) - viewport()->height());
    }
    const auto column = static_cast<double>(shown->longLines.columnOf(shown->lineText(caret.line), caret.index));
    const auto x = static_cast<int>(column * measures.advance) + (shown->isError(caret.line) ? errorIndent : 0);
    const auto margin = static_cast<int>(measures.advance);
    QScrollBar *const bar = horizontalScrollBar();
    if (x < bar->value()) {
        bar->setValue(x - margin);
    } else if (x > bar->value() + viewport()->width() - measures.textLeft - margin) {
        bar->setValue(x - viewport()->width() + measures.textLeft + 2 * margin);
    }
}

} // namespace kestor

#include "ui/diff/diff_view.h"

#include "ui/diff/accessible_diff.h"
#include "ui/diff/diff_ruler.h"
#include "ui/look/focus_frame.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QtConcurrentRun>

#include <algorithm>
#include <limits>

namespace kestor {

namespace {

constexpr qint64 linesCopiedAtOnce = 20'000;

int clampedToInt(qint64 value) {
    return static_cast<int>(std::clamp<qint64>(value, 0, std::numeric_limits<int>::max()));
}

} // namespace

DiffView::DiffView(QWidget *parent)
    : QAbstractScrollArea(parent), shown(std::make_shared<const DiffDocument>()), theme(themeFor(palette())),
      colors(theme), ruler(new DiffRuler(this)) {
    installDiffAccessibility();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    ruler->setTheme(theme);
    connect(ruler, &DiffRuler::jumpRequested, this, [this](qint64 y) { scrollTo(y - viewport()->height() / 2); });
    connect(&looks, &LineLooks::changed, viewport(), qOverload<>(&QWidget::update));
    rebuildRows();
}

void DiffView::setDocument(DiffDocumentPtr newDocument, DocumentChange change) {
    const auto [line, offset] = topLine();
    shown = std::move(newDocument);
    forgetFor(change);
    rebuildRows();
    looks.setDocument(shown);
    if (change == DocumentChange::otherSubject) {
        showBeginning();
    } else if (change == DocumentChange::completed && scrollTop() > 0 && line >= 0) {
        scrollTo(rowIndex.top(rowIndex.rowOfLine(line)) + offset);
    }
    if (hunk < 0)
        hunk = rowIndex.hunkNear(0);
    followScroll();
    emit currentHunkChanged();
    emit selectionChanged();
}

/// Gives up what the new document does not share with the one before.
void DiffView::forgetFor(DocumentChange change) {
    hunk = std::min(hunk, shown->hunkCount - 1);
    if (change == DocumentChange::completed) {
        largestNumber = std::max(largestNumber, shown->largestNumber);
        return;
    }
    largestNumber = shown->largestNumber;
    selected.reset();
    dragging = false;
    autoScroll.stop();
    headedFile = -1;
    if (change == DocumentChange::sameSubject)
        return;
    folded.clear();
    hunk = -1;
}

void DiffView::showBeginning() {
    horizontalScrollBar()->setValue(0);
    scrollTo(0);
    if (shown->hunkCount == 0)
        return;
    setCurrentHunk(0);
    if (!isInView(0))
        showHunk(0);
}

/// The rows and everything that follows from their heights. The first fixed font costs milliseconds of a start, in
/// which nothing is shown yet.
void DiffView::rebuildRows() {
    if (isVisible() || shown->lineCount > 0 || !shown->isPlain())
        measures = diffMetrics(*shown, largestNumber, font(), textSizeDelta);
    rowIndex = DiffRows(shown, measures.rows, folded);
    ruler->setVisible(!shown->isPlain());
    setViewportMargins(0, 0, shown->isPlain() ? 0 : DiffRuler::stripWidth, 0);
    updateGeometries();
    viewport()->update();
}

void DiffView::updateGeometries() {
    const int height = viewport()->height();
    verticalScrollBar()->setRange(0, clampedToInt(rowIndex.height() - height));
    verticalScrollBar()->setPageStep(std::max(measures.rows.line, height - measures.rows.line - coveredHeight()));
    verticalScrollBar()->setSingleStep(measures.rows.line);
    const double columns = static_cast<double>(shown->widestLine) + 1;
    const int indent = shown->errorHeading < 0 ? 0 : errorIndent;
    const auto contentWidth = static_cast<qint64>(measures.textLeft + indent + columns * measures.advance);
    horizontalScrollBar()->setRange(0, clampedToInt(contentWidth - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(static_cast<int>(4 * measures.advance));
    placeRuler();
    updateRulerMarks();
}

void DiffView::placeRuler() {
    const QRect area = viewport()->geometry();
    ruler->setGeometry(area.right() + 1, area.top(), DiffRuler::stripWidth, area.height());
}

void DiffView::updateRulerMarks() {
    const int height = ruler->height();
    if (!shown->isPlain())
        ruler->setMarks(rulerMarks(*shown, rowIndex, height), rulerScale(rowIndex, height));
    ruler->setView(scrollTop(), viewport()->height());
}

void DiffView::prepareLooks() {
    const qint64 last = rowIndex.rowAt(scrollTop() + viewport()->height());
    looks.prepare(rowIndex.rowAt(scrollTop()), last + 1);
}

DiffScene DiffView::scene() {
    const bool hunkHidden = hunk >= 0 && rowIndex.isFolded(rowIndex.fileOfHunk(hunk));
    return {.document = *shown,
            .rows = rowIndex,
            .metrics = measures,
            .theme = theme,
            .looks = looks,
            .colors = colors,
            .size = viewport()->size(),
            .scrolled = {horizontalScrollBar()->value(), verticalScrollBar()->value()},
            .selection = selected,
            .currentHunk = headedFile < 0 ? hunk : -1,
            .currentFile = headedFile < 0 && !hunkHidden ? -1 : currentFile(),
            .tint = plainTint,
            .focus = hasFocus() ? DiffFocus::focused : DiffFocus::none};
}

void DiffView::paintEvent(QPaintEvent *event) {
    prepareLooks();
    QPainter painter(viewport());
    paintDiff(painter, scene(), event->rect());
    painter.end();
    if (hasFocus())
        paintFocusFrame(*viewport());
}

void DiffView::resizeEvent(QResizeEvent *event) {
    QAbstractScrollArea::resizeEvent(event);
    updateGeometries();
}

void DiffView::showEvent(QShowEvent *event) {
    QAbstractScrollArea::showEvent(event);
    if (!measures.isMade())
        rebuildRows();
    checkSyntaxFiles();
}

void DiffView::changeEvent(QEvent *event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        rebuildRows();
    if (event->type() != QEvent::PaletteChange)
        return;
    theme = themeFor(palette());
    colors = SyntaxColors(theme);
    ruler->setTheme(theme);
    viewport()->update();
}

void DiffView::focusInEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void DiffView::focusOutEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void DiffView::scrollContentsBy(int, int) {
    ruler->setView(scrollTop(), viewport()->height());
    headedFile = -1;
    followScroll();
    viewport()->update();
}

void DiffView::setTextSizeDelta(int delta) {
    if (delta == textSizeDelta)
        return;
    const auto [line, offset] = topLine();
    textSizeDelta = delta;
    rebuildRows();
    if (scrollTop() > 0 && line >= 0)
        scrollTo(rowIndex.top(rowIndex.rowOfLine(line)));
}

void DiffView::setPlainTint(PlainTint tint) {
    plainTint = tint;
    viewport()->update();
}

void DiffView::setSelection(const TextSelection &selection) {
    selected = selection;
    viewport()->update();
    emit selectionChanged();
    announceCaret(*this);
}

void DiffView::selectAll() {
    if (shown->lineCount > 0)
        setSelection(wholeText(*shown));
}

void DiffView::copySelection() {
    if (!hasSelectedText())
        return;
    const auto copied = [document = shown, selection = *selected] {
        return selectedText(*document, selection);
    };
    const auto toClipboard = [](const QString &text) {
        QGuiApplication::clipboard()->setText(text);
    };
    if (selected->end().line - selected->begin().line <= linesCopiedAtOnce) {
        toClipboard(copied());
    } else {
        QtConcurrent::run(copied).then(this, toClipboard);
    }
}

void DiffView::copyPrinted() const {
    QGuiApplication::clipboard()->setText(shown->printed);
}

int DiffView::naturalHeight() const {
    const int bar = horizontalScrollBar()->maximum() > 0 ? horizontalScrollBar()->sizeHint().height() : 0;
    return clampedToInt(rowIndex.height()) + bar;
}

} // namespace kestor

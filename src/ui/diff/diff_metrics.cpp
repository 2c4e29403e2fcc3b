#include "ui/diff/diff_metrics.h"

#include "ui/look/metrics.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace kestor {

namespace {

constexpr int smallestGutter = 44;
constexpr int plainMargin = 8;
constexpr int measuredColumns = 64;

QFont fixedFont(int sizeDelta) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(std::max(10, QFontInfo(font).pixelSize() + sizeDelta));
    font.setStyleHint(QFont::Monospace);
    return font;
}

/// Averaged over a long text, since a single glyph's advance may be rounded.
double columnAdvance(const QFont &font) {
    return QFontMetricsF(font).horizontalAdvance(QString(measuredColumns, u'0')) / measuredColumns;
}

int gutterWidth(qint64 largestNumber, const QFont &numberFont) {
    const double digits = QFontMetricsF(numberFont).horizontalAdvance(QString::number(largestNumber));
    return std::max(smallestGutter, static_cast<int>(std::ceil(digits)) + 2 * gap);
}

RowHeights rowHeights(const DiffMetrics &metrics, const QFont &uiFont) {
    const int textHeight = QFontMetrics(metrics.text).height();
    return {.line = std::max(20, textHeight + 4),
            .hunkHead = std::max(24, textHeight + 8),
            .fileHead = std::max(32, QFontMetrics(uiFont).height() + 14),
            .margin = metrics.hasGutters() ? 0 : plainMargin};
}

} // namespace

int DiffMetrics::baseline(const QFont &font, int rowTop, int rowHeight) {
    const QFontMetrics measures(font);
    return rowTop + (rowHeight - measures.height() + 1) / 2 + measures.ascent();
}

DiffMetrics diffMetrics(const DiffDocument &document, qint64 largestNumber, const QFont &uiFont, int sizeDelta) {
    DiffMetrics metrics;
    metrics.text = fixedFont(sizeDelta);
    metrics.marker = boldFont(metrics.text);
    metrics.note = metrics.text;
    metrics.note.setItalic(true);
    metrics.number = smallFont(metrics.text);
    metrics.uiFont = uiFont;
    metrics.errorHeading = smallFont(uiFont);
    metrics.advance = columnAdvance(metrics.text);
    metrics.digitAdvance = columnAdvance(metrics.number);
    metrics.textGlyphs = {metrics.text, metrics.advance};
    metrics.numberGlyphs = {metrics.number, metrics.digitAdvance};
    metrics.gutterWidth = document.isPlain() ? 0 : gutterWidth(largestNumber, metrics.number);
    metrics.textLeft = document.isPlain() ? paneEdge : 2 * metrics.gutterWidth + 1 + markerWidth;
    metrics.rows = rowHeights(metrics, uiFont);
    return metrics;
}

} // namespace kestor

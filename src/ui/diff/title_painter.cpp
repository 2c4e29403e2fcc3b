#include "ui/diff/title_painter.h"

#include "ui/diff/diff_metrics.h"
#include "ui/look/badge.h"
#include "ui/look/counts_text.h"
#include "ui/look/elided_path.h"
#include "ui/look/metrics.h"

#include <QFontMetricsF>
#include <QPainter>

namespace kestor {

namespace {

/// Draws `text` from `x` on and returns where the next part begins.
double drawPart(QPainter &painter, double x, const QRect &area, const QString &text, const QColor &color) {
    painter.setPen(color);
    painter.drawText(QPointF(x, DiffMetrics::baseline(painter.font(), area.top(), area.height())), text);
    return x + QFontMetricsF(painter.font()).horizontalAdvance(text) + gap;
}

double drawBadge(QPainter &painter, const QRect &area, const WorkingCopyItem &item, const Theme &theme) {
    const int top = area.top() + (area.height() - badgeSide) / 2;
    const QRectF place(area.left(), top, badgeSide, badgeSide);
    paintBadge(painter, place, badgeFor(item, theme), theme);
    return place.right() + gap;
}

double countsWidth(const CountsText &counts, const QFont &font) {
    const QFontMetricsF measures(font);
    return measures.horizontalAdvance(counts.additions) + measures.horizontalAdvance(counts.deletions) + 2 * gap;
}

} // namespace

void paintTitle(QPainter &painter, const QRect &area, const DiffTitle &title, const QFont &font, const Theme &theme) {
    double x = area.left();
    if (title.badge)
        x = drawBadge(painter, area, *title.badge, theme);
    const CountsText counts = countsText(title.changes.value_or(LineChangeSummary()));
    const double room = area.right() + 1 - x - (title.changes ? countsWidth(counts, font) : 0);
    const QFontMetricsF measures(boldFont(font));
    const ElidedPath path =
        elidedPath(title.path, room, [&](const QString &text) { return measures.horizontalAdvance(text); });
    painter.setFont(boldFont(font));
    x = drawPart(painter, x, area, path.folder + path.name, theme.text);
    if (!title.changes)
        return;
    painter.setFont(font);
    x = drawPart(painter, x, area, counts.additions, theme.addText);
    drawPart(painter, x, area, counts.deletions, theme.delText);
}

} // namespace kestor

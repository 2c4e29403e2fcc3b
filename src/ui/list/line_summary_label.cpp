#include "ui/list/line_summary_label.h"

#include "ui/look/counts_text.h"
#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QLocale>
#include <QPainter>

namespace kestor {

void LineSummaryLabel::setSummary(const LineChangeSummary &wanted) {
    summary = wanted;
    setAccessibleName(
        tr("%1 added, %2 removed").arg(locale().toString(summary.additions), locale().toString(summary.deletions)));
    setVisible(summary != LineChangeSummary{});
    updateGeometry();
    update();
}

QSize LineSummaryLabel::sizeHint() const {
    const CountsText counts = countsText(summary);
    const QFontMetrics measures = fontMetrics();
    return {measures.horizontalAdvance(counts.additions) + gap + measures.horizontalAdvance(counts.deletions),
            measures.height()};
}

void LineSummaryLabel::paintEvent(QPaintEvent *) {
    const CountsText counts = countsText(summary);
    const Theme theme = themeFor(palette());
    QPainter painter(this);
    painter.setPen(theme.addText);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, counts.additions);
    painter.setPen(theme.delText);
    painter.drawText(rect(), Qt::AlignRight | Qt::AlignVCenter, counts.deletions);
}

} // namespace kestor

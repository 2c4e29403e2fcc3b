#include "ui/list/line_summary_label.h"

#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QLocale>
#include <QPainter>

namespace kestor {

QString additionsText(qint64 additions, const QLocale &locale) {
    return u'+' + locale.toString(additions);
}

QString deletionsText(qint64 deletions, const QLocale &locale) {
    return QChar(u'\u2212') + locale.toString(deletions);
}

void LineSummaryLabel::setSummary(const LineChangeSummary &wanted) {
    summary = wanted;
    setAccessibleName(
        tr("%1 added, %2 removed").arg(locale().toString(summary.additions), locale().toString(summary.deletions)));
    setVisible(summary != LineChangeSummary{});
    updateGeometry();
    update();
}

QSize LineSummaryLabel::sizeHint() const {
    const int additions = fontMetrics().horizontalAdvance(additionsText(summary.additions, locale()));
    const int deletions = fontMetrics().horizontalAdvance(deletionsText(summary.deletions, locale()));
    return {additions + gap + deletions, fontMetrics().height()};
}

void LineSummaryLabel::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    QPainter painter(this);
    painter.setPen(theme.addText);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, additionsText(summary.additions, locale()));
    painter.setPen(theme.delText);
    painter.drawText(rect(), Qt::AlignRight | Qt::AlignVCenter, deletionsText(summary.deletions, locale()));
}

} // namespace kestor

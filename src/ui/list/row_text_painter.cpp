#include "ui/list/row_text_painter.h"

#include "ui/look/elided_path.h"
#include "ui/look/metrics.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace kestor {

namespace {

const QColor &colorOf(RunRole role, const Theme &theme) {
    switch (role) {
    case RunRole::folder:
        return theme.muted;
    case RunRole::match:
        return theme.accentInk;
    case RunRole::name:
        break;
    }
    return theme.text;
}

} // namespace

double RowTextPainter::width(const QString &text, const QFont &font) const {
    const QFontMetricsF plain(font);
    if (filter.isEmpty())
        return plain.horizontalAdvance(text);
    const QFontMetricsF bold(boldFont(font));
    double sum = 0;
    for (const TextRun &run : pathRuns({QString(), text}, filter))
        sum += (run.role == RunRole::match ? bold : plain).horizontalAdvance(run.text);
    return sum;
}

void RowTextPainter::paintPath(const QRect &rect, const QString &path, const QFont &font) {
    const auto textWidth = [this, &font](const QString &text) {
        return width(text, font);
    };
    paintRuns(rect, pathRuns(elidedPath(path, rect.width(), textWidth), filter), font, RunRole::name);
}

int RowTextPainter::paintText(const QRect &rect, const QString &text, const QFont &font, RunRole role,
                              Qt::TextElideMode mode) {
    const QString shown = QFontMetricsF(font).elidedText(text, mode, qMax(0, rect.width()));
    return paintRuns(rect, pathRuns({QString(), shown}, filter), font, role);
}

int RowTextPainter::paintAtRight(const QRect &rect, const QString &text, const QFont &font, RunRole role) {
    const int taken = static_cast<int>(std::ceil(width(text, font)));
    return paintRuns(rect.adjusted(rect.width() - taken, 0, 0, 0), pathRuns({QString(), text}, filter), font, role);
}

int RowTextPainter::paintRuns(const QRect &rect, const QList<TextRun> &runs, const QFont &font, RunRole plainRole) {
    QRectF place(rect);
    for (const TextRun &run : runs) {
        const QFont used = run.role == RunRole::match ? boldFont(font) : font;
        painter.setFont(used);
        painter.setPen(colorOf(run.role == RunRole::name ? plainRole : run.role, theme));
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, run.text);
        place.setLeft(place.left() + QFontMetricsF(used).horizontalAdvance(run.text));
    }
    return static_cast<int>(std::ceil(place.left() - rect.left()));
}

} // namespace kestor

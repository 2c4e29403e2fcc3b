#include "ui/diff/line_painter.h"

#include <QPainter>
#include <QString>

#include <algorithm>
#include <cmath>

namespace kestor {

namespace {

/// Collects neighbouring characters that can be drawn together and draws them where the first one stands.
class RunPainter {
public:
    RunPainter(QPainter &target, const ColumnView &columns, const TextStretch &look, int baselineY)
        : painter(target), view(columns), stretch(look), baseline(baselineY), part(look.parts.begin()) {
        painter.setFont(stretch.font);
    }

    /// Cells come from left to right.
    void add(const Cell &cell, const ColumnPosition &at, QStringView source) {
        const QColor &cellColor = colorAt(at.index);
        if (cellColor != color)
            flush();
        color = cellColor;
        if (cell.shown == U'\t') {
            flush();
            return;
        }
        if (cell.aligned)
            flush();
        if (run.isEmpty())
            start = at.column;
        if (QChar::requiresSurrogates(cell.shown))
            run += QString::fromUcs4(&cell.shown, 1);
        else
            run += QChar(static_cast<char16_t>(cell.shown));
        isSign = cell.aligned && cell.shown != codeOf(source);
        if (cell.aligned)
            flush();
    }

    void flush() {
        if (run.isEmpty())
            return;
        if (!QStringView(run).trimmed().isEmpty()) {
            painter.setPen(isSign ? stretch.sign : color);
            const QPointF origin(view.xOf(start), baseline);
            if (!stretch.glyphs || !stretch.glyphs->draw(painter, origin, run))
                painter.drawText(origin, run);
        }
        run.clear();
        isSign = false;
    }

private:
    const QColor &colorAt(qsizetype index) {
        while (part != stretch.parts.end() && part->end <= index)
            ++part;
        return part != stretch.parts.end() && part->begin <= index ? part->color : stretch.color;
    }

    static char32_t codeOf(QStringView source) {
        return source.size() == 2 ? QChar::surrogateToUcs4(source[0], source[1]) : source[0].unicode();
    }

    QPainter &painter;
    const ColumnView &view;
    const TextStretch &stretch;
    int baseline;
    std::span<const ColoredPart>::iterator part; ///< the first one that does not end before the cell added last
    QColor color;
    QString run;
    qint64 start = 0;
    bool isSign = false;
};

} // namespace

qint64 ColumnView::firstColumn() const {
    return std::max<qint64>(0, static_cast<qint64>(std::floor((area.left() - left) / advance)));
}

qint64 ColumnView::endColumn() const {
    return static_cast<qint64>(std::ceil((area.left() + area.width() - left) / advance));
}

VisiblePart visiblePart(QStringView line, const LongLines &lines, const ColumnView &view) {
    const qsizetype last = lines.positionAt(line, view.endColumn()).index;
    return {lines.positionAt(line, view.firstColumn()).index, nextCaret(line, last)};
}

void paintGround(QPainter &painter, QStringView line, const LongLines &lines, std::span<const TextRange> ranges,
                 const QColor &color, const ColumnView &view) {
    const VisiblePart visible = visiblePart(line, lines, view);
    for (const TextRange &range : ranges) {
        const qsizetype begin = std::max(range.start, visible.begin);
        const qsizetype end = std::min(range.end(), visible.end);
        if (begin >= end)
            continue;
        const double left = view.xOf(lines.columnOf(line, begin));
        const double right = view.xOf(lines.columnOf(line, end));
        const QRectF ground(left, view.area.top(), right - left, view.area.height());
        painter.fillRect(ground.intersected(view.area), color);
    }
}

void paintStretch(QPainter &painter, QStringView line, const LongLines &lines, const TextStretch &stretch,
                  const ColumnView &view, int baseline) {
    ColumnPosition at = lines.positionAt(line, view.firstColumn());
    if (at.index < stretch.begin)
        at = {stretch.begin, lines.columnOf(line, stretch.begin)};
    const qint64 endColumn = view.endColumn();
    RunPainter runs(painter, view, stretch, baseline);
    while (at.index < stretch.end && at.column < endColumn) {
        const Cell cell = cellAt(line, at.index, at.column);
        runs.add(cell, at, line.sliced(at.index, cell.length));
        at.index += cell.length;
        at.column += cell.columns;
    }
    runs.flush();
}

} // namespace kestor

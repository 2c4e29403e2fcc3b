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
        : painter(target), view(columns), stretch(look), baseline(baselineY) {
        painter.setFont(stretch.font);
    }

    void add(const Cell &cell, qint64 column, QStringView source) {
        if (cell.shown == U'\t') {
            flush();
            return;
        }
        if (cell.aligned)
            flush();
        if (run.isEmpty())
            start = column;
        run += QString::fromUcs4(&cell.shown, 1);
        isSign = cell.aligned && cell.shown != codeOf(source);
        if (cell.aligned)
            flush();
    }

    void flush() {
        if (run.isEmpty())
            return;
        painter.setPen(isSign ? stretch.sign : stretch.color);
        painter.drawText(QPointF(view.xOf(start), baseline), run);
        run.clear();
        isSign = false;
    }

private:
    static char32_t codeOf(QStringView source) {
        return source.size() == 2 ? QChar::surrogateToUcs4(source[0], source[1]) : source[0].unicode();
    }

    QPainter &painter;
    const ColumnView &view;
    const TextStretch &stretch;
    int baseline;
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

void paintStretch(QPainter &painter, QStringView line, const LongLines &lines, const TextStretch &stretch,
                  const ColumnView &view, int baseline) {
    ColumnPosition at = lines.positionAt(line, view.firstColumn());
    if (at.index < stretch.begin)
        at = {stretch.begin, lines.columnOf(line, stretch.begin)};
    const qint64 endColumn = view.endColumn();
    RunPainter runs(painter, view, stretch, baseline);
    while (at.index < stretch.end && at.column < endColumn) {
        const Cell cell = cellAt(line, at.index, at.column);
        runs.add(cell, at.column, line.sliced(at.index, cell.length));
        at.index += cell.length;
        at.column += cell.columns;
    }
    runs.flush();
}

} // namespace kestor

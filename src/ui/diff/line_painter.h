#pragma once

#include "ui/diff/long_lines.h"

#include <QColor>
#include <QFont>
#include <QRect>
#include <QStringView>

class QPainter;

namespace kestor {

/// The part of a text's grid that is in view.
struct ColumnView {
    double left = 0; ///< where column 0 would stand, in pixels; negative once scrolled
    double advance = 0;
    QRect area{}; ///< the visible part of the row to the right of markers

    double xOf(qint64 column) const { return left + static_cast<double>(column) * advance; }
    qint64 firstColumn() const;
    qint64 endColumn() const;
};

/// One stretch of a line in one look. Syntax colors and word marks divide a line into several of them.
struct TextStretch {
    qsizetype begin = 0;
    qsizetype end = 0;
    QFont font{};
    QColor color{};
    QColor sign{}; ///< of characters shown as a sign
};

/// Paints the visible characters of `stretch`; reads no more of the line than that.
void paintStretch(QPainter &painter, QStringView line, const LongLines &lines, const TextStretch &stretch,
                  const ColumnView &view, int baseline);

} // namespace kestor

#pragma once

#include "analysis/text_range.h"
#include "ui/diff/grid_glyphs.h"
#include "ui/diff/long_lines.h"

#include <QColor>
#include <QFont>
#include <QRect>
#include <QStringView>

#include <span>

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

/// A part of a line in a color of its own.
struct ColoredPart {
    qsizetype begin = 0;
    qsizetype end = 0;
    QColor color{};

    friend bool operator==(const ColoredPart &, const ColoredPart &) = default;
};

/// One stretch of a line.
struct TextStretch {
    qsizetype begin = 0;
    qsizetype end = 0;
    QFont font{};
    const GridGlyphs *glyphs = nullptr; ///< of `font`; null when it is no fixed pitch font
    QColor color{};
    QColor sign{};                        ///< of characters shown as a sign
    std::span<const ColoredPart> parts{}; ///< from left to right; the rest has `color`
};

/// The characters of a line that are in view, those that the edges cut included.
struct VisiblePart {
    qsizetype begin = 0;
    qsizetype end = 0;
};
VisiblePart visiblePart(QStringView line, const LongLines &lines, const ColumnView &view);

/// Paints what is in view of the ground beneath parts of a line, which are in order.
void paintGround(QPainter &painter, QStringView line, const LongLines &lines, std::span<const TextRange> ranges,
                 const QColor &color, const ColumnView &view);

/// Paints the visible characters of `stretch`; reads no more of the line than that.
void paintStretch(QPainter &painter, QStringView line, const LongLines &lines, const TextStretch &stretch,
                  const ColumnView &view, int baseline);

} // namespace kestor

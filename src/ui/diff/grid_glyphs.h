#pragma once

#include <QFont>
#include <QPointF>
#include <QRawFont>
#include <QStringView>

#include <array>

class QPainter;

namespace kestor {

/// Draws printable ASCII of a fixed pitch font column by column. It looks as `QPainter::drawText` paints it, but asks
/// nobody to shape the text, which costs more than the drawing itself.
class GridGlyphs {
public:
    GridGlyphs() = default; ///< draws nothing
    /// `columnAdvance` is the width of a column, in logical pixels.
    GridGlyphs(const QFont &font, double columnAdvance);

    /// Draws `text` with the painter's pen from `start` on its base line; false, and nothing drawn, when it holds
    /// anything but printable ASCII or the font lacks a character of that.
    bool draw(QPainter &painter, QPointF start, QStringView text) const;

private:
    static constexpr char16_t first = u' ', last = u'~';

    QRawFont font;
    std::array<quint32, last - first + 1> glyphs{};
    double advance = 0;
};

} // namespace kestor

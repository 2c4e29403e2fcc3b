#include "ui/look/swatch.h"

#include <QPainter>

namespace kestor {

void paintSwatch(QPainter &painter, int left, const QRect &line, const QColor &color, const Theme &theme) {
    constexpr double radius = 2.5;
    const QRect square(left, line.top() + (line.height() - swatchSide) / 2, swatchSide, swatchSide);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme.outline);
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(square).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
}

} // namespace kestor

#include "ui/look/menu_look.h"

#include "ui/look/metrics.h"

#include <QPainter>
#include <QStyleOption>

namespace kestor {

/// In the dark it is lighter than the lists that it lies upon.
void paintMenuPanel(QPainter &painter, const QStyleOption &option, const Theme &theme) {
    painter.fillRect(option.rect, theme.scheme == ColorScheme::light ? theme.base : theme.window);
    paintMenuEdge(painter, option, theme);
}

void paintMenuEdge(QPainter &painter, const QStyleOption &option, const Theme &theme) {
    painter.setPen(theme.outline);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
}

void paintMenuSeparator(QPainter &painter, const QRect &place, const Theme &theme) {
    painter.fillRect(place.left() + gap, place.center().y(), place.width() - 2 * gap, 1, theme.separator);
}

} // namespace kestor

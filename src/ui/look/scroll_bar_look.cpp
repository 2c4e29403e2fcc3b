#include "ui/look/scroll_bar_look.h"

#include "ui/look/theme.h"

#include <QPainter>
#include <QStyleOptionSlider>

#include <algorithm>

namespace kestor {

namespace {

/// Between the thumb and the edges of the groove.
constexpr qreal thumbInset = 3;

/// Points away from the middle of the bar.
void paintArrow(QPainter &painter, const QRect &place, const QStyleOptionSlider &option, const QColor &color) {
    const QPointF center = QRectF(place).center();
    const QPointF across = center - QRectF(option.rect).center();
    const bool horizontal = option.orientation == Qt::Horizontal;
    const QPointF ahead = horizontal ? QPointF(across.x() < 0 ? -1 : 1, 0) : QPointF(0, across.y() < 0 ? -1 : 1);
    const QPointF side(ahead.y() * 3, ahead.x() * 3);
    painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({center - ahead * 1.5 + side, center + ahead * 1.5, center - ahead * 1.5 - side}));
}

void paintThumb(QPainter &painter, const QRectF &place, const QStyleOptionSlider &option, const QColor &color) {
    const bool horizontal = option.orientation == Qt::Horizontal;
    const QRectF bar =
        horizontal ? place.adjusted(1, thumbInset, -1, -thumbInset) : place.adjusted(thumbInset, 1, -thumbInset, -1);
    const qreal radius = std::min(bar.width(), bar.height()) / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(bar, radius, radius);
}

} // namespace

/// What cannot be scrolled shows an empty groove.
void paintScrollBar(QPainter &painter, const QStyleOptionSlider &option, const QStyle &style, const QWidget *widget) {
    const Theme theme = themeFor(option.palette);
    painter.fillRect(option.rect, theme.alternate);
    if (option.maximum <= option.minimum)
        return;
    const auto place = [&](QStyle::SubControl part) {
        return style.subControlRect(QStyle::CC_ScrollBar, &option, part, widget);
    };
    const auto color = [&](QStyle::SubControl part) {
        if (!option.state.testFlag(QStyle::State_Enabled))
            return theme.separator;
        return option.activeSubControls.testFlag(part) ? theme.muted : theme.outline;
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    paintThumb(painter, place(QStyle::SC_ScrollBarSlider), option, color(QStyle::SC_ScrollBarSlider));
    for (const QStyle::SubControl arrow : {QStyle::SC_ScrollBarSubLine, QStyle::SC_ScrollBarAddLine})
        paintArrow(painter, place(arrow), option, color(arrow));
    painter.restore();
}

} // namespace kestor

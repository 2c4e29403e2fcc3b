#include "ui/look/slider_look.h"

#include "ui/look/theme.h"

#include <QPainter>
#include <QStyleOptionSlider>

#include <algorithm>

namespace kestor {

namespace {

constexpr qreal trackHeight = 4;

void paintTrack(QPainter &painter, const QRectF &track, const QColor &color) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(track, trackHeight / 2, trackHeight / 2);
}

} // namespace

void paintSlider(QPainter &painter, const QStyleOptionSlider &option, const QStyle &style, const QWidget *widget) {
    const Theme theme = themeFor(option.palette);
    const QRectF handle = style.subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, widget);
    const QPointF center = handle.center();
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    const qreal radius = (std::min(handle.width(), handle.height()) - (focused ? 2 : 1)) / 2;
    const QRectF track(option.rect.left(), center.y() - trackHeight / 2, option.rect.width(), trackHeight);
    QRectF filled = track;
    if (option.upsideDown)
        filled.setLeft(center.x());
    else
        filled.setRight(center.x());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    paintTrack(painter, track, theme.selectionIdle);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    if (enabled)
        paintTrack(painter, filled, theme.accent);
    const bool pressed =
        option.activeSubControls.testFlag(QStyle::SC_SliderHandle) && option.state & QStyle::State_Sunken;
    painter.setBrush(pressed ? theme.selectionIdle : theme.button);
    painter.setPen(QPen(focused ? theme.focusRing : enabled ? theme.outline : theme.buttonLine, focused ? 2 : 1));
    painter.drawEllipse(center, radius, radius);
    painter.restore();
}

} // namespace kestor

#include "ui/look/control_look.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

namespace kestor {

namespace {

constexpr qreal boxRadius = 4;
constexpr qreal fieldRadius = 5;

/// A rounded rectangle whose line of `width` lies inside `rect`.
void drawRounded(QPainter &painter, const QRectF &rect, qreal radius, const QColor &edge, qreal width) {
    painter.setPen(QPen(edge, width));
    painter.drawRoundedRect(rect.adjusted(width / 2, width / 2, -width / 2, -width / 2), radius, radius);
}

QColor held(const QColor &color, bool enabled, const Theme &theme) {
    return enabled ? color : mixed(color, theme.base, 0.45);
}

void drawMark(QPainter &painter, const QRectF &box, QStyle::State state) {
    const QPointF corner = box.topLeft();
    if (state.testFlag(QStyle::State_NoChange)) {
        painter.drawLine(corner + QPointF(4.5, 8), corner + QPointF(11.5, 8));
        return;
    }
    QPainterPath check(corner + QPointF(4, 8.5));
    check.lineTo(corner + QPointF(7, 11.5));
    check.lineTo(corner + QPointF(12.5, 5));
    painter.drawPath(check);
}

} // namespace

void paintTickBox(QPainter &painter, const QStyleOption &option, const Theme &theme) {
    QRectF box(0, 0, tickBoxSide, tickBoxSide);
    box.moveCenter(QRectF(option.rect).center());
    box.moveTopLeft(QPointF(qRound(box.left()), qRound(box.top())));
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool marked = option.state & (QStyle::State_On | QStyle::State_NoChange);
    painter.setBrush(marked ? held(theme.accent, enabled, theme) : theme.base);
    drawRounded(painter, box, boxRadius,
                marked ? held(theme.accent, enabled, theme) : held(theme.outline, enabled, theme), 1);
    painter.setBrush(Qt::NoBrush);
    if (marked) {
        painter.setPen(QPen(theme.accentText, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        drawMark(painter, box, option.state);
    }
    if (option.state.testFlag(QStyle::State_HasFocus))
        drawRounded(painter, box.adjusted(-3, -3, 3, 3), boxRadius + 3, theme.focusRing, 2);
}

void paintField(QPainter &painter, const QStyleOption &option, const Theme &theme) {
    painter.setBrush(option.palette.base());
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    drawRounded(painter, option.rect, fieldRadius, focused ? theme.focusRing : held(theme.outline, enabled, theme),
                focused ? 2 : 1);
}

void paintButton(QPainter &painter, const QStyleOption &option, const Theme &theme) {
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool pressed = option.state & (QStyle::State_Sunken | QStyle::State_On);
    const bool hovered = enabled && option.state.testFlag(QStyle::State_MouseOver);
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    painter.setBrush(pressed ? theme.selectionIdle : (hovered ? theme.hover : theme.button));
    drawRounded(painter, option.rect, fieldRadius, focused ? theme.focusRing : held(theme.buttonLine, enabled, theme),
                focused ? 2 : 1);
}

void paintComboBox(QPainter &painter, const QStyleOption &option, const QRect &arrow, const Theme &theme) {
    paintField(painter, option, theme);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const QPointF tip = QRectF(arrow).center() + QPointF(0, 2);
    painter.setPen(QPen(held(theme.text, enabled, theme), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)}));
}

void paintToolButton(QPainter &painter, const QStyleOption &option, const Theme &theme) {
    const bool pressed = option.state & (QStyle::State_Sunken | QStyle::State_On);
    const bool hovered = option.state.testFlags(QStyle::State_Enabled | QStyle::State_MouseOver);
    const double weight = pressed ? 1 : (hovered ? 0.5 : 0);
    if (weight > 0) {
        painter.setBrush(mixed(theme.window, theme.selectionIdle, weight));
        drawRounded(painter, option.rect, fieldRadius, Qt::transparent, 0);
    }
    painter.setBrush(Qt::NoBrush);
    if (option.state.testFlag(QStyle::State_HasFocus))
        drawRounded(painter, option.rect, fieldRadius, theme.focusRing, 2);
}

} // namespace kestor

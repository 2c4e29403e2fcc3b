#include "ui/look/edge_style.h"

#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QPlainTextEdit>
#include <QStyleOption>

namespace kestor {

namespace {

constexpr int boxSide = 16;
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

void drawBox(QPainter &painter, const QStyleOption &option, const Theme &theme) {
    QRectF box(0, 0, boxSide, boxSide);
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

void drawField(QPainter &painter, const QStyleOption &option, const Theme &theme) {
    painter.setBrush(option.palette.base());
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    drawRounded(painter, option.rect, fieldRadius, focused ? theme.focusRing : held(theme.outline, enabled, theme),
                focused ? 2 : 1);
}

void drawButton(QPainter &painter, const QStyleOption &option, const Theme &theme) {
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool pressed = option.state & (QStyle::State_Sunken | QStyle::State_On);
    const bool hovered = enabled && option.state.testFlag(QStyle::State_MouseOver);
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    painter.setBrush(pressed ? theme.selectionIdle : (hovered ? theme.hover : theme.button));
    drawRounded(painter, option.rect, fieldRadius, focused ? theme.focusRing : held(theme.buttonLine, enabled, theme),
                focused ? 2 : 1);
}

/// A field with an arrow; its text is drawn by the style.
void drawComboBox(QPainter &painter, const QStyleOption &option, const QRect &arrow, const Theme &theme) {
    drawField(painter, option, theme);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const QPointF tip = QRectF(arrow).center() + QPointF(0, 2);
    painter.setPen(QPen(held(theme.text, enabled, theme), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)}));
}

/// Buttons without an edge stand on chrome and show one only for the focus.
void drawToolButton(QPainter &painter, const QStyleOption &option, const Theme &theme) {
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

} // namespace

EdgeStyle::EdgeStyle() : QProxyStyle(QStringLiteral("fusion")) {}

/// The chosen item of a menu looks like the selected row of a list. A bold one that cannot be chosen is a heading.
void EdgeStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                            const QWidget *widget) const {
    const bool isInMenu = element == CE_MenuItem || element == CE_MenuBarItem;
    const auto *item = isInMenu ? qstyleoption_cast<const QStyleOptionMenuItem *>(option) : nullptr;
    if (item == nullptr)
        return QProxyStyle::drawControl(element, option, painter, widget);
    const Theme theme = themeFor(item->palette);
    QStyleOptionMenuItem shown(*item);
    shown.palette.setColor(QPalette::Highlight, theme.selection);
    shown.palette.setColor(QPalette::HighlightedText, theme.text);
    if (item->font.bold())
        shown.palette.setColor(QPalette::Disabled, QPalette::Text, theme.muted);
    QProxyStyle::drawControl(element, &shown, painter, widget);
}

void EdgeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                   const QWidget *widget) const {
    const auto *box = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    if (control != CC_ComboBox || box == nullptr || box->editable)
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRect arrow = subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
    drawComboBox(*painter, *box, arrow, themeFor(box->palette));
    painter->restore();
}

QSize EdgeStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                                  const QWidget *widget) const {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return type == CT_PushButton ? size.expandedTo({0, leastControlHeight}) : size;
}

void EdgeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                              const QWidget *widget) const {
    void (*draw)(QPainter &, const QStyleOption &, const Theme &) = nullptr;
    switch (element) {
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        draw = drawBox;
        break;
    case PE_FrameLineEdit:
    case PE_Frame:
        draw = drawField;
        break;
    case PE_PanelButtonCommand:
        draw = drawButton;
        break;
    case PE_PanelButtonTool:
        draw = drawToolButton;
        break;
    default:
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    draw(*painter, *option, themeFor(option->palette));
    painter->restore();
}

int EdgeStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return boxSide;
    case PM_DefaultFrameWidth: // what an editor shows would cover the frame of the focus
        return qobject_cast<const QPlainTextEdit *>(widget) ? 2 : QProxyStyle::pixelMetric(metric, option, widget);
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QIcon EdgeStyle::standardIcon(StandardPixmap standard, const QStyleOption *option, const QWidget *widget) const {
    const bool hasOwn = standard == SP_ToolBarHorizontalExtensionButton;
    return hasOwn ? icon(Icon::chevronRight) : QProxyStyle::standardIcon(standard, option, widget);
}

} // namespace kestor

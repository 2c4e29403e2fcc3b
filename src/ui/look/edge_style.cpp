#include "ui/look/edge_style.h"

#include "ui/look/button_label.h"
#include "ui/look/control_look.h"
#include "ui/look/icons.h"
#include "ui/look/menu_look.h"
#include "ui/look/metrics.h"
#include "ui/look/scroll_bar_look.h"
#include "ui/look/slider_look.h"
#include "ui/look/theme.h"

#include <QComboBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QSlider>
#include <QStyleOption>

namespace kestor {

namespace {

/// What a pop-up has before its text, beyond Fusion's own.
constexpr int popUpInset = 4;

bool hasIconAndText(const QStyleOptionButton &button) {
    return !button.icon.isNull() && !button.text.isEmpty();
}

bool isPlainSlider(const QStyleOptionSlider &slider) {
    return slider.orientation == Qt::Horizontal && slider.tickPosition == QSlider::NoTicks;
}

} // namespace

EdgeStyle::EdgeStyle() : QProxyStyle(QStringLiteral("fusion")) {}

void EdgeStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                            const QWidget *widget) const {
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (item != nullptr && (element == CE_MenuItem || element == CE_MenuBarItem))
        return drawMenuItem(element, *item, *painter, widget);
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    if (element == CE_PushButtonLabel && button != nullptr && hasIconAndText(*button))
        return paintButtonLabel(*painter, *button, *this);
    QProxyStyle::drawControl(element, option, painter, widget);
}

/// The chosen item of a menu looks like the selected row of a list. A bold one that cannot be chosen is a heading.
void EdgeStyle::drawMenuItem(ControlElement element, const QStyleOptionMenuItem &item, QPainter &painter,
                             const QWidget *widget) const {
    const Theme theme = themeFor(item.palette);
    if (item.menuItemType == QStyleOptionMenuItem::Separator && item.text.isEmpty())
        return paintMenuSeparator(painter, item.rect, theme);
    QStyleOptionMenuItem shown(item);
    shown.palette.setColor(QPalette::Highlight, theme.selection);
    shown.palette.setColor(QPalette::HighlightedText, theme.text);
    if (item.font.bold())
        shown.palette.setColor(QPalette::Disabled, QPalette::Text, theme.muted);
    QProxyStyle::drawControl(element, &shown, &painter, widget);
}

void EdgeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                   const QWidget *widget) const {
    const auto *range = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control == CC_ScrollBar && range != nullptr)
        return paintScrollBar(*painter, *range, *this, widget);
    if (control == CC_Slider && range != nullptr && isPlainSlider(*range))
        return paintSlider(*painter, *range, *this, widget);
    const auto *box = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    if (control != CC_ComboBox || box == nullptr || box->editable)
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRect arrow = subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
    paintComboBox(*painter, *box, arrow, themeFor(box->palette));
    painter->restore();
}

/// The text of a pop-up stands where that of a field does.
QRect EdgeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                                const QWidget *widget) const {
    const QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
    const auto *box = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    if (control != CC_ComboBox || part != SC_ComboBoxEditField || box == nullptr || box->editable)
        return rect;
    const bool leftToRight = option->direction == Qt::LeftToRight;
    return leftToRight ? rect.adjusted(popUpInset, 0, 0, 0) : rect.adjusted(0, 0, -popUpInset, 0);
}

QSize EdgeStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                                  const QWidget *widget) const {
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_ComboBox)
        return size + QSize(popUpInset, 0);
    if (type != CT_PushButton)
        return size;
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    const bool needsGap = button != nullptr && hasIconAndText(*button); // a button counts 4 px for it
    return (size + QSize(needsGap ? gap - smallGap : 0, 0)).expandedTo({0, leastControlHeight});
}

void EdgeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                              const QWidget *widget) const {
    void (*draw)(QPainter &, const QStyleOption &, const Theme &) = nullptr;
    switch (element) {
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        draw = paintTickBox;
        break;
    case PE_FrameLineEdit:
    case PE_Frame:
        draw = paintField;
        break;
    case PE_PanelButtonCommand:
        draw = paintButton;
        break;
    case PE_PanelButtonTool:
        draw = paintToolButton;
        break;
    case PE_PanelMenu:
        draw = paintMenuPanel;
        break;
    case PE_FrameMenu:
        draw = paintMenuEdge;
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
        return tickBoxSide;
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuHMargin: // the chosen item would cover the edge
    case PM_MenuVMargin:
        return qobject_cast<const QComboBox *>(widget) ? 0 : smallGap; // its list has a frame of its own
    case PM_TabBarTabShiftVertical: // the count of a tab would jump when the tab is chosen
    case PM_TabBarTabShiftHorizontal:
        return 0;
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

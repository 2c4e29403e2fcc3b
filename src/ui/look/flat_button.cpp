#include "ui/look/flat_button.h"

#include "ui/look/icons.h"
#include "ui/look/metrics.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QToolButton>

namespace kestor {

namespace {

constexpr int iconSide = 16;
constexpr int chevronSide = 12;
constexpr int edge = 6;
constexpr int textGap = 6;

class FlatButton final : public QToolButton {
public:
    FlatButton(QWidget *parent, MenuArrow menuArrow) : QToolButton(parent), arrow(menuArrow) {}

    QSize sizeHint() const override { return {contentWidth() + 2 * edge, controlHeight(font())}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *) override {
        QStylePainter painter(this);
        QStyleOptionToolButton option;
        initStyleOption(&option);
        painter.drawPrimitive(QStyle::PE_PanelButtonTool, option);
        int x = (width() - contentWidth()) / 2;
        drawIcon(painter, icon(), x, iconSide);
        x += iconSide;
        if (showsText()) {
            x += textGap;
            painter.setPen(palette().color(QPalette::ButtonText));
            painter.drawText(QRect(x, 0, textWidth(), height()), Qt::AlignLeft | Qt::AlignVCenter, text());
            x += textWidth();
        }
        if (showsChevron())
            drawIcon(painter, kestor::icon(Icon::chevronDown), x + smallGap, chevronSide);
    }

private:
    bool showsText() const { return toolButtonStyle() == Qt::ToolButtonTextBesideIcon && !text().isEmpty(); }
    bool showsChevron() const { return arrow == MenuArrow::shown && menu() != nullptr; }
    int textWidth() const { return fontMetrics().horizontalAdvance(text()); }
    int contentWidth() const {
        return iconSide + (showsText() ? textGap + textWidth() : 0) + (showsChevron() ? smallGap + chevronSide : 0);
    }
    void drawIcon(QPainter &painter, const QIcon &drawn, int x, int sideLength) const {
        const QRect place(x, (height() - sideLength) / 2, sideLength, sideLength);
        drawn.paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    }

    MenuArrow arrow;
};

} // namespace

QToolButton *flatButton(Icon shown, const QString &name, QWidget *parent, MenuArrow arrow) {
    auto *button = new FlatButton(parent, arrow);
    button->setIcon(icon(shown));
    button->setIconSize({iconSide, iconSide});
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(name);
    button->setAccessibleName(name);
    return button;
}

} // namespace kestor

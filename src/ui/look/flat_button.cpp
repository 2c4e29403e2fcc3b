#include "ui/look/flat_button.h"

#include "ui/look/icons.h"

#include <QStyleOptionToolButton>
#include <QToolButton>

namespace kestor {

namespace {

constexpr int side = 28;
constexpr int iconSide = 16;

class ArrowlessButton final : public QToolButton {
public:
    using QToolButton::QToolButton;

protected:
    void initStyleOption(QStyleOptionToolButton *option) const override {
        QToolButton::initStyleOption(option);
        option->features &= ~QStyleOptionToolButton::HasMenu;
    }
};

} // namespace

QToolButton *flatButton(Icon shown, const QString &name, QWidget *parent, MenuArrow arrow) {
    auto *button = arrow == MenuArrow::shown ? new QToolButton(parent) : new ArrowlessButton(parent);
    button->setIcon(icon(shown));
    button->setIconSize({iconSide, iconSide});
    button->setAutoRaise(true);
    button->setMinimumSize(side, side);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(name);
    button->setAccessibleName(name);
    return button;
}

} // namespace kestor

#include "ui/frame/flat_button.h"

#include "ui/look/icons.h"

#include <QToolButton>

namespace kestor {

namespace {

constexpr int side = 28;
constexpr int iconSide = 16;

} // namespace

QToolButton *flatButton(Icon shown, const QString &name, QWidget *parent) {
    auto *button = new QToolButton(parent);
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

#include "ui/look/held_button.h"

#include <QStyleOptionButton>

namespace kestor {

void HeldButton::setHeld(bool wanted) {
    held = wanted;
    update();
}

void HeldButton::initStyleOption(QStyleOptionButton *option) const {
    QPushButton::initStyleOption(option);
    if (!held)
        return;
    option->state.setFlag(QStyle::State_Enabled, false);
    option->palette.setCurrentColorGroup(QPalette::Disabled);
}

} // namespace kestor

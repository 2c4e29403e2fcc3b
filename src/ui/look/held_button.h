#pragma once

#include <QPushButton>

namespace kestor {

/// A button that can be held: it is drawn as disabled, yet it keeps the focus.
class HeldButton final : public QPushButton {
public:
    using QPushButton::QPushButton;

    void setHeld(bool wanted);

protected:
    void initStyleOption(QStyleOptionButton *option) const override;

private:
    bool held = false;
};

} // namespace kestor

#pragma once

#include "ui/look/tone_label.h"

namespace kestor {

enum class Icon : std::uint8_t;

/// A line drawing in a tone of the theme.
class IconLabel final : public QWidget {
public:
    IconLabel(Icon icon, Tone tone, int side, QWidget *parent);

    void setIcon(Icon icon, Tone tone);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Icon shown;
    Tone tone;
};

} // namespace kestor

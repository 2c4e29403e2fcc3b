#include "ui/look/accent_button.h"

#include "ui/look/derived_font.h"
#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QPainter>

namespace kestor {

AccentButton::AccentButton(const QString &text, QWidget *parent) : QPushButton(text, parent) {
    setDefault(true);
    setDerivedFont(*this, boldFont);
}

void AccentButton::setLook(Look wanted) {
    look = wanted;
    update();
}

QSize AccentButton::sizeHint() const {
    return QPushButton::sizeHint() + QSize(2 * frameRoom, 2 * frameRoom);
}

void AccentButton::paintGround(QPainter &painter) const {
    const Theme theme = themeFor(palette());
    painter.setRenderHint(QPainter::Antialiasing);
    if (hasFocus()) {
        painter.setPen(QPen(theme.focusRing, 2));
        painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), 7, 7);
    }
    const bool ready = isReady();
    const QColor ground = isDown() ? mixed(theme.accent, theme.text, 0.2) : theme.accent;
    painter.setPen(Qt::NoPen);
    painter.setBrush(ready ? ground : theme.selectionIdle);
    painter.drawRoundedRect(rect().adjusted(frameRoom, frameRoom, -frameRoom, -frameRoom), 5, 5);
    painter.setPen(ready ? theme.accentText : theme.disabled);
}

void AccentButton::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    paintGround(painter);
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace kestor

#include "ui/frame/accent_button.h"

#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QApplication>
#include <QEvent>

namespace kestor {

AccentButton::AccentButton(const QString &text, QWidget *parent) : QPushButton(text, parent) {
    setDefault(true);
    applyLook();
}

void AccentButton::changeEvent(QEvent *event) {
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange)
        applyLook();
}

void AccentButton::applyLook() {
    const Theme theme = themeFor(QApplication::palette());
    QPalette own;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        own.setColor(group, QPalette::Button, theme.accent);
        own.setColor(group, QPalette::ButtonText, theme.accentText);
    }
    setPalette(own);
    setFont(boldFont(QApplication::font()));
}

} // namespace kestor

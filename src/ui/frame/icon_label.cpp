#include "ui/frame/icon_label.h"

#include "ui/look/icons.h"

#include <QPainter>
#include <QPixmap>

namespace kestor {

IconLabel::IconLabel(Icon shownIcon, Tone shownTone, int side, QWidget *parent)
    : QWidget(parent), shown(shownIcon), tone(shownTone) {
    setFixedSize(side, side);
}

void IconLabel::setIcon(Icon newIcon, Tone newTone) {
    shown = newIcon;
    tone = newTone;
    update();
}

void IconLabel::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    QPixmap pixmap = icon(shown).pixmap(size(), devicePixelRatioF());
    QPainter tinting(&pixmap);
    tinting.setCompositionMode(QPainter::CompositionMode_SourceIn);
    tinting.fillRect(rect(), isEnabled() ? toneColor(tone, theme) : theme.disabled);
    tinting.end();
    QPainter(this).drawPixmap(0, 0, pixmap);
}

} // namespace kestor

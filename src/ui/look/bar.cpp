#include "ui/look/bar.h"

#include "ui/look/theme.h"

#include <QPainter>

namespace kestor {

Bar::Bar(BarLine separator, QWidget *parent) : QWidget(parent), line(separator) {}

void Bar::paintEvent(QPaintEvent *) {
    const Theme theme = themeFor(palette());
    QPainter painter(this);
    painter.fillRect(rect(), theme.alternate);
    painter.fillRect(0, line == BarLine::above ? 0 : height() - 1, width(), 1, theme.separator);
}

} // namespace kestor

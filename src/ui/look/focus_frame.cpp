#include "ui/look/focus_frame.h"

#include "ui/look/theme.h"

#include <QPainter>
#include <QWidget>

namespace kestor {

void paintFocusFrame(QWidget &surface) {
    QPainter painter(&surface);
    painter.setPen(themeFor(surface.palette()).focusRing);
    painter.drawRect(surface.rect().adjusted(0, 0, -1, -1));
}

} // namespace kestor

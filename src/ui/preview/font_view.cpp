#include "ui/preview/font_view.h"

#include "ui/look/focus_frame.h"
#include "ui/look/theme.h"

#include <QEvent>
#include <QPainter>

namespace kestor {

namespace {

constexpr int sampleMargin = 16;

}

FontView::FontView(QWidget *parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
}

void FontView::setLines(const QImage &newLines) {
    lines = newLines;
    applyLook();
}

void FontView::applyLook() {
    colored = lines;
    if (!colored.isNull()) {
        QPainter painter(&colored);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(QRectF(QPointF(), colored.deviceIndependentSize()), themeFor(palette()).text);
    }
    update();
}

void FontView::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyLook();
}

void FontView::paintEvent(QPaintEvent *) {
    if (!colored.isNull())
        paintLines();
    if (hasFocus())
        paintFocusFrame(*this);
}

/// Too wide lines are made smaller as a whole.
void FontView::paintLines() {
    QPainter painter(this);
    QSizeF size = colored.deviceIndependentSize();
    const QSizeF room(width() - 2 * sampleMargin, height());
    if (size.width() > room.width() || size.height() > room.height()) {
        size = size.scaled(room, Qt::KeepAspectRatio);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
    }
    painter.drawImage(QRectF(QPointF(sampleMargin, qRound((height() - size.height()) / 2)), size), colored);
}

} // namespace kestor

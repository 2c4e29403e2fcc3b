#include "ui/frame/kind_tag.h"

#include "ui/look/derived_font.h"
#include "ui/look/metrics.h"

#include <QPainter>

namespace kestor {

KindTag::KindTag(QWidget *parent) : ToneLabel(QString(), Tone::muted, parent) {
    setDerivedFont(*this, [](const QFont &font) { return boldFont(resizedFont(font, -2)); });
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize KindTag::sizeHint() const {
    return {wantedWidth() + 10, qMax(16, fontMetrics().height() + 2)};
}

QSize KindTag::minimumSizeHint() const {
    return sizeHint();
}

void KindTag::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(themeFor(palette()).outline);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.end();
    ToneLabel::paintEvent(event);
}

} // namespace kestor

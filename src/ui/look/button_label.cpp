#include "ui/look/button_label.h"

#include "ui/look/metrics.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace kestor {

void paintButtonLabel(QPainter &painter, const QStyleOptionButton &option, const QStyle &style) {
    const int textWidth = option.fontMetrics.size(Qt::TextShowMnemonic, option.text).width();
    const QSize size(option.iconSize.width() + gap + textWidth, option.rect.height());
    const QRect label = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, option.rect);
    QRect sign = label;
    sign.setWidth(option.iconSize.width());
    QRect text = label;
    text.setLeft(sign.right() + 1 + gap);
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    option.icon.paint(&painter, QStyle::visualRect(option.direction, label, sign), Qt::AlignCenter,
                      enabled ? QIcon::Normal : QIcon::Disabled);
    style.drawItemText(&painter, QStyle::visualRect(option.direction, label, text),
                       Qt::AlignCenter | Qt::TextShowMnemonic, option.palette, enabled, option.text,
                       QPalette::ButtonText);
}

} // namespace kestor

#include "ui/tabs/rule_header.h"

#include "ui/look/metrics.h"
#include "ui/look/theme.h"

#include <QPainter>

namespace kestor {

RuleHeader::RuleHeader(QWidget *parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionResizeMode(Fixed);
    setStretchLastSection(true);
    setHighlightSections(false);
    setMinimumSectionSize(1);
}

QSize RuleHeader::sizeHint() const {
    return {QHeaderView::sizeHint().width(), controlHeight(font()) + 1};
}

void RuleHeader::paintSection(QPainter *painter, const QRect &rect, int section) const {
    const Theme theme = themeFor(palette());
    painter->fillRect(rect, theme.alternate);
    painter->fillRect(rect.left(), rect.bottom(), rect.width(), 1, theme.separator);
    painter->setFont(smallFont(font()));
    painter->setPen(theme.muted);
    painter->drawText(rect.adjusted(paneEdge, 0, 0, -1), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      model()->headerData(section, Qt::Horizontal).toString());
}

} // namespace kestor

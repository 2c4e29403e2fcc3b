#include "ui/tabs/tick_all_box.h"

#include "ui/look/metrics.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace kestor {

TickAllBox::TickAllBox(QWidget *parent) : QCheckBox(parent) {
    setAccessibleName(tr("Tick all shown"));
    setToolTip(tr("Tick all shown (Ctrl+A), untick all shown (Ctrl+Shift+A)"));
}

void TickAllBox::showCounts(const TickCounts &counts) {
    const bool all = counts.shownTickable > 0 && counts.shownTicked == counts.shownTickable;
    const Qt::CheckState some = counts.shownTicked > 0 ? Qt::PartiallyChecked : Qt::Unchecked;
    setCheckState(all ? Qt::Checked : some);
}

void TickAllBox::setTickAccess(TickAccess wanted) {
    access = wanted;
    update();
}

QSize TickAllBox::sizeHint() const {
    const int side = style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this) + 2 * smallGap;
    return {side, side};
}

void TickAllBox::nextCheckState() {
    if (access == TickAccess::editable)
        emit requested(checkState() == Qt::Checked ? Tick::unticked : Tick::ticked);
}

/// Held back it looks disabled and stays enabled, so that it keeps the focus.
void TickAllBox::paintEvent(QPaintEvent *) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.rect.setLeft(smallGap);
    if (access == TickAccess::held) {
        option.state.setFlag(QStyle::State_Enabled, false);
        option.palette.setCurrentColorGroup(QPalette::Disabled);
    }
    painter.drawControl(QStyle::CE_CheckBox, option);
}

} // namespace kestor

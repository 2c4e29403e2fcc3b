#include "ui/frame/branch_button.h"

#include "ui/look/icons.h"
#include "ui/look/metrics.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int edge = 9;
constexpr int iconSide = 16;
constexpr int chevronSide = 12;

void drawIcon(QPainter &painter, Icon shown, const QRect &area, int left, int side, QIcon::Mode mode) {
    icon(shown).paint(&painter, QRect(left, (area.height() - side) / 2, side, side), Qt::AlignCenter, mode);
}

} // namespace

BranchButton::BranchButton(QWidget *parent) : QPushButton(parent) {
    setAutoDefault(false);
    setFocusPolicy(Qt::TabFocus);
}

void BranchButton::showBranch(const QString &branch) {
    const QString command = u"Switch URL Or Branch..."_s;
    setText(branch.isEmpty() ? u"Switch"_s : branch);
    // A "&" in the name of a branch makes no access key.
    setShortcut({});
    setAccessibleName(branch.isEmpty() ? command : u"Branch %1"_s.arg(branch));
    setToolTip(branch.isEmpty() ? command : branch + u'\n' + command);
}

int BranchButton::wantedWidth() const {
    return leastWidth() + fontMetrics().horizontalAdvance(text()) + 1;
}

int BranchButton::leastWidth() {
    return edge + iconSide + gap + gap + chevronSide + edge;
}

QSize BranchButton::sizeHint() const {
    return {wantedWidth(), controlHeight(font())};
}

QSize BranchButton::minimumSizeHint() const {
    return {leastWidth(), controlHeight(font())};
}

void BranchButton::paintEvent(QPaintEvent *) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawPrimitive(QStyle::PE_PanelButtonCommand, option);
    const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
    drawIcon(painter, Icon::branch, rect(), edge, iconSide, mode);
    drawIcon(painter, Icon::chevronDown, rect(), width() - edge - chevronSide, chevronSide, mode);
    const QRect room = rect().adjusted(edge + iconSide + gap, 0, -(gap + chevronSide + edge), 0);
    painter.setPen(option.palette.color(QPalette::ButtonText));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width()));
}

} // namespace kestor

#include "ui/look/badge.h"

#include <QFont>
#include <QPainter>
#include <QRectF>

namespace kestor {

Badge badgeFor(const WorkingCopyItem &item, const Theme &theme) {
    if (item.treeConflict)
        return {shortName(SVNStatusKind::conflicted), conflictBadgeColors(theme)};
    if (isChange(item.kind))
        return {shortName(item.kind), badgeColors(item.kind, theme)};
    return {shortName(item.propertiesKind), badgeColors(item.kind, theme)};
}

Badge badgeForAction(QStringView action, const Theme &theme) {
    const QChar letter = action.isEmpty() ? QChar(u' ') : action.front();
    switch (letter.unicode()) {
    case u'A':
        return {letter, badgeColors(SVNStatusKind::added, theme)};
    case u'M':
        return {letter, badgeColors(SVNStatusKind::modified, theme)};
    case u'D':
        return {letter, badgeColors(SVNStatusKind::deleted, theme)};
    case u'R':
        return {letter, badgeColors(SVNStatusKind::replaced, theme)};
    default:
        return {letter, badgeColors(SVNStatusKind::unknown, theme)};
    }
}

void paintBadge(QPainter &painter, const QRectF &rect, const Badge &badge, const Theme &theme) {
    constexpr double radius = 4;
    const QColor &tile = badge.colors.tile;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(tile.isValid() ? mixed(tile, badge.colors.letter, 0.3) : theme.outline);
    painter.setBrush(tile.isValid() ? tile : theme.base);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(qRound(rect.height() * 0.7));
    painter.setFont(font);
    painter.setPen(badge.colors.letter);
    painter.drawText(rect, Qt::AlignCenter, badge.letter);
    painter.restore();
}

} // namespace kestor

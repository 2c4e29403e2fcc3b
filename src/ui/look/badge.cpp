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

SVNStatusKind statusKindOfAction(QStringView action) {
    switch (action.isEmpty() ? u' ' : action.front().unicode()) {
    case u'A':
        return SVNStatusKind::added;
    case u'M':
        return SVNStatusKind::modified;
    case u'D':
        return SVNStatusKind::deleted;
    case u'R':
        return SVNStatusKind::replaced;
    default:
        return SVNStatusKind::unknown;
    }
}

Badge badgeForAction(QStringView action, const Theme &theme) {
    const QChar letter = action.isEmpty() ? QChar(u' ') : action.front();
    return {letter, badgeColors(statusKindOfAction(action), theme)};
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

#pragma once

#include "model/working_copy_item.h"
#include "ui/look/theme.h"

#include <QChar>
#include <QStringView>

class QPainter;
class QRectF;

namespace kestor {

/// The side of a badge in logical pixels.
inline constexpr int badgeSide = 16;

/// A status letter on its tile; without a tile color it is outlined.
struct Badge {
    QChar letter{};
    BadgeColors colors{};
};

/// The badge of a row: its content status, or the property letter, outlined, when only properties changed. A tree
/// conflict reads as a conflict.
Badge badgeFor(const WorkingCopyItem &item, const Theme &theme);

/// What a changed path's action ("A", "M", "D", "R") says; `unknown` for other letters.
SVNStatusKind statusKindOfAction(QStringView action);

/// The badge of a changed path's action ("A", "M", "D", "R"); other letters stand on the neutral tile.
Badge badgeForAction(QStringView action, const Theme &theme);

void paintBadge(QPainter &painter, const QRectF &rect, const Badge &badge, const Theme &theme);

} // namespace kestor

#pragma once

#include "ui/look/theme.h"

class QPainter;
class QRect;
class QStyleOption;

namespace kestor {

/// The ground of a menu within its edge.
void paintMenuPanel(QPainter &painter, const QStyleOption &option, const Theme &theme);
/// The edge alone.
void paintMenuEdge(QPainter &painter, const QStyleOption &option, const Theme &theme);
/// The line between two groups of items; `place` is that of an item.
void paintMenuSeparator(QPainter &painter, const QRect &place, const Theme &theme);

} // namespace kestor

#pragma once

#include "ui/look/theme.h"

class QPainter;
class QRect;

namespace kestor {

/// The side of a swatch in logical pixels.
inline constexpr int swatchSide = 12;

/// A color with an outline, so that it can be seen on any ground, at `left` in the vertical middle of `line`.
void paintSwatch(QPainter &painter, int left, const QRect &line, const QColor &color, const Theme &theme);

} // namespace kestor

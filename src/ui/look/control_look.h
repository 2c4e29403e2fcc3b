#pragma once

#include "ui/look/theme.h"

class QPainter;
class QRect;
class QStyleOption;

namespace kestor {

/// The width and height of a tick box.
inline constexpr int tickBoxSide = 16;

// Each paints the ground and the edge of one control as `option` has it; their painter smooths what it paints.

/// In the middle of its place, with its mark.
void paintTickBox(QPainter &painter, const QStyleOption &option, const Theme &theme);
void paintField(QPainter &painter, const QStyleOption &option, const Theme &theme);
void paintButton(QPainter &painter, const QStyleOption &option, const Theme &theme);
/// A field with an arrow; its text is drawn by the style.
void paintComboBox(QPainter &painter, const QStyleOption &option, const QRect &arrow, const Theme &theme);
/// Buttons without an edge stand on chrome and show one only for the focus.
void paintToolButton(QPainter &painter, const QStyleOption &option, const Theme &theme);

} // namespace kestor

#pragma once

#include "model/status_kind.h"

#include <QColor>
#include <QPalette>

#include <cstdint>

namespace kestor {

enum class ColorScheme : std::uint8_t { light, dark };

/// The colors of the window. Chrome is neutral; color repeats what a letter, sign or word already says.
struct Theme {
    ColorScheme scheme = ColorScheme::light;
    QColor window, base, alternate, separator, outline, text, muted, disabled;
    QColor accent, accentText, accentInk, selection, selectionIdle, hover, focusRing, button, buttonLine;
    QColor addText, delText, addLine, addGutter, addWord, delLine, delGutter, delWord;
    QColor hunkBand, hunkText, gutter, gutterText, addMark, delMark, checkA, checkB, rulerView;
};

/// The theme for a palette: light or dark by the luminance of its base color, neutral roles from the palette.
/// Cheap enough for a palette change, not for every row: keep the value and read it again on QEvent::PaletteChange.
Theme themeFor(const QPalette &palette);

/// A palette made of the theme's own colors, for platforms that set none.
QPalette fallbackPalette(ColorScheme scheme);

/// Tile and letter of a status badge; an invalid tile means outlined without fill.
struct BadgeColors {
    QColor tile;
    QColor letter;
};
BadgeColors badgeColors(SVNStatusKind kind, const Theme &theme);
/// The colors of a conflict, which tree conflicts share.
BadgeColors conflictBadgeColors(const Theme &theme);

/// `color` mixed with `weight` (0 to 1) of `over`.
QColor mixed(const QColor &color, const QColor &over, double weight);

} // namespace kestor

#pragma once

#include <QFont>

namespace kestor {

/// The distance of text from the left edge of its pane, in logical pixels.
inline constexpr int paneEdge = 12;
inline constexpr int smallGap = 4;
inline constexpr int gap = 8;
/// The bar above a list or a diff.
inline constexpr int barHeight = 40;
/// The least height of buttons and fields.
inline constexpr int leastControlHeight = 28;

/// The height of a list row of one line: 24 px, more for large fonts.
int rowHeight(const QFont &font);
/// The height of buttons and fields: 28 px, more for large fonts.
int controlHeight(const QFont &font);
/// A line in `font` and one in the small font below it.
int twoLinesHeight(const QFont &font);
/// The height of a list row of two lines: 44 px, more for large fonts.
int twoLineRowHeight(const QFont &font);
/// A width that is enough for the standard font, wider in proportion for larger ones.
int scaledWidth(int width, const QFont &font);
/// So many pixels larger, or smaller; never below 10 px.
QFont resizedFont(const QFont &font, int pixels);
/// A pixel smaller.
QFont smallFont(const QFont &font);
/// Some pixels larger, and bold.
QFont headingFont(const QFont &font);
QFont boldFont(const QFont &font);
/// The platform's fixed font, as large as the small font.
QFont fixedFont(const QFont &font);

} // namespace kestor

#pragma once

#include "ui/diff/diff_document.h"
#include "ui/diff/diff_rows.h"
#include "ui/diff/grid_glyphs.h"

#include <QFont>

namespace kestor {

inline constexpr int currentHunkBar = 3;
inline constexpr int markerWidth = 20;
/// From the bar beside error output, which stands where other text begins, to its text.
inline constexpr int errorIndent = 15;

/// Fonts and measures of a document's rows, in logical pixels.
struct DiffMetrics {
    QFont text, marker, note, number; ///< fixed pitch
    QFont uiFont;                     ///< of file heads
    QFont errorHeading;
    GridGlyphs textGlyphs, numberGlyphs; ///< of `text` and `number`
    double advance = 0;                  ///< of one column
    double digitAdvance = 0;             ///< of one digit of a line number
    RowHeights rows{};
    int gutterWidth = 0; ///< of one of the two columns of numbers; 0 in a plain document
    int textLeft = 0;    ///< where column 0 stands while nothing is scrolled

    bool isMade() const { return advance > 0; }
    bool hasGutters() const { return gutterWidth > 0; }
    /// Where text as high as `font`'s has its base line in a row.
    static int baseline(const QFont &font, int rowTop, int rowHeight);
};

/// `sizeDelta` pixels are added to the size of the platform's fixed font; heads use `uiFont`. Gutters have room for
/// `largestNumber`.
DiffMetrics diffMetrics(const DiffDocument &document, qint64 largestNumber, const QFont &uiFont, int sizeDelta);

} // namespace kestor

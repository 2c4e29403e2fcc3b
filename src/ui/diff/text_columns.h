#pragma once

#include <QStringView>

namespace kestor {

// Text of a fixed pitch font stands on a grid of columns, so that a place in a line is found without measuring glyphs:
// a tab reaches to the next multiple of eight, East Asian wide characters and emoji take two columns, marks that
// combine with the character before them take none. Controls and the invisible characters that reorder text take one
// and are shown as a sign.

inline constexpr int tabColumns = 8;

/// What one code point does on the grid.
struct Cell {
    char32_t shown = 0;   ///< what is drawn; differs from the text only for controls and reordering characters
    qsizetype length = 1; ///< UTF-16 units
    int columns = 1;      ///< 0 when it joins the character before it; the width from `column` on for a tab
    bool aligned = false; ///< drawn alone, since fonts differ about its width
};

/// The cell of the code point at `index`, which begins at `column`.
Cell cellAt(QStringView text, qsizetype index, qint64 column);

/// The column after `text`, which begins at `column`. Linear.
qint64 columnAfter(QStringView text, qint64 column = 0);

/// A place in a line and the column where it begins.
struct ColumnPosition {
    qsizetype index = 0;
    qint64 column = 0;
};

/// The last character that begins at or before `column`, or the end of the text, searched from `from` on.
ColumnPosition positionAtColumn(QStringView text, qint64 column, ColumnPosition from = {});

/// The place of a caret one character (with what combines with it) after or before `index`.
qsizetype nextCaret(QStringView text, qsizetype index);
qsizetype previousCaret(QStringView text, qsizetype index);

/// The place of a caret at the next or previous border between words, blanks and signs.
qsizetype nextWord(QStringView text, qsizetype index);
qsizetype previousWord(QStringView text, qsizetype index);

/// The run of characters of one kind (word, blanks, other signs) at `index` of a text that is not empty.
struct WordBounds {
    qsizetype begin = 0;
    qsizetype end = 0;
};
WordBounds wordBounds(QStringView text, qsizetype index);

} // namespace kestor

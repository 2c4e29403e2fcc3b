#pragma once

#include "ui/diff/diff_document.h"

#include <QString>

#include <algorithm>
#include <compare>

namespace kestor {

/// A place between two characters of a document's lines.
struct TextPosition {
    qint64 line = 0;
    qsizetype index = 0; ///< in UTF-16 units

    friend auto operator<=>(const TextPosition &, const TextPosition &) = default; // NOLINT(modernize-use-nullptr)
};

/// Text from where a selection began to where its caret stands, in either direction.
struct TextSelection {
    TextPosition anchor{};
    TextPosition caret{};

    bool isEmpty() const { return anchor == caret; }
    TextPosition begin() const { return std::min(anchor, caret); }
    TextPosition end() const { return std::max(anchor, caret); }

    friend bool operator==(const TextSelection &, const TextSelection &) = default;
};

/// The selected part of one line, as indexes into its text.
struct SelectedPart {
    qsizetype begin = 0;
    qsizetype end = 0;
    bool goesOn = false; ///< the line's end is selected too
};
SelectedPart selectedPart(const TextSelection &selection, qint64 line, qsizetype lineLength);

TextSelection wholeText(const DiffDocument &document);
/// The word, blanks or sign at a position.
TextSelection wordAt(const DiffDocument &document, TextPosition position);

/// The selected text without markers and numbers, its lines joined by line feeds. Linear; any thread.
QString selectedText(const DiffDocument &document, const TextSelection &selection);

enum class CaretStep : std::uint8_t { character, word, line, lineEdge, page, textEdge };
enum class CaretDirection : std::int8_t { back = -1, ahead = 1 };

/// Where a step leads from `from`, within the document. `pageLines` is the length of a page.
TextPosition stepped(const DiffDocument &document, TextPosition from, CaretStep step, CaretDirection direction,
                     qint64 pageLines);

} // namespace kestor

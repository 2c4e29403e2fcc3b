#pragma once

#include "analysis/text_range.h"

#include <QStringView>

#include <cstdint>
#include <vector>

namespace kestor {

/// What word marks are made of: runs of letters, digits and underscores are words; every blank and every other
/// character stands alone.
struct LineToken {
    enum class Kind : std::uint8_t { word, blank, sign };

    TextRange range{};
    Kind kind = Kind::sign;
    std::size_t hash = 0; ///< of the text
};

/// The tokens of a line, which cover it. Marks that combine with the character before them stay with it. Linear.
std::vector<LineToken> lineTokens(QStringView line);

inline QStringView textOf(const LineToken &token, QStringView line) {
    return line.sliced(token.range.start, token.range.length);
}

} // namespace kestor

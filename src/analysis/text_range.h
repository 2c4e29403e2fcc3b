#pragma once

#include <QtGlobal>

namespace kestor {

/// A part of a text, in UTF-16 units.
struct TextRange {
    qsizetype start = 0;
    qsizetype length = 0;

    qsizetype end() const { return start + length; }
    friend bool operator==(const TextRange &, const TextRange &) = default;
};

} // namespace kestor

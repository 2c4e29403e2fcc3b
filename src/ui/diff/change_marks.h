#pragma once

#include "model/diff.h"

#include <cstdint>
#include <vector>

namespace kestor {

/// Which lines of a diff are changes, in a bounded number of equal pieces, fine enough for a ruler of any height.
struct ChangeMarks {
    enum Flag : std::uint8_t { addition = 1, deletion = 2 };

    qint64 linesPerPiece = 1;
    std::vector<std::uint8_t> pieces{}; ///< flags of the lines of each piece

    friend bool operator==(const ChangeMarks &, const ChangeMarks &) = default;
};

ChangeMarks changeMarks(const std::vector<PackedDiffLine> &lines);

} // namespace kestor

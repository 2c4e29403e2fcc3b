#pragma once

#include "model/diff.h"

#include <optional>
#include <vector>

namespace kestor {

/// Removed lines and the added ones right behind them, as line numbers. Notes between them do not count.
struct ChangeRun {
    std::vector<qint64> removed{};
    std::vector<qint64> added{};

    friend bool operator==(const ChangeRun &, const ChangeRun &) = default;
};

/// The run that a line of the hunk belongs to; nothing for lines that no other can be compared with, and in runs that
/// are too long for it. Reads a few hundred lines at most.
std::optional<ChangeRun> changeRunAt(const DiffHunk &hunk, qint64 line);

} // namespace kestor

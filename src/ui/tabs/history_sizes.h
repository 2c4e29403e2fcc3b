#pragma once

namespace kestor {

/// What the user has given the lists of the History tab; 0 for what they have by themselves.
struct HistorySizes {
    int revisionsHeight = 0; ///< of the revisions below the files
    int listsWidth = 0;      ///< of both lists side by side
    int filesWidth = 0;      ///< of the files beside the revisions

    friend bool operator==(const HistorySizes &, const HistorySizes &) = default;
};

} // namespace kestor

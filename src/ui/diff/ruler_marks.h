#pragma once

#include "ui/diff/diff_document.h"
#include "ui/diff/diff_rows.h"

#include <vector>

namespace kestor {

/// Neighbouring pixels of the ruler with the same flags of ChangeMarks.
struct RulerMark {
    int top = 0;
    int height = 0;
    std::uint8_t flags = 0;

    friend bool operator==(const RulerMark &, const RulerMark &) = default;
};

/// Ruler pixels per content pixel: the content fills the ruler, but is never enlarged.
double rulerScale(const DiffRows &rows, int rulerHeight);

/// The changes of a document on a ruler, from top to bottom. The cost is bounded for a document of any size.
std::vector<RulerMark> rulerMarks(const DiffDocument &document, const DiffRows &rows, int rulerHeight);

} // namespace kestor

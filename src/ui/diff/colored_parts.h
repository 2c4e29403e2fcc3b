#pragma once

#include "ui/diff/line_looks.h"
#include "ui/diff/line_painter.h"
#include "ui/diff/text_selection.h"
#include "ui/look/syntax_colors.h"

#include <vector>

namespace kestor {

/// What text can stand on.
struct Grounds {
    QColor line{};
    QColor mark{};      ///< of changed words
    QColor selection{}; ///< over both
};

/// The parts of a line from `begin` to `end` that have a color of their own, from left to right: its spans, divided
/// where the ground beneath them changes, so that each is readable.
std::vector<ColoredPart> coloredParts(const LineLook &look, qsizetype begin, qsizetype end,
                                      const SelectedPart &selection, const Grounds &grounds, SyntaxColors &colors);

} // namespace kestor

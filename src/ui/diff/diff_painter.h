#pragma once

#include "ui/diff/diff_metrics.h"
#include "ui/diff/diff_rows.h"
#include "ui/diff/line_looks.h"
#include "ui/diff/line_painter.h"
#include "ui/diff/text_selection.h"
#include "ui/look/syntax_colors.h"
#include "ui/look/theme.h"

#include <QPoint>
#include <QSize>

#include <cstdint>
#include <optional>

class QPainter;

namespace kestor {

/// Whether the lines of a plain document are tinted by a "+" or "-" at their beginning.
enum class PlainTint : std::uint8_t { bySign, none };

enum class DiffFocus : std::uint8_t { none, focused };

/// All that decides how a diff looks at one moment. The members refer to what the view keeps.
struct DiffScene {
    const DiffDocument &document;
    const DiffRows &rows;
    const DiffMetrics &metrics;
    const Theme &theme;
    const LineLooks &looks;
    SyntaxColors &colors;
    QSize size{};      ///< of the viewport
    QPoint scrolled{}; ///< of the content, in pixels
    std::optional<TextSelection> selection{};
    qint64 currentHunk = -1;
    qint64 currentFile = -1; ///< marked at its head when its hunks are not shown
    PlainTint tint = PlainTint::bySign;
    DiffFocus focus = DiffFocus::none;
};

/// Where a file head stands that stays at the top while its rows scroll beneath it.
struct StickyHead {
    qint64 file = -1;
    int top = 0; ///< in the viewport; above its edge while the next head pushes this one out
};
/// The head over the rows that begin at pixel `y`; absent without file heads.
std::optional<StickyHead> stickyHead(const DiffRows &rows, const DiffMetrics &metrics, qint64 y);

/// Paints the rows that `exposed`, a part of the viewport, shows.
void paintDiff(QPainter &painter, const DiffScene &scene, const QRect &exposed);

} // namespace kestor

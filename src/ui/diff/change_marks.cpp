#include "ui/diff/change_marks.h"

#include <algorithm>

namespace kestor {

namespace {

constexpr qint64 mostPieces = 2048;

std::uint8_t flagOf(DiffLineKind kind) {
    switch (kind) {
    case DiffLineKind::addition:
        return ChangeMarks::addition;
    case DiffLineKind::deletion:
        return ChangeMarks::deletion;
    case DiffLineKind::context:
    case DiffLineKind::hunk:
    case DiffLineKind::note:
        break;
    }
    return 0;
}

} // namespace

ChangeMarks changeMarks(const std::vector<PackedDiffLine> &lines) {
    const auto count = static_cast<qint64>(lines.size());
    ChangeMarks marks;
    marks.linesPerPiece = std::max<qint64>(1, (count + mostPieces - 1) / mostPieces);
    marks.pieces.resize(static_cast<std::size_t>((count + marks.linesPerPiece - 1) / marks.linesPerPiece));
    for (qint64 line = 0; line < count; ++line)
        marks.pieces[static_cast<std::size_t>(line / marks.linesPerPiece)] |=
            flagOf(lines[static_cast<std::size_t>(line)].kind);
    return marks;
}

} // namespace kestor

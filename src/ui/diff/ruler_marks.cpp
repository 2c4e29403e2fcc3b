#include "ui/diff/ruler_marks.h"

#include <algorithm>

namespace kestor {

namespace {

constexpr int smallestMark = 2;

/// The flags of each pixel.
std::vector<std::uint8_t> rulerPixels(const DiffDocument &document, const DiffRows &rows, int rulerHeight) {
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(rulerHeight));
    const double scale = rulerScale(rows, rulerHeight);
    const ChangeMarks &marks = document.marks;
    for (std::size_t piece = 0; piece < marks.pieces.size(); ++piece) {
        if (marks.pieces[piece] == 0)
            continue;
        const qint64 firstLine = static_cast<qint64>(piece) * marks.linesPerPiece;
        const qint64 lastLine = std::min(firstLine + marks.linesPerPiece, document.lineCount) - 1;
        const qint64 firstY = rows.top(rows.rowOfLine(firstLine));
        const qint64 endY = rows.top(rows.rowOfLine(lastLine) + 1);
        const int top = std::clamp(static_cast<int>(static_cast<double>(firstY) * scale), 0,
                                   std::max(0, rulerHeight - smallestMark));
        const int end = std::max(static_cast<int>(static_cast<double>(endY) * scale), top + smallestMark);
        for (int y = top; y < std::min(end, rulerHeight); ++y)
            pixels[static_cast<std::size_t>(y)] |= marks.pieces[piece];
    }
    return pixels;
}

} // namespace

double rulerScale(const DiffRows &rows, int rulerHeight) {
    return std::min(1.0, rulerHeight / static_cast<double>(std::max<qint64>(1, rows.height())));
}

std::vector<RulerMark> rulerMarks(const DiffDocument &document, const DiffRows &rows, int rulerHeight) {
    std::vector<RulerMark> marks;
    const std::vector<std::uint8_t> pixels = rulerPixels(document, rows, rulerHeight);
    for (int y = 0; y < rulerHeight; ++y) {
        const std::uint8_t flags = pixels[static_cast<std::size_t>(y)];
        if (flags == 0)
            continue;
        if (!marks.empty() && marks.back().flags == flags && marks.back().top + marks.back().height == y) {
            ++marks.back().height;
        } else {
            marks.push_back({y, 1, flags});
        }
    }
    return marks;
}

} // namespace kestor

#include "ui/diff/diff_rows.h"

#include <algorithm>

namespace kestor {

namespace {

qint64 linesOf(const QList<DiffHunk> &hunks) {
    if (hunks.isEmpty())
        return 0;
    return hunks.constLast().firstLine + hunks.constLast().lineCount - hunks.constFirst().firstLine;
}

} // namespace

DiffRows::DiffRows() : DiffRows(std::make_shared<const DiffDocument>(), RowHeights()) {}

DiffRows::DiffRows(DiffDocumentPtr shownDocument, RowHeights rowHeights, const QSet<QString> &folded)
    : document(std::move(shownDocument)), heights(rowHeights) {
    const QList<DiffFile> &files = document->diff.files;
    starts.reserve(static_cast<std::size_t>(files.size()) + 1);
    starts.push_back({.top = heights.margin});
    for (const DiffFile &file : files) {
        starts.back().folded = !folded.isEmpty() && hasFileHeads() && folded.contains(file.displayPath());
        starts.push_back(after(starts.back(), file));
    }
    if (document->isPlain())
        starts.back() = {document->lineCount, heights.margin + document->lineCount * heights.line};
}

DiffRows::FileStart DiffRows::after(const FileStart &start, const DiffFile &file) const {
    const qint64 lines = linesOf(file.hunks);
    const qint64 hunks = file.hunks.size();
    FileStart next{start.row + headRows(), start.top + headHeight(), start.line + lines, start.hunk + hunks};
    if (start.folded)
        return next;
    const qint64 textRows = hunks == 0 ? headRows() : lines;
    next.row += hunks + textRows;
    next.top += hunks * heights.hunkHead + textRows * heights.line;
    return next;
}

/// The last file that begins at or before `value`.
template <typename Member>
qint64 DiffRows::fileWith(Member member, qint64 value) const {
    const auto next = std::partition_point(starts.begin(), starts.end() - 1,
                                           [&](const FileStart &start) { return start.*member <= value; });
    return std::max<qint64>(0, next - starts.begin() - 1);
}

/// The first row of a hunk, counted from the file's first row below its head.
qint64 DiffRows::rowInFile(qint64 file, qint64 hunkInFile) const {
    const QList<DiffHunk> &hunks = hunksOf(file);
    return hunkInFile + hunks[hunkInFile].firstLine - hunks.constFirst().firstLine;
}

DiffRow DiffRows::at(qint64 row) const {
    if (document->isPlain())
        return {.line = row};
    const qint64 file = fileWith(&FileStart::row, row);
    const FileStart &start = starts[static_cast<std::size_t>(file)];
    const qint64 inFile = row - start.row - headRows();
    if (inFile < 0)
        return {DiffRowKind::fileHead, file};
    const QList<DiffHunk> &hunks = hunksOf(file);
    if (hunks.isEmpty())
        return {DiffRowKind::noText, file};
    qint64 low = 0;
    for (qint64 high = hunks.size(); high - low > 1;) {
        const qint64 middle = (low + high) / 2;
        (rowInFile(file, middle) <= inFile ? low : high) = middle;
    }
    const qint64 inHunk = inFile - rowInFile(file, low);
    if (inHunk == 0)
        return {DiffRowKind::hunkHead, file, start.hunk + low};
    return {DiffRowKind::line, file, start.hunk + low, hunks[low].firstLine + inHunk - 1};
}

qint64 DiffRows::top(qint64 row) const {
    if (row >= count())
        return starts.back().top;
    const DiffRow shown = at(row);
    if (shown.file < 0)
        return heights.margin + row * heights.line;
    const FileStart &start = starts[static_cast<std::size_t>(shown.file)];
    if (shown.kind == DiffRowKind::fileHead)
        return start.top;
    const qint64 below = start.top + headHeight();
    const qint64 hunkHeads = shown.hunk - start.hunk + (shown.kind == DiffRowKind::line ? 1 : 0);
    const qint64 lines = row - start.row - headRows() - hunkHeads;
    return shown.kind == DiffRowKind::noText ? below : below + hunkHeads * heights.hunkHead + lines * heights.line;
}

int DiffRows::rowHeight(qint64 row) const {
    switch (at(row).kind) {
    case DiffRowKind::fileHead:
        return heights.fileHead;
    case DiffRowKind::hunkHead:
        return heights.hunkHead;
    case DiffRowKind::noText:
    case DiffRowKind::line:
        break;
    }
    return heights.line;
}

qint64 DiffRows::rowAt(qint64 y) const {
    if (document->isPlain())
        return std::min(std::max<qint64>(0, (y - heights.margin) / heights.line), count() - 1);
    qint64 low = starts[static_cast<std::size_t>(fileWith(&FileStart::top, y))].row;
    for (qint64 high = count(); high - low > 1;) {
        const qint64 middle = (low + high) / 2;
        (top(middle) <= y ? low : high) = middle;
    }
    return low;
}

qint64 DiffRows::rowOfLine(qint64 line) const {
    if (document->isPlain())
        return line;
    const qint64 file = fileWith(&FileStart::line, line);
    const FileStart &start = starts[static_cast<std::size_t>(file)];
    if (start.folded)
        return start.row;
    const QList<DiffHunk> &hunks = hunksOf(file);
    const auto next =
        std::partition_point(hunks.begin(), hunks.end(), [&](const DiffHunk &hunk) { return hunk.firstLine <= line; });
    return start.row + headRows() + (next - hunks.begin()) + line - start.line;
}

qint64 DiffRows::rowOfHunk(qint64 hunk) const {
    const qint64 file = fileOfHunk(hunk);
    const FileStart &start = starts[static_cast<std::size_t>(file)];
    return start.folded ? start.row : start.row + headRows() + rowInFile(file, hunk - start.hunk);
}

qint64 DiffRows::rowOfFile(qint64 file) const {
    return starts[static_cast<std::size_t>(file)].row;
}

qint64 DiffRows::endOfHunk(qint64 hunk) const {
    const qint64 folded = isFolded(fileOfHunk(hunk)) ? 0 : this->hunk(hunk).lineCount;
    return rowOfHunk(hunk) + 1 + folded;
}

qint64 DiffRows::hunkNear(qint64 row) const {
    if (document->isPlain())
        return -1;
    if (row < 0 || row >= count())
        return document->hunkCount - 1;
    const DiffRow shown = at(row);
    if (shown.hunk >= 0)
        return shown.hunk;
    return std::min(starts[static_cast<std::size_t>(shown.file)].hunk, document->hunkCount - 1);
}

qint64 DiffRows::fileOfHunk(qint64 hunk) const {
    return fileWith(&FileStart::hunk, hunk);
}

const DiffHunk &DiffRows::hunk(qint64 hunk) const {
    const qint64 file = fileOfHunk(hunk);
    return hunksOf(file)[hunk - starts[static_cast<std::size_t>(file)].hunk];
}

} // namespace kestor

#pragma once

#include "ui/diff/diff_document.h"

#include <QSet>
#include <QString>

#include <cstdint>
#include <vector>

namespace kestor {

/// The heights of the kinds of rows, in logical pixels.
struct RowHeights {
    int line = 20;
    int hunkHead = 24;
    int fileHead = 32;
    int margin = 0; ///< above the first row and below the last one

    friend bool operator==(const RowHeights &, const RowHeights &) = default;
};

enum class DiffRowKind : std::uint8_t { fileHead, noText, hunkHead, line };

/// What one row shows.
struct DiffRow {
    DiffRowKind kind = DiffRowKind::line;
    qint64 file = -1; ///< index in the diff; -1 in a plain document
    qint64 hunk = -1; ///< index over all files; -1 in file heads and in a plain document
    qint64 line = -1; ///< -1 in heads

    friend bool operator==(const DiffRow &, const DiffRow &) = default;
};

/// The rows of a document from top to bottom and where they stand. A diff of several files has a head for each file,
/// whose rows are left out while it is folded. Keeps one entry per file; every look-up is a binary search.
class DiffRows {
public:
    DiffRows();
    /// `folded` holds the display paths of folded files. Linear in the files.
    DiffRows(DiffDocumentPtr document, RowHeights heights, const QSet<QString> &folded = {});

    qint64 count() const { return starts.back().row; }
    /// Of all rows, in pixels.
    qint64 height() const { return starts.back().top + heights.margin; }
    DiffRow at(qint64 row) const;
    /// The pixel where `row` begins; that of the end for `count()`.
    qint64 top(qint64 row) const;
    int rowHeight(qint64 row) const;
    /// The row at a pixel, clamped to the first and last one; -1 without rows.
    qint64 rowAt(qint64 y) const;

    /// The row of a line, or of its file's head while that is folded.
    qint64 rowOfLine(qint64 line) const;
    qint64 rowOfHunk(qint64 hunk) const;
    qint64 rowOfFile(qint64 file) const;
    /// The pixel where the rows of a file end.
    qint64 endOfFile(qint64 file) const { return starts[static_cast<std::size_t>(file) + 1].top; }
    /// One past the last row of a hunk.
    qint64 endOfHunk(qint64 hunk) const;
    /// The hunk of a row; for a head the next hunk, for the end the last one; -1 without hunks.
    qint64 hunkNear(qint64 row) const;

    bool hasFileHeads() const { return document->hasSeveralFiles(); }
    bool isFolded(qint64 file) const { return starts[static_cast<std::size_t>(file)].folded; }
    const DiffHunk &hunk(qint64 hunk) const;
    qint64 fileOfHunk(qint64 hunk) const;
    /// The hunks before a file, which is the index of its first one.
    qint64 firstHunk(qint64 file) const { return starts[static_cast<std::size_t>(file)].hunk; }
    /// The number of the first line of a file.
    qint64 firstLine(qint64 file) const { return starts[static_cast<std::size_t>(file)].line; }

private:
    struct FileStart {
        qint64 row = 0;
        qint64 top = 0;
        qint64 line = 0; ///< lines before the file
        qint64 hunk = 0; ///< hunks before the file
        bool folded = false;
    };
    FileStart after(const FileStart &start, const DiffFile &file) const;
    const QList<DiffHunk> &hunksOf(qint64 file) const { return document->diff.files[file].hunks; }
    qint64 rowInFile(qint64 file, qint64 hunkInFile) const;
    int headRows() const { return hasFileHeads() ? 1 : 0; }
    int headHeight() const { return hasFileHeads() ? heights.fileHead : 0; }
    template <typename Member>
    qint64 fileWith(Member member, qint64 value) const;

    DiffDocumentPtr document;
    RowHeights heights;
    std::vector<FileStart> starts; ///< one per file, and one for the end
};

} // namespace kestor

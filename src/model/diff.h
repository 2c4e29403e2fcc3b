#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace kestor {

enum class DiffLineKind : std::uint8_t { context, addition, deletion, hunk, note };

/// One line of a hunk, read on demand. The texts are views into the diff's text and live as long as its DiffFile.
struct DiffLine {
    qint64 id = 0;                         ///< position of the line within the whole parsed diff
    std::optional<qint64> oldLineNumber{}; ///< absent for additions and notes
    std::optional<qint64> newLineNumber{}; ///< absent for deletions and notes
    DiffLineKind kind = DiffLineKind::context;
    QStringView prefix{}; ///< "+", "-", " ", or "" for notes
    QStringView text{};   ///< without the prefix

    friend bool operator==(const DiffLine &, const DiffLine &) = default;
};

/// What the parser keeps of one line: a slice of the text and distances from the hunk's first numbers.
struct PackedDiffLine {
    quint64 start : 34; ///< offset of the text without its prefix, in UTF-16 units
    quint64 oldOffset : 30;
    quint64 length : 31; ///< in UTF-16 units
    quint64 newOffset : 30;
    DiffLineKind kind : 3;
};
static_assert(sizeof(PackedDiffLine) == 16, "long diffs have millions of them");

/// The text of a diff and its lines, shared by all files parsed from it.
struct DiffSource {
    QString text{};
    std::vector<PackedDiffLine> lines{}; ///< in the order of their ids

    QStringView textOf(const PackedDiffLine &line) const;
};

/// One hunk: a range of lines of the source. A plain value; valid as long as its DiffFile.
struct DiffHunk {
    qint64 id = 0;        ///< running number within the whole parsed diff
    QStringView header{}; ///< the whole "@@ " line
    qint64 oldStart = 0;  ///< first old line number
    qint64 newStart = 0;  ///< first new line number
    qint64 firstLine = 0; ///< id of the first line
    qint64 lineCount = 0;
    const DiffSource *source = nullptr;

    /// The line at `index`, from 0 to `lineCount` - 1.
    DiffLine line(qint64 index) const;
};

/// One file of a parsed diff. Identified by `id`, its position in the diff.
struct DiffFile {
    qint64 id = 0;
    QString oldPath{}; ///< "" when none, "/dev/null" when the file is new
    QString newPath{}; ///< "" when none, "/dev/null" when the file is gone
    QList<DiffHunk> hunks{};
    qint64 additions = 0; ///< lines of kind addition over all hunks
    qint64 deletions = 0; ///< lines of kind deletion over all hunks
    std::shared_ptr<const DiffSource> source{};

    /// The new path unless it is empty or "/dev/null", else the old path, else "Diff".
    QString displayPath() const;
    /// Equal when ids, paths, hunk headers and all lines are.
    friend bool operator==(const DiffFile &left, const DiffFile &right);
};

/// The files of a unified diff, in the order in which their headers appear.
struct ParsedDiff {
    QList<DiffFile> files{};

    friend bool operator==(const ParsedDiff &, const ParsedDiff &) = default;
};

} // namespace kestor

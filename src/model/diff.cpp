#include "model/diff.h"

#include <algorithm>

namespace kestor {

namespace {

bool sameHunk(const DiffHunk &left, const DiffHunk &right) {
    if (left.id != right.id || left.header != right.header || left.lineCount != right.lineCount)
        return false;
    for (qint64 i = 0; i < left.lineCount; ++i) {
        if (left.line(i) != right.line(i))
            return false;
    }
    return true;
}

QStringView prefixOf(DiffLineKind kind) {
    switch (kind) {
    case DiffLineKind::addition:
        return u"+";
    case DiffLineKind::deletion:
        return u"-";
    case DiffLineKind::context:
        return u" ";
    case DiffLineKind::hunk:
    case DiffLineKind::note:
        break;
    }
    return u"";
}

/// Numbers come from the text and may be as large as they like: the sum wraps instead of overflowing.
qint64 lineNumber(qint64 start, quint64 offset) {
    return static_cast<qint64>(static_cast<quint64>(start) + offset);
}

} // namespace

QStringView DiffSource::textOf(const PackedDiffLine &line) const {
    return QStringView(text).sliced(static_cast<qsizetype>(line.start), static_cast<qsizetype>(line.length));
}

DiffLine DiffHunk::line(qint64 index) const {
    const PackedDiffLine &packed = source->lines[static_cast<std::size_t>(firstLine + index)];
    DiffLine line{firstLine + index, std::nullopt,          std::nullopt,
                  packed.kind,       prefixOf(packed.kind), source->textOf(packed)};
    if (packed.kind == DiffLineKind::context || packed.kind == DiffLineKind::deletion)
        line.oldLineNumber = lineNumber(oldStart, packed.oldOffset);
    if (packed.kind == DiffLineKind::context || packed.kind == DiffLineKind::addition)
        line.newLineNumber = lineNumber(newStart, packed.newOffset);
    return line;
}

QString DiffFile::displayPath() const {
    if (!newPath.isEmpty() && newPath != u"/dev/null")
        return newPath;
    return oldPath.isEmpty() ? QStringLiteral("Diff") : oldPath;
}

bool operator==(const DiffFile &left, const DiffFile &right) {
    return left.id == right.id && left.oldPath == right.oldPath && left.newPath == right.newPath &&
           std::equal(left.hunks.cbegin(), left.hunks.cend(), right.hunks.cbegin(), right.hunks.cend(), sameHunk);
}

} // namespace kestor

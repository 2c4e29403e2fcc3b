#include "ui/diff/file_heading.h"

#include <QStringView>

#include <optional>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostHeaderLines = 16;

/// The line that ends before `end`, a line start, and moves `end` to its start.
QStringView lineBefore(QStringView text, qsizetype &end) {
    const qsizetype feed = end < 2 ? -1 : text.lastIndexOf(u'\n', end - 2);
    const QStringView line = text.sliced(feed + 1, end - 1 - (feed + 1));
    end = feed + 1;
    return line;
}

QStringView pathOf(QStringView headerLine) {
    const QStringView rest = headerLine.sliced(4);
    const qsizetype tab = rest.indexOf(u'\t');
    const QStringView path = (tab < 0 ? rest : rest.first(tab)).trimmed();
    return path.startsWith("a/"_L1) || path.startsWith("b/"_L1) ? path.sliced(2) : path;
}

bool isMissingSide(QStringView headerLine) {
    return pathOf(headerLine) == "/dev/null"_L1 || headerLine.endsWith("\t(nonexistent)"_L1);
}

void readHeaderLine(FileHeading &heading, QStringView line) {
    if (line.startsWith("--- "_L1) && isMissingSide(line)) {
        heading.kind = SVNStatusKind::added;
    } else if (line.startsWith("+++ "_L1) && isMissingSide(line)) {
        heading.kind = SVNStatusKind::deleted;
    }
    if ((line.startsWith("+++ "_L1) || line.startsWith("--- "_L1)) && heading.path.isEmpty() &&
        pathOf(line) != "/dev/null"_L1)
        heading.path = pathOf(line).toString();
    if (line.startsWith("rename from "_L1))
        heading.oldPath = line.sliced(12).toString();
}

/// The heading as far as the lines above the first hunk tell it, read from the last one up.
FileHeading headingAbove(const DiffHunk &hunk) {
    const QStringView text = hunk.source->text;
    FileHeading heading;
    qsizetype end = hunk.header.data() - text.data();
    for (int count = 0; count < mostHeaderLines && end > 0; ++count) {
        const QStringView line = lineBefore(text, end);
        if (line.startsWith("diff --git "_L1) || line.startsWith("Index: "_L1))
            break;
        readHeaderLine(heading, line);
    }
    return heading;
}

FileHeading headingOfPaths(const DiffFile &file) {
    FileHeading heading{file.displayPath()};
    if (file.oldPath == "/dev/null"_L1) {
        heading.kind = SVNStatusKind::added;
    } else if (file.newPath == "/dev/null"_L1) {
        heading.kind = SVNStatusKind::deleted;
    } else if (!file.oldPath.isEmpty() && file.oldPath != heading.path) {
        heading.oldPath = file.oldPath;
    }
    return heading;
}

} // namespace

QString FileHeading::title() const {
    return oldPath.isEmpty() ? path : oldPath + u" → "_s + path;
}

FileHeading fileHeading(const DiffFile &file) {
    if (file.hunks.isEmpty())
        return headingOfPaths(file);
    FileHeading heading = headingAbove(file.hunks.constFirst());
    if (heading.path.isEmpty())
        heading.path = file.displayPath();
    return heading;
}

} // namespace kestor

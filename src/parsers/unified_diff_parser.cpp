#include "parsers/unified_diff_parser.h"

#include "parsers/decimal_integer.h"

#include <QStringBuilder>

#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

// What a packed line can say; the rest is cut off.
constexpr qsizetype longestText = (qsizetype{1} << 34) - 1;
constexpr qsizetype longestLine = (qsizetype{1} << 31) - 1;

bool begins(QStringView line, std::u16string_view prefix) {
    return std::u16string_view(line.utf16(), static_cast<std::size_t>(line.size())).starts_with(prefix);
}

/// Where the line that begins at `start` ends: at a line feed, but not at one that follows a carriage return, because
/// the two are one indivisible pair.
qsizetype lineEnd(QStringView text, qsizetype start) {
    qsizetype end = text.indexOf(u'\n', start);
    while (end > 0 && text[end - 1] == u'\r')
        end = text.indexOf(u'\n', end + 1);
    return end < 0 ? text.size() : end;
}

QString withoutSidePrefix(QStringView path) {
    return (begins(path, u"a/") || begins(path, u"b/") ? path.sliced(2) : path).toString();
}

/// The path of a "--- " or "+++ " line, without what svn prints after the tab.
QString headerPath(QStringView line) {
    const QStringView rest = line.sliced(4);
    const qsizetype tab = rest.indexOf(u'\t');
    return withoutSidePrefix((tab < 0 ? rest : rest.first(tab)).trimmed());
}

/// The start of a range such as "-12,7": the first piece between commas after the first character.
qint64 hunkPosition(QStringView range) {
    QStringView rest = range.sliced(1);
    while (rest.startsWith(u','))
        rest = rest.sliced(1);
    const qsizetype comma = rest.indexOf(u',');
    return decimalInteger(comma < 0 ? rest : rest.first(comma)).value_or(0);
}

/// A little more than the lines of `text` if its beginning is like the rest, bounded by the size of the text: memory
/// that is reserved and not touched costs nothing, unlike the copies of a growing vector of this size.
qsizetype expectedLines(QStringView text) {
    constexpr qsizetype sampleSize = 65'536;
    const QStringView sample = text.first(qMin(text.size(), sampleSize));
    const qsizetype samples = text.size() / sampleSize + 1;
    return qMin(samples * (sample.count(u'\n') + 1) / 4 * 5, text.size() / 8 + 1);
}

class DiffReader {
public:
    explicit DiffReader(QString wholeText) : source(std::make_shared<DiffSource>()) {
        source->text = std::move(wholeText);
        text = QStringView(source->text).first(qMin(source->text.size(), longestText));
        source->lines.reserve(static_cast<std::size_t>(expectedLines(text)));
    }

    ParsedDiff read() {
        for (qsizetype start = 0, end = 0; start < text.size(); start = end + 1) {
            end = lineEnd(text, start);
            readLine(text.sliced(start, end - start));
        }
        finishFile();
        return std::move(diff);
    }

private:
    void readLine(QStringView line) {
        if (!readHeader(line) && inHunk)
            readHunkLine(line);
    }

    /// True when the line is none that belongs to a hunk. The first character decides which prefixes can match at all;
    /// an added or removed line whose content looks like a path header is taken for one.
    bool readHeader(QStringView line) {
        switch (line.isEmpty() ? u' ' : line.front().unicode()) {
        case u'd':
            return readGitHeader(line) || begins(line, u"deleted file mode ");
        case u'I':
            return readIndexHeader(line);
        case u'@':
            return begins(line, u"@@ ") && readHunkHeader(line);
        case u'-':
            return begins(line, u"--- ") && readPath(file.oldPath, line);
        case u'+':
            return begins(line, u"+++ ") && readPath(file.newPath, line);
        case u'=':
            return begins(line, u"=======");
        case u'i':
            return begins(line, u"index ");
        case u'n':
            return begins(line, u"new file mode ");
        case u's':
            return begins(line, u"similarity index ");
        case u'r':
            return begins(line, u"rename from ") || begins(line, u"rename to ");
        default:
            return false;
        }
    }

    bool readGitHeader(QStringView line) {
        constexpr std::u16string_view prefix = u"diff --git ";
        if (!begins(line, prefix))
            return false;
        const QStringView paths = line.sliced(prefix.size());
        const qsizetype space = paths.indexOf(u' ');
        if (space < 0) {
            startFile(u"Diff"_s, u"Diff"_s);
        } else {
            startFile(withoutSidePrefix(paths.first(space)), withoutSidePrefix(paths.sliced(space + 1)));
        }
        return true;
    }

    bool readIndexHeader(QStringView line) {
        constexpr std::u16string_view prefix = u"Index: ";
        if (!begins(line, prefix))
            return false;
        const QString path = line.sliced(prefix.size()).toString();
        startFile(path, path);
        return true;
    }

    bool readPath(QString &path, QStringView line) {
        if (inFile)
            path = headerPath(line);
        return true;
    }

    bool readHunkHeader(QStringView line) {
        if (!inFile)
            return true;
        finishHunk();
        const QList<QStringView> pieces = line.split(u' ', Qt::SkipEmptyParts);
        const bool numbered = pieces.size() >= 3;
        hunk.header = line;
        hunk.oldStart = numbered ? hunkPosition(pieces[1]) : 0;
        hunk.newStart = numbered ? hunkPosition(pieces[2]) : 0;
        hunk.firstLine = nextLine();
        oldOffset = 0;
        newOffset = 0;
        inHunk = true;
        return true;
    }

    void readHunkLine(QStringView line) {
        switch (line.isEmpty() ? u'\0' : line.front().unicode()) {
        case u'+':
            append(DiffLineKind::addition, line.sliced(1));
            ++newOffset;
            ++file.additions;
            break;
        case u'-':
            append(DiffLineKind::deletion, line.sliced(1));
            ++oldOffset;
            ++file.deletions;
            break;
        case u'\\':
            append(DiffLineKind::note, line);
            break;
        default:
            append(DiffLineKind::context, line.startsWith(u' ') ? line.sliced(1) : line);
            ++oldOffset;
            ++newOffset;
        }
    }

    void append(DiffLineKind kind, QStringView line) {
        PackedDiffLine &added = source->lines.emplace_back();
        added.start = static_cast<quint64>(line.utf16() - text.utf16());
        added.length = static_cast<quint64>(qMin(line.size(), longestLine));
        added.oldOffset = oldOffset;
        added.newOffset = newOffset;
        added.kind = kind;
    }

    void startFile(QString oldPath, QString newPath) {
        finishFile();
        file.oldPath = std::move(oldPath);
        file.newPath = std::move(newPath);
        inFile = true;
    }

    void finishFile() {
        finishHunk();
        if (!inFile)
            return;
        file.id = diff.files.size();
        file.source = source;
        file.hunks.squeeze(); // growing leaves up to half of a long list unused
        diff.files.append(std::exchange(file, DiffFile()));
        inFile = false;
    }

    void finishHunk() {
        if (!inHunk)
            return;
        hunk.id = hunkCount++;
        hunk.lineCount = nextLine() - hunk.firstLine;
        hunk.source = source.get();
        file.hunks.append(hunk);
        inHunk = false;
    }

    qint64 nextLine() const { return static_cast<qint64>(source->lines.size()); }

    std::shared_ptr<DiffSource> source;
    QStringView text;
    ParsedDiff diff;
    DiffFile file;
    DiffHunk hunk;
    bool inFile = false;
    bool inHunk = false; ///< only ever within a file
    qint64 hunkCount = 0;
    quint32 oldOffset = 0;
    quint32 newOffset = 0;
};

QList<QStringView> contentLines(QStringView text) {
    QList<QStringView> lines;
    for (qsizetype start = 0, end = 0; start < text.size(); start = end + 1) {
        end = lineEnd(text, start);
        lines.append(text.sliced(start, end - start));
    }
    if (lines.size() == 1 && lines.front().isEmpty())
        lines.clear();
    return lines;
}

} // namespace

ParsedDiff UnifiedDiffParser::parse(QString text) {
    return DiffReader(std::move(text)).read();
}

QString UnifiedDiffParser::unversionedFileDiff(QStringView path, QStringView text) {
    const QList<QStringView> lines = contentLines(text);
    QString diff = "Index: "_L1 % path % u'\n' % QString(67, u'=') % "\n--- "_L1 % path % "\t(nonexistent)\n+++ "_L1 %
                   path % "\t(working copy)\n@@ -0,0 +1,"_L1 % QString::number(lines.size()) % " @@"_L1;
    diff.reserve(diff.size() + text.size() + 2 * lines.size());
    for (const QStringView line : lines)
        diff.append(u"\n+").append(line);
    return diff;
}

} // namespace kestor

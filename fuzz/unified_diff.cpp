#include "controller/tool_text.h"
#include "fuzz/input_text.h"
#include "fuzz/property.h"
#include "parsers/line_changes.h"
#include "parsers/unified_diff_parser.h"

#include <QStringList>

#include <utility>

namespace kestor::fuzz {

namespace {

struct PlainLine {
    std::optional<qint64> oldNumber{};
    std::optional<qint64> newNumber{};
    QString prefix{};
    QString text{};
};
struct PlainHunk {
    QString header{};
    QList<PlainLine> lines{};
};
struct PlainFile {
    QString oldPath{};
    QString newPath{};
    QList<PlainHunk> hunks{};
};

bool startsWithOne(const QString &line, const QStringList &beginnings) {
    for (const QString &beginning : beginnings) {
        if (line.startsWith(beginning))
            return true;
    }
    return false;
}

QString withoutSide(const QString &path) {
    return startsWithOne(path, {QStringLiteral("a/"), QStringLiteral("b/")}) ? path.mid(2) : path;
}

/// Lines end at line feeds, but not at those behind carriage returns.
QStringList plainLines(const QString &text) {
    QStringList lines;
    QString line;
    for (const QChar unit : text) {
        if (unit != u'\n' || line.endsWith(u'\r'))
            line += unit;
        else
            lines.append(std::exchange(line, QString()));
    }
    if (!line.isEmpty())
        lines.append(line);
    return lines;
}

/// The rules one after another, each as it is worded.
class PlainReader {
public:
    QList<PlainFile> files{};

    void read(const QString &line) {
        static const QStringList skipped{QStringLiteral("======="),           QStringLiteral("index "),
                                         QStringLiteral("new file mode "),    QStringLiteral("deleted file mode "),
                                         QStringLiteral("similarity index "), QStringLiteral("rename from "),
                                         QStringLiteral("rename to ")};
        if (line.startsWith(QStringLiteral("diff --git ")))
            startGitFile(line.mid(11));
        else if (line.startsWith(QStringLiteral("Index: ")))
            files.append({line.mid(7), line.mid(7)});
        else if (files.isEmpty() || startsWithOne(line, skipped))
            return;
        else if (line.startsWith(QStringLiteral("--- ")))
            files.back().oldPath = withoutSide(line.mid(4).split(u'\t').front().trimmed());
        else if (line.startsWith(QStringLiteral("+++ ")))
            files.back().newPath = withoutSide(line.mid(4).split(u'\t').front().trimmed());
        else if (line.startsWith(QStringLiteral("@@ ")))
            startHunk(line);
        else if (!files.back().hunks.isEmpty())
            readLine(line);
    }

private:
    void startGitFile(const QString &paths) {
        const qsizetype space = paths.indexOf(u' ');
        if (space < 0)
            files.append({QStringLiteral("Diff"), QStringLiteral("Diff")});
        else
            files.append({withoutSide(paths.left(space)), withoutSide(paths.mid(space + 1))});
    }

    static qint64 position(const QString &range) {
        const QStringList pieces = range.mid(1).split(u',', Qt::SkipEmptyParts);
        if (pieces.isEmpty())
            return 0;
        for (const QChar sign : pieces.front()) {
            if (!QStringLiteral("+-0123456789").contains(sign))
                return 0;
        }
        return pieces.front().toLongLong();
    }

    void startHunk(const QString &line) {
        const QStringList pieces = line.split(u' ', Qt::SkipEmptyParts);
        oldNumber = pieces.size() < 3 ? 0 : position(pieces[1]);
        newNumber = pieces.size() < 3 ? 0 : position(pieces[2]);
        files.back().hunks.append({line});
    }

    void readLine(const QString &line) {
        PlainLine result;
        const QChar first = line.isEmpty() ? u' ' : line.front();
        if (first == u'\\') {
            result.text = line;
        } else {
            result.prefix = first == u'+' || first == u'-' ? first : u' ';
            result.text = line.startsWith(result.prefix) ? line.mid(1) : line;
            if (result.prefix != u"+")
                result.oldNumber = std::exchange(oldNumber, following(oldNumber));
            if (result.prefix != u"-")
                result.newNumber = std::exchange(newNumber, following(newNumber));
        }
        files.back().hunks.back().lines.append(result);
    }

    static qint64 following(qint64 number) { return static_cast<qint64>(static_cast<quint64>(number) + 1); }

    qint64 oldNumber = 0;
    qint64 newNumber = 0;
};

void checkHunk(const DiffHunk &hunk, const PlainHunk &plain, qint64 &nextLine) {
    require(hunk.header == plain.header, "hunks have their whole header");
    require(hunk.lineCount == plain.lines.size(), "hunks have the lines of the plain rules");
    for (qint64 i = 0; i < hunk.lineCount; ++i) {
        const DiffLine line = hunk.line(i);
        const PlainLine &wanted = plain.lines[i];
        require(line.id == nextLine++, "line ids are running");
        require(line.text == wanted.text && line.prefix == wanted.prefix, "lines have their text");
        require(line.oldLineNumber == wanted.oldNumber && line.newLineNumber == wanted.newNumber,
                "lines have their numbers");
    }
}

void checkFiles(const ParsedDiff &diff, const QList<PlainFile> &plain) {
    require(diff.files.size() == plain.size(), "the files are those of the plain rules");
    qint64 nextHunk = 0;
    qint64 nextLine = 0;
    for (qsizetype i = 0; i < plain.size(); ++i) {
        const DiffFile &file = diff.files[i];
        require(file.id == i, "file ids are running");
        require(file.oldPath == plain[i].oldPath && file.newPath == plain[i].newPath, "files have their paths");
        require(file.hunks.size() == plain[i].hunks.size(), "files have the hunks of the plain rules");
        for (qsizetype h = 0; h < file.hunks.size(); ++h) {
            require(file.hunks[h].id == nextHunk++, "hunk ids are running");
            checkHunk(file.hunks[h], plain[i].hunks[h], nextLine);
        }
    }
}

/// The first line is a path, the rest what the file there contains.
void checkUnversioned(const QString &text) {
    const QString path = text.section(u'\n', 0, 0).remove(u'\r');
    const QString content = text.section(u'\n', 1);
    const ParsedDiff diff = UnifiedDiffParser::parse(UnifiedDiffParser::unversionedFileDiff(path, content));
    require(diff.files.size() == 1 && diff.files.front().hunks.size() == 1, "an unversioned file is one file");
    QStringList lines = plainLines(content);
    if (lines == QStringList(QString()))
        lines.clear();
    // Such lines, with their mark, look like headers.
    lines.removeIf([](const QString &line) { return line.startsWith(QStringLiteral("++ ")); });
    const DiffHunk &hunk = diff.files.front().hunks.front();
    require(hunk.lineCount == lines.size(), "all lines of an unversioned file are there");
    for (qint64 i = 0; i < hunk.lineCount; ++i) {
        const DiffLine line = hunk.line(i);
        require(line.kind == DiffLineKind::addition && line.newLineNumber == i + 1 && line.text == lines[i],
                "they are added and numbered from 1");
    }
}

} // namespace

void check(QByteArrayView input) {
    const QString text = anyText(input);
    PlainReader plain;
    const QStringList lines = plainLines(text);
    for (const QString &line : lines)
        plain.read(line);
    checkFiles(UnifiedDiffParser::parse(text), plain.files);

    const QString fed = withLineFeeds(text);
    QString wanted = text;
    while (wanted.contains(QStringLiteral("\r\n")))
        wanted.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    require(fed == wanted, "no line feed has a carriage return before it");
    const ParsedDiff shown = UnifiedDiffParser::parse(withLineFeeds(toolText(input)));
    require(diffLineChanges(input) == lineChanges(shown), "the sum of the bytes is that of the records");
    checkUnversioned(text);
}

} // namespace kestor::fuzz

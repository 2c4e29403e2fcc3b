#include "described_diff.h"
#include "parsers/unified_diff_parser.h"
#include "support/printers.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

/// The rules of the parser word for word over a list of lines, without regard to speed. It writes the texts that
/// described() gives for the parsed diff.
class ReferenceReader {
public:
    QStringList read(const QString &text) {
        for (const QString &line : lines(text))
            readLine(line);
        finishFile();
        return texts;
    }

private:
    static QStringList lines(const QString &text) {
        QStringList result{QString()};
        for (qsizetype i = 0; i < text.size(); ++i) {
            const bool endsLine = text[i] == u'\n' && (i == 0 || text[i - 1] != u'\r');
            if (endsLine)
                result.append(QString());
            if (!endsLine)
                result.last().append(text[i]);
        }
        if (result.last().isEmpty())
            result.removeLast();
        return result;
    }

    void readLine(const QString &line) {
        static const QStringList skipped{
            u"======="_s,           u"index "_s,       u"new file mode "_s, u"deleted file mode "_s,
            u"similarity index "_s, u"rename from "_s, u"rename to "_s};
        const auto starts = [&line](const QString &prefix) {
            return line.startsWith(prefix);
        };
        if (starts(u"diff --git "_s))
            return startFile(gitPaths(line.mid(11)));
        if (starts(u"Index: "_s))
            return startFile({line.mid(7), line.mid(7)});
        if (!inFile || std::any_of(skipped.begin(), skipped.end(), starts))
            return;
        if (starts(u"--- "_s))
            return setPath(paths.first(), line);
        if (starts(u"+++ "_s))
            return setPath(paths.last(), line);
        if (starts(u"@@ "_s))
            return startHunk(line);
        if (inHunk)
            readHunkLine(line);
    }

    void readHunkLine(const QString &line) {
        const QString id = QString::number(lineId++);
        if (line.startsWith(u'\\')) {
            content.append(u"%1: - - [%2]"_s.arg(id, line));
        } else if (line.startsWith(u'+')) {
            ++additions;
            content.append(u"%1: - %2 +[%3]"_s.arg(id, counted(newNumber), line.mid(1)));
        } else if (line.startsWith(u'-')) {
            ++deletions;
            content.append(u"%1: %2 - -[%3]"_s.arg(id, counted(oldNumber), line.mid(1)));
        } else {
            const QString text = line.startsWith(u' ') ? line.mid(1) : line;
            content.append(u"%1: %2 %3  [%4]"_s.arg(id, counted(oldNumber), counted(newNumber), text));
        }
    }

    static QString counted(quint64 &number) { return QString::number(static_cast<qint64>(number++)); }

    void startHunk(const QString &line) {
        const QStringList pieces = line.split(u' ', Qt::SkipEmptyParts);
        oldNumber = pieces.size() < 3 ? 0 : position(pieces[1]);
        newNumber = pieces.size() < 3 ? 0 : position(pieces[2]);
        content.append(u"hunk %1 [%2]"_s.arg(QString::number(hunkId++), line));
        inHunk = true;
    }

    static quint64 position(const QString &piece) {
        const QStringList pieces = piece.mid(1).split(u',', Qt::SkipEmptyParts);
        return pieces.isEmpty() ? 0 : static_cast<quint64>(pieces.first().toLongLong());
    }

    static QString withoutSide(const QString &path) {
        return path.startsWith(u"a/") || path.startsWith(u"b/") ? path.mid(2) : path;
    }

    static void setPath(QString &path, const QString &line) {
        path = withoutSide(line.mid(4).section(u'\t', 0, 0).trimmed());
    }

    static QStringList gitPaths(const QString &rest) {
        if (!rest.contains(u' '))
            return {u"Diff"_s, u"Diff"_s};
        return {withoutSide(rest.section(u' ', 0, 0)), withoutSide(rest.section(u' ', 1))};
    }

    void startFile(const QStringList &newPaths) {
        finishFile();
        paths = newPaths;
        inFile = true;
    }

    void finishFile() {
        if (!inFile)
            return;
        texts.append(u"file %1 [%2] [%3]"_s.arg(QString::number(fileId++), paths.first(), paths.last()));
        texts += content;
        texts.append(u"+%1 -%2"_s.arg(additions).arg(deletions));
        content.clear();
        additions = deletions = 0;
        inFile = inHunk = false;
    }

    QStringList texts;
    QStringList paths;
    QStringList content;
    bool inFile = false;
    bool inHunk = false;
    qint64 fileId = 0;
    qint64 hunkId = 0;
    qint64 lineId = 0;
    qint64 additions = 0;
    qint64 deletions = 0;
    quint64 oldNumber = 0;
    quint64 newNumber = 0;
};

QString randomDiff(std::mt19937 &random) {
    static const QStringList beginnings{u"diff --git "_s,
                                        u"diff --git a/x b/y"_s,
                                        u"Index: "_s,
                                        u"Index:"_s,
                                        u"======="_s,
                                        u"======"_s,
                                        u"index "_s,
                                        u"new file mode "_s,
                                        u"deleted file mode "_s,
                                        u"similarity index "_s,
                                        u"rename from "_s,
                                        u"rename to "_s,
                                        u"--- "_s,
                                        u"---"_s,
                                        u"--- a/x\t(revision 1)"_s,
                                        u"+++ "_s,
                                        u"++"_s,
                                        u"+++ \u00a0b/"_s,
                                        u"@@ "_s,
                                        u"@@"_s,
                                        u"@@ -1,2 +3,4 @@"_s,
                                        u"@@ -9 +10 @@ text"_s,
                                        u"@@ -9223372036854775806 +-7 @@"_s,
                                        u"@@ -,,3,4 +"_s,
                                        u"\\"_s,
                                        u"\\ No newline at end of file"_s,
                                        u"+"_s,
                                        u"-"_s,
                                        u" "_s,
                                        u""_s,
                                        u"\t"_s,
                                        u"+"_s,
                                        u"-"_s,
                                        u" "_s,
                                        u"\u00e4"_s};
    static const QStringList endings{u"\n"_s,   u"\n"_s, u"\n"_s,     u"x\n"_s,  u" a/b c\n"_s,
                                     u"\r\n"_s, u"\r"_s, u"\r\r\n"_s, u"\n\n"_s, u""_s};
    const auto pick = [&random](const QStringList &texts) {
        return texts[std::uniform_int_distribution<qsizetype>(0, texts.size() - 1)(random)];
    };
    QString diff;
    const int pieces = std::uniform_int_distribution(0, 30)(random);
    for (int i = 0; i < pieces; ++i)
        diff += pick(beginnings) + pick(endings);
    return diff;
}

TEST(UnifiedDiffParserTest, agreesWithItsRulesReadWordForWord) {
    std::mt19937 random(1); // NOLINT(bugprone-random-generator-seed): a failure must be repeatable
    for (int i = 0; i < 5000; ++i) {
        const QString text = randomDiff(random);
        ASSERT_EQ(testing::described(UnifiedDiffParser::parse(text)), ReferenceReader().read(text)) << qPrintable(text);
    }
}

} // namespace
} // namespace kestor

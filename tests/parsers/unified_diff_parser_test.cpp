#include "parsers/line_changes.h"
#include "parsers/unified_diff_parser.h"
#include "support/test.h"

namespace kestor {
namespace {

QString describedNumber(std::optional<qint64> number) {
    return number ? QString::number(*number) : u"-"_s;
}

/// Everything a parsed diff says, a text for each file, hunk and line, so that a difference is easy to read.
QStringList described(const ParsedDiff &diff) {
    QStringList texts;
    for (const DiffFile &file : diff.files) {
        texts.append(u"file %1 [%2] [%3]"_s.arg(QString::number(file.id), file.oldPath, file.newPath));
        for (const DiffHunk &hunk : file.hunks) {
            texts.append(u"hunk %1 [%2]"_s.arg(QString::number(hunk.id), hunk.header));
            for (qint64 i = 0; i < hunk.lineCount; ++i) {
                const DiffLine line = hunk.line(i);
                texts.append(u"%1: %2 %3 %4[%5]"_s.arg(QString::number(line.id), describedNumber(line.oldLineNumber),
                                                       describedNumber(line.newLineNumber), line.prefix, line.text));
                if ((line.kind == DiffLineKind::note) != line.prefix.isEmpty())
                    texts.append(u"kind and prefix disagree"_s);
            }
        }
        texts.append(u"+%1 -%2"_s.arg(file.additions).arg(file.deletions));
    }
    return texts;
}

TEST(UnifiedDiffParserTest, readsFilesHunksAndLines) {
    const Rows<QString, QStringList> rows{
        {"notes have no numbers and advance none", u"Index: f\n@@ -1 +1 @@\n-x\n\\ No newline at end of file\n y\n"_s,
         u"file 0 [f] [f]|hunk 0 [@@ -1 +1 @@]|0: 1 - -[x]|"
         "1: - - [\\ No newline at end of file]|2: 2 1  [y]|+0 -1"_list},
        {"an empty line and one without a marker are context",
         u"Index: f\n@@ -5 +5 @@\n\nProperty changes\n\n+## -0,0 +1 ##\n"_s,
         u"file 0 [f] [f]|hunk 0 [@@ -5 +5 @@]|0: 5 5  []|1: 6 6  [Property changes]|"
         "2: 7 7  []|3: - 8 +[## -0,0 +1 ##]|+1 -0"_list},
        {"changed lines that look like path headers are taken for them",
         u"Index: f\n@@ -1 +1 @@\n--- x\n+++ b/y\tz\n---x\n"_s,
         u"file 0 [x] [y]|hunk 0 [@@ -1 +1 @@]|0: 1 - -[--x]|+0 -1"_list},
        {"lines before the first file and headers without a hunk are skipped",
         u"--- a\n+++ b\n@@ -1 +1 @@\n-x\nIndex: f\n=====\nindex 1..2\nnew file mode 100644\nBinary files differ\n"_s,
         u"file 0 [f] [f]|+0 -0"_list},
        {"a git header with a space in a path is cut at the first one, one without a space names no path",
         u"diff --git a/a b.c b/a b.c\ndiff --git x\ndiff --git  b/\n"_s,
         u"file 0 [a] [b.c b/a b.c]|+0 -0|file 1 [Diff] [Diff]|+0 -0|file 2 [] []|"
         "+0 -0"_list},
        {"carriage return and line feed separate no lines", u"Index: f\n@@ -1 +1 @@\n-a\r\n+b\r\n c\r\rd\n e\r"_s,
         u"file 0 [f] [f]|hunk 0 [@@ -1 +1 @@]|0: 1 - -[a\r\n+b\r\n c\r\rd]|"
         "1: 2 1  [e\r]|+0 -1"_list},
    };
    for (const auto &[name, text, expected] : rows) {
        EXPECT_EQ(described(UnifiedDiffParser::parse(text)), expected);
        const ParsedDiff parsed = UnifiedDiffParser::parse(withLineFeeds(text));
        EXPECT_EQ(diffLineChanges(text.toUtf8()), lineChanges(parsed)) << "counted without records";
    }
}

TEST(UnifiedDiffParserTest, showsAnUnversionedFileAsAdded) {
    const Rows<QString, QStringList> rows{
        {"two lines", u"one\n-- two\n"_s,
         u"file 0 [a b.c] [a b.c]|hunk 0 [@@ -0,0 +1,2 @@]|0: - 1 +[one]|"
         "1: - 2 +[-- two]|+2 -0"_list},
        {"no line feed at the end, blank line within", u"one\n\nx"_s,
         u"file 0 [a b.c] [a b.c]|hunk 0 [@@ -0,0 +1,3 @@]|0: - 1 +[one]|1: - 2 +[]|"
         "2: - 3 +[x]|+3 -0"_list},
        {"empty", {}, u"file 0 [a b.c] [a b.c]|hunk 0 [@@ -0,0 +1,0 @@]|+0 -0"_list},
        {"a single empty line counts as none", u"\n"_s, u"file 0 [a b.c] [a b.c]|hunk 0 [@@ -0,0 +1,0 @@]|+0 -0"_list},
    };
    for (const auto &[name, text, expected] : rows)
        EXPECT_EQ(described(UnifiedDiffParser::parse(UnifiedDiffParser::unversionedFileDiff(u"a b.c", text))),
                  expected);
    EXPECT_EQ(UnifiedDiffParser::unversionedFileDiff(u"f", u"x\n"),
              u"Index: f\n===================================================================\n--- f\t(nonexistent)\n"
              "+++ f\t(working copy)\n@@ -0,0 +1,1 @@\n+x"_s);
}

TEST(LineChangesTest, readsNumericStatistics) {
    const Rows<QString, LineChangeSummary> rows{
        {"a binary file counts nothing", u"3\t1\ta.c\n\n-\t-\timg.png\n10\t0\tb.c\n"_s, {13, 1}},
        {"more than a total can hold",
         u"9223372036854775807\t0\ta\n1\t2\tb\n99999999999999999999\t0\tc"_s,
         {std::numeric_limits<qint64>::max(), 2}},
        {"nothing", {}, {0, 0}},
    };
    for (const auto &[name, text, expected] : rows)
        EXPECT_EQ(numstatLineChanges(text), expected);
}

TEST(LineChangesTest, turnsPairsIntoLineFeeds) {
    const Rows<QString, QString> rows{
        {"pairs at every place", u"\r\na\r\n\r\nb\r\n"_s, u"\na\n\nb\n"_s},
        {"other carriage returns stay", u"\ra\r\rb\nc\r"_s, u"\ra\r\rb\nc\r"_s},
        {"of several before a line feed none is left", u"a\r\r\n+\r\r\r\n\r"_s, u"a\n+\n\r"_s},
        {"nothing to do", u"a\nb"_s, u"a\nb"_s},
    };
    for (const auto &[name, text, expected] : rows) {
        const QString shared = text;
        EXPECT_EQ(withLineFeeds(shared), expected);
        EXPECT_EQ(shared, text);
    }
}

} // namespace
} // namespace kestor

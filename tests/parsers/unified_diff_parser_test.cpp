#include "described_diff.h"
#include "parsers/line_changes.h"
#include "parsers/unified_diff_parser.h"
#include "support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::described;

TEST(UnifiedDiffParserTest, readsFilesHunksAndLines) {
    struct Row {
        const char *name;
        QString text;
        QStringList expected;
    };
    const QString max = QString::number(std::numeric_limits<qint64>::max());
    const QString min = QString::number(std::numeric_limits<qint64>::min());
    const Row rows[] = {
        {"notes have no numbers and advance none",
         u"Index: f\n@@ -1 +1 @@\n-x\n\\ No newline at end of file\n y\n"_s,
         {u"file 0 [f] [f]"_s, u"hunk 0 [@@ -1 +1 @@]"_s, u"0: 1 - -[x]"_s, u"1: - - [\\ No newline at end of file]"_s,
          u"2: 2 1  [y]"_s, u"+0 -1"_s}},
        {"an empty line and one without a marker are context",
         u"Index: f\n@@ -5 +5 @@\n\nProperty changes\n\n+## -0,0 +1 ##\n"_s,
         {u"file 0 [f] [f]"_s, u"hunk 0 [@@ -5 +5 @@]"_s, u"0: 5 5  []"_s, u"1: 6 6  [Property changes]"_s,
          u"2: 7 7  []"_s, u"3: - 8 +[## -0,0 +1 ##]"_s, u"+1 -0"_s}},
        {"changed lines that look like path headers are taken for them",
         u"Index: f\n@@ -1 +1 @@\n--- x\n+++ b/y\tz\n---x\n"_s,
         {u"file 0 [x] [y]"_s, u"hunk 0 [@@ -1 +1 @@]"_s, u"0: 1 - -[--x]"_s, u"+0 -1"_s}},
        {"lines before the first file and headers without a hunk are skipped",
         u"--- a\n+++ b\n@@ -1 +1 @@\n-x\nIndex: f\n=====\nindex 1..2\nnew file mode 100644\nBinary files differ\n"_s,
         {u"file 0 [f] [f]"_s, u"+0 -0"_s}},
        {"a git header with a space in a path is cut at the first one, one without a space names no path",
         u"diff --git a/a b.c b/a b.c\ndiff --git x\ndiff --git  b/\n"_s,
         {u"file 0 [a] [b.c b/a b.c]"_s, u"+0 -0"_s, u"file 1 [Diff] [Diff]"_s, u"+0 -0"_s, u"file 2 [] []"_s,
          u"+0 -0"_s}},
        {"hunk positions that do not parse are zero",
         u"Index: f\n@@ x\n a\n@@ -,,7,8   +-2 @@\n b\n@@ -1x +, @@\n c\n"_s,
         {u"file 0 [f] [f]"_s, u"hunk 0 [@@ x]"_s, u"0: 0 0  [a]"_s, u"hunk 1 [@@ -,,7,8   +-2 @@]"_s,
          u"1: 7 -2  [b]"_s, u"hunk 2 [@@ -1x +, @@]"_s, u"2: 0 0  [c]"_s, u"+0 -0"_s}},
        {"the greatest number wraps, a greater one is none",
         u"Index: f\n@@ -%1 +9223372036854775808 @@\n a\n b\n"_s.arg(max),
         {u"file 0 [f] [f]"_s, u"hunk 0 [@@ -%1 +9223372036854775808 @@]"_s.arg(max), u"0: %1 0  [a]"_s.arg(max),
          u"1: %1 1  [b]"_s.arg(min), u"+0 -0"_s}},
        {"carriage return and line feed separate no lines",
         u"Index: f\n@@ -1 +1 @@\n-a\r\n+b\r\n c\r\rd\n e\r"_s,
         {u"file 0 [f] [f]"_s, u"hunk 0 [@@ -1 +1 @@]"_s, u"0: 1 - -[a\r\n+b\r\n c\r\rd]"_s, u"1: 2 1  [e\r]"_s,
          u"+0 -1"_s}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(described(UnifiedDiffParser::parse(row.text)), row.expected);
        const ParsedDiff parsed = UnifiedDiffParser::parse(withLineFeeds(row.text));
        EXPECT_EQ(diffLineChanges(row.text.toUtf8()), lineChanges(parsed)) << "counted without records";
    }
}

TEST(UnifiedDiffParserTest, showsAnUnversionedFileAsAdded) {
    struct Row {
        const char *name;
        QString text;
        QStringList expected;
    };
    const Row rows[] = {
        {"two lines",
         u"one\n-- two\n"_s,
         {u"file 0 [a b.c] [a b.c]"_s, u"hunk 0 [@@ -0,0 +1,2 @@]"_s, u"0: - 1 +[one]"_s, u"1: - 2 +[-- two]"_s,
          u"+2 -0"_s}},
        {"no line feed at the end, blank line within",
         u"one\n\nx"_s,
         {u"file 0 [a b.c] [a b.c]"_s, u"hunk 0 [@@ -0,0 +1,3 @@]"_s, u"0: - 1 +[one]"_s, u"1: - 2 +[]"_s,
          u"2: - 3 +[x]"_s, u"+3 -0"_s}},
        {"empty", {}, {u"file 0 [a b.c] [a b.c]"_s, u"hunk 0 [@@ -0,0 +1,0 @@]"_s, u"+0 -0"_s}},
        {"a single empty line counts as none",
         u"\n"_s,
         {u"file 0 [a b.c] [a b.c]"_s, u"hunk 0 [@@ -0,0 +1,0 @@]"_s, u"+0 -0"_s}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(described(UnifiedDiffParser::parse(UnifiedDiffParser::unversionedFileDiff(u"a b.c", row.text))),
                  row.expected);
    }
    EXPECT_EQ(UnifiedDiffParser::unversionedFileDiff(u"f", u"x\n"),
              u"Index: f\n===================================================================\n--- f\t(nonexistent)\n"
              "+++ f\t(working copy)\n@@ -0,0 +1,1 @@\n+x"_s);
}

TEST(LineChangesTest, readsNumericStatistics) {
    struct Row {
        const char *name;
        QString text;
        LineChangeSummary expected;
    };
    const Row rows[] = {
        {"a binary file counts nothing", u"3\t1\ta.c\n\n-\t-\timg.png\n10\t0\tb.c\n"_s, {13, 1}},
        {"too few pieces", u"3\n4\t5\nx y\n"_s, {4, 5}},
        {"more than a total can hold",
         u"9223372036854775807\t0\ta\n1\t2\tb\n99999999999999999999\t0\tc"_s,
         {std::numeric_limits<qint64>::max(), 2}},
        {"nothing", {}, {0, 0}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(numstatLineChanges(row.text), row.expected);
    }
}

TEST(LineChangesTest, turnsPairsIntoLineFeeds) {
    struct Row {
        const char *name;
        QString text;
        QString expected;
    };
    const Row rows[] = {
        {"pairs at every place", u"\r\na\r\n\r\nb\r\n"_s, u"\na\n\nb\n"_s},
        {"single carriage returns stay", u"\ra\r\r\nb\r"_s, u"\ra\r\nb\r"_s},
        {"nothing to do", u"a\nb"_s, u"a\nb"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const QString shared = row.text;
        EXPECT_EQ(withLineFeeds(shared), row.expected);
        EXPECT_EQ(shared, row.text);
    }
}

} // namespace
} // namespace kestor

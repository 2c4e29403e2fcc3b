#include "sample_diffs.h"
#include "support/printers.h"
#include "ui/diff/diff_document.h"
#include "ui/diff/text_selection.h"

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

QStringList linesOf(const DiffDocument &document) {
    QStringList lines;
    for (qint64 line = 0; line < document.lineCount; ++line)
        lines.append(document.lineText(line).toString());
    return lines;
}

TEST(DiffDocument, ReadsDiffsAndOtherTexts) {
    struct Row {
        const char *name;
        QString text;
        QStringList lines;
        qint64 hunks;
    };
    const QString diff = u"Index: a\n@@ -1 +1 @@\n-x\n+y\n"_s;
    const Row rows[] = {
        {"diff", diff, {u"x"_s, u"y"_s}, 1},
        {"diff with CR LF", QString(diff).replace(u'\n', u"\r\n"_s), {u"x"_s, u"y"_s}, 1},
        {"file without hunks is plain", u"Index: a\nCannot read\n"_s, {u"Index: a"_s, u"Cannot read"_s}, 0},
        {"plain without a last line feed", u"a\n\nb"_s, {u"a"_s, u""_s, u"b"_s}, 0},
        {"plain with CR LF", u"a\r\nb\r\n"_s, {u"a"_s, u"b"_s}, 0},
        {"only a line feed", u"\n"_s, {u""_s}, 0},
        {"nothing", u""_s, {}, 0},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const DiffDocumentPtr document = diffDocument(row.text);
        EXPECT_EQ(linesOf(*document), row.lines);
        EXPECT_EQ(document->hunkCount, row.hunks);
        EXPECT_EQ(document->printed, row.text);
    }
}

TEST(DiffDocument, KnowsItsMeasures) {
    const DiffDocumentPtr document = diffDocument(testing::oneFileDiff());
    EXPECT_EQ(document->widestLine, 27) << "the note";
    EXPECT_GE(document->largestNumber, 92);
    EXPECT_EQ(document->changes, (LineChangeSummary{3, 1}));
    const DiffDocumentPtr wrapping = diffDocument(u"Index: a\n@@ -9223372036854775807 +1 @@\n x\n y\n"_s);
    EXPECT_GE(wrapping->largestNumber, 1) << "numbers beyond the range do no harm";
}

TEST(DiffDocument, OutputPutsErrorsUnderAHeading) {
    struct Row {
        const char *name;
        QString output, errors;
        QStringList lines;
        qint64 heading;
    };
    const Row rows[] = {
        {"both", u"a\r\nb\n"_s, u"e\n"_s, {u"a"_s, u"b"_s, u"Standard error"_s, u"e"_s}, 2},
        {"output without a last line feed", u"a"_s, u"e"_s, {u"a"_s, u"Standard error"_s, u"e"_s}, 1},
        {"errors alone", u""_s, u"e\n"_s, {u"Standard error"_s, u"e"_s}, 0},
        {"output alone", u"a\n"_s, u""_s, {u"a"_s}, -1},
        {"a diff stays plain", u"Index: a\n@@ -1 +1 @@\n+x\n"_s, u""_s, {u"Index: a"_s, u"@@ -1 +1 @@"_s, u"+x"_s}, -1},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const DiffDocumentPtr document = outputDocument(row.output, row.errors);
        EXPECT_EQ(linesOf(*document), row.lines);
        EXPECT_EQ(document->errorHeading, row.heading);
    }
}

TEST(DiffDocument, FirstPartEndsAtALineFeed) {
    struct Row {
        const char *name;
        QString text;
        qsizetype size;
    };
    const Row rows[] = {
        {"short text is all", u"a\nb"_s, 3},
        {"empty", u""_s, 0},
        {"2,000 lines", u"ab\n"_s.repeated(3000), 6000},
        {"long lines end earlier", (QString(100'000, u'x') + u'\n').repeated(9), 200'002},
        {"a line without end is cut", QString(1'000'000, u'x'), 262'144},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(firstPartSize(row.text), row.size);
    }
}

TEST(TextSelection, CopiesTextWithoutMarkers) {
    struct Row {
        const char *name;
        TextPosition anchor, caret;
        QString text;
    };
    const Row rows[] = {
        {"within a line", {1, 0}, {1, 6}, u"second"_s},
        {"backwards over lines", {2, 6}, {0, 3}, u"st\nsecond line\nsecond"_s},
        {"over hunks", {4, 1}, {5, 4}, u"fourth\nlast"_s},
        {"empty", {3, 2}, {3, 2}, u""_s},
        {"ends with a line feed", {3, 0}, {4, 0}, u"third\n"_s},
    };
    const DiffDocumentPtr document = diffDocument(testing::oneFileDiff());
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(selectedText(*document, {row.anchor, row.caret}), row.text);
    }
    EXPECT_EQ(selectedText(*document, wholeText(*document)),
              u"first\nsecond line\nsecond long line\nthird\n\tfourth\nlast\n\t日本 x\nend\n"
              "\\ No newline at end of file"_s);
    EXPECT_EQ(selectedText(*document, wordAt(*document, {2, 9})), u"long"_s);
}

TEST(TextSelection, StepsOverLinesAndEdges) {
    struct Row {
        const char *name;
        TextPosition from;
        CaretStep step;
        CaretDirection direction;
        TextPosition to;
    };
    constexpr auto ahead = CaretDirection::ahead;
    constexpr auto back = CaretDirection::back;
    const Row rows[] = {
        {"on to the next line", {0, 5}, CaretStep::character, ahead, {1, 0}},
        {"back to the line before", {1, 0}, CaretStep::character, back, {0, 5}},
        {"not before the text", {0, 0}, CaretStep::character, back, {0, 0}},
        {"not past the text", {8, 27}, CaretStep::word, ahead, {8, 27}},
        {"down keeps the column", {2, 9}, CaretStep::line, ahead, {3, 5}},
        {"down onto a tab", {3, 5}, CaretStep::line, ahead, {4, 0}},
        {"up from the first line", {0, 3}, CaretStep::line, back, {0, 0}},
        {"page past the end", {3, 0}, CaretStep::page, ahead, {8, 27}},
        {"line end", {1, 2}, CaretStep::lineEdge, ahead, {1, 11}},
        {"text beginning", {4, 2}, CaretStep::textEdge, back, {0, 0}},
    };
    const DiffDocumentPtr document = diffDocument(testing::oneFileDiff());
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(stepped(*document, row.from, row.step, row.direction, 10), row.to);
    }
}

} // namespace
} // namespace kestor

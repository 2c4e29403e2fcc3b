#include "sample_diffs.h"
#include "support/window_test.h"
#include "ui/diff/diff_document.h"
#include "ui/diff/text_selection.h"

namespace kestor {
namespace {

TEST(TextSelection, CopiesTextWithoutMarkers) {
    const Rows<TextPosition, TextPosition, QString> rows{
        {"within a line", {1, 0}, {1, 6}, u"second"_s},
        {"backwards over lines", {2, 6}, {0, 3}, u"st\nsecond line\nsecond"_s},
        {"over hunks", {4, 1}, {5, 4}, u"fourth\nlast"_s},
        {"empty", {3, 2}, {3, 2}, u""_s},
        {"ends with a line feed", {3, 0}, {4, 0}, u"third\n"_s},
    };
    const DiffDocumentPtr document = diffDocument(oneFileDiff());
    for (const auto &[name, anchor, caret, text] : rows)
        EXPECT_EQ(selectedText(*document, {anchor, caret}), text);
    EXPECT_EQ(selectedText(*document, wholeText(*document)),
              u"first\nsecond line\nsecond long line\nthird\n\tfourth\nlast\n\t日本 x\nend\n"
              "\\ No newline at end of file"_s);
    EXPECT_EQ(selectedText(*document, wordAt(*document, {2, 9})), u"long"_s);
}

TEST(TextSelection, StepsOverLinesAndEdges) {
    constexpr auto ahead = CaretDirection::ahead;
    constexpr auto back = CaretDirection::back;
    const Rows<TextPosition, CaretStep, CaretDirection, TextPosition> rows{
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
    const DiffDocumentPtr document = diffDocument(oneFileDiff());
    for (const auto &[name, from, step, direction, to] : rows)
        EXPECT_EQ(stepped(*document, from, step, direction, 10), to);
}

} // namespace
} // namespace kestor

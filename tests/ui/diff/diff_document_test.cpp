#include "sample_diffs.h"
#include "support/window_test.h"
#include "ui/diff/diff_document.h"
#include "ui/diff/text_selection.h"

namespace kestor {
namespace {

TEST(TextSelection, StepsOverLinesAndEdges) {
    constexpr auto ahead = CaretDirection::ahead;
    constexpr auto back = CaretDirection::back;
    const Rows<TextPosition, CaretStep, CaretDirection, TextPosition> rows{
        {"on to the next line", {0, 5}, CaretStep::character, ahead, {1, 0}},
        {"not before the text", {0, 0}, CaretStep::character, back, {0, 0}},
        {"not past the text", {8, 27}, CaretStep::word, ahead, {8, 27}},
        {"down keeps the column", {2, 9}, CaretStep::line, ahead, {3, 5}},
        {"page past the end", {3, 0}, CaretStep::page, ahead, {8, 27}},
        {"line end", {1, 2}, CaretStep::lineEdge, ahead, {1, 11}},
    };
    const DiffDocumentPtr document = diffDocument(oneFileDiff());
    for (const auto &[name, from, step, direction, to] : rows)
        EXPECT_EQ(stepped(*document, from, step, direction, 10), to);
}

} // namespace
} // namespace kestor

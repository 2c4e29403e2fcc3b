#include "sample_diffs.h"
#include "support/window_test.h"
#include "ui/diff/diff_rows.h"

namespace kestor {

void PrintTo(const DiffRow &row, std::ostream *out) {
    *out << "kind " << int(row.kind) << " file " << row.file << " hunk " << row.hunk << " line " << row.line;
}

namespace {

using Shown = std::vector<DiffRow>;

constexpr DiffRowKind head = DiffRowKind::fileHead;
constexpr DiffRowKind hunkHead = DiffRowKind::hunkHead;
constexpr DiffRowKind textLine = DiffRowKind::line;

Shown all(const DiffRows &rows) {
    Shown found;
    for (qint64 row = 0; row < rows.count(); ++row)
        found.push_back(rows.at(row));
    return found;
}

/// Every row stands where the ones before it end, and each of its pixels leads back to it.
void expectPlacesFit(const DiffRows &rows, int margin) {
    qint64 y = margin;
    for (qint64 row = 0; row < rows.count(); ++row) {
        EXPECT_EQ(rows.top(row), y) << "row " << row;
        EXPECT_EQ(rows.rowAt(y), row);
        y += rows.rowHeight(row);
        EXPECT_EQ(rows.rowAt(y - 1), row);
        const DiffRow shown = rows.at(row);
        EXPECT_TRUE(shown.line < 0 || rows.rowOfLine(shown.line) == row);
        EXPECT_TRUE(shown.kind != hunkHead || rows.rowOfHunk(shown.hunk) == row);
    }
    EXPECT_EQ(rows.top(rows.count()), y);
    EXPECT_EQ(rows.height(), y + margin);
}

TEST(DiffRows, SeveralFilesHaveHeadsAndFold) {
    const DiffDocumentPtr document = diffDocument(testing::threeFileDiff());
    const Shown first{{head, 0},           {hunkHead, 0, 0}, {textLine, 0, 0, 0}, {textLine, 0, 0, 1},
                      {textLine, 0, 0, 2}, {hunkHead, 0, 1}, {textLine, 0, 1, 3}};
    const Shown second{{head, 1}, {DiffRowKind::noText, 1}};
    const Shown third{{head, 2}, {hunkHead, 2, 2}, {textLine, 2, 2, 4}, {textLine, 2, 2, 5}};
    const auto joined = [](std::initializer_list<Shown> parts) {
        Shown rows;
        for (const Shown &part : parts)
            rows.insert(rows.end(), part.begin(), part.end());
        return rows;
    };
    const Rows<QStringList, Shown> table{
        {"all open", {}, joined({first, second, third})},
        {"first folded", u"one.txt"_list, joined({{{head, 0}}, second, third})},
        {"second folded", u"logo.png"_list, joined({first, {{head, 1}}, third})},
    };
    for (const auto &[name, wantedFolded, expected] : table) {
        const DiffRows rows(document, RowHeights(), QSet<QString>(wantedFolded.begin(), wantedFolded.end()));
        EXPECT_EQ(all(rows), expected);
        expectPlacesFit(rows, 0);
        EXPECT_EQ(rows.hunkNear(rows.rowOfFile(1)), 2) << "the next hunk of a head without hunks";
    }
    const DiffRows folded(document, RowHeights(), {u"one.txt"_s});
    EXPECT_EQ(folded.rowOfLine(3), 0) << "a folded line stands at its file's head";
}

} // namespace
} // namespace kestor

#include "support/window_test.h"
#include "ui/diff/long_lines.h"
#include "ui/diff/text_columns.h"

#include <QString>

namespace kestor {
namespace {

TEST(TextColumns, CountWhatTheTextTakesOnTheGrid) {
    const Rows<QString, qint64> rows{
        {"empty", u""_s, 0},
        {"tab reaches to the next stop", u"abc\tx"_s, 9},
        {"tab at a stop is eight wide", u"12345678\t"_s, 16},
        {"East Asian characters are two wide", u"日本x"_s, 5},
        {"combining mark takes nothing", u"e\u0301x"_s, 2},
        {"emoji outside the basic plane", u"😀x"_s, 3},
        {"control character is one sign", u"a\rb"_s, 3},
        {"reordering character is seen", u"a\u202Eb"_s, 3},
        {"half a surrogate pair", QString(QChar(0xD83D)) + u'x', 2},
    };
    for (const auto &[name, givenText, columns] : rows)
        EXPECT_EQ(columnAfter(givenText), columns);
}

TEST(TextColumns, HiddenCharactersAreShownAsSigns) {
    EXPECT_EQ(cellAt(u"\x1b", 0, 0).shown, U'␛');
    EXPECT_EQ(cellAt(u"\u202E", 0, 0).shown, U'\uFFFD');
    EXPECT_EQ(cellAt(u"\u200D", 0, 0).columns, 0) << "joins emoji";
}

TEST(TextColumns, CaretStepsOverWholeCharactersAndWords) {
    const Rows<QString, qsizetype, qsizetype, qsizetype, qsizetype, qsizetype> rows{
        {"in a word", u"one two_2 = x"_s, 5, 6, 4, 10, 4},
        {"signs are a class of their own", u"a += b"_s, 2, 3, 1, 5, 0},
        {"surrogate pair", u"😀x"_s, 2, 3, 0, 3, 0},
        {"combining mark stays with its letter", u"ae\u0301b"_s, 1, 3, 0, 4, 0},
        {"at the end", u"ab"_s, 2, 2, 1, 2, 0},
        {"at the beginning", u"  ab"_s, 0, 1, 0, 2, 0},
    };
    for (const auto &[name, text, from, caretAhead, caretBack, wordAhead, wordBack] : rows) {
        EXPECT_EQ(nextCaret(text, from), caretAhead);
        EXPECT_EQ(previousCaret(text, from), caretBack);
        EXPECT_EQ(nextWord(text, from), wordAhead);
        EXPECT_EQ(previousWord(text, from), wordBack);
    }
}

TEST(LongLines, AgreeWithReadingFromTheBeginning) {
    QString text = u"short\n"_s;
    const qsizetype begin = text.size();
    for (int piece = 0; piece < 3000; ++piece)
        text += u"ab\tü日😀e\u0301 "_s;
    const QStringView line = QStringView(text).sliced(begin);
    LongLines lines;
    EXPECT_EQ(lines.add(QStringView(text).first(begin - 1)), 5);
    EXPECT_EQ(lines.add(line), columnAfter(line));
    for (qsizetype index = 0; index < line.size(); index = nextCaret(line, index + 1500)) {
        const qint64 column = columnAfter(line.first(index));
        EXPECT_EQ(lines.columnOf(line, index), column);
        EXPECT_EQ(lines.positionAt(line, column).index, positionAtColumn(line, column).index);
    }
    EXPECT_EQ(lines.positionAt(QStringView(text).first(5), 99).index, 5) << "a short line before a long one";
}

} // namespace
} // namespace kestor

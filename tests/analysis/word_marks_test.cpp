#include "analysis/word_marks.h"
#include "support/test.h"

namespace kestor {
namespace {

/// The line with its marks in brackets.
QString marked(const QString &line, const std::vector<TextRange> &marks) {
    QString result;
    qsizetype done = 0;
    for (const TextRange &mark : marks) {
        result += line.sliced(done, mark.start - done) + u'[' + line.sliced(mark.start, mark.end() - mark.start) + u']';
        done = mark.end();
    }
    return result + line.sliced(done);
}

TEST(WordMarks, MarkWhatChanged) {
    const Rows<QString, QString, QString, QString> rows{
        {"one word", u"return a_1 < 5;"_s, u"return b < 5;"_s, u"return [a_1] < 5;"_s, u"return [b] < 5;"_s},
        {"added words", u"f(int a) const"_s, u"f(int a, bool b)"_s, u"f(int a) [const]"_s, u"f(int a[, bool b])"_s},
        {"signs and a word become one", u"if (n > 5) x"_s, u"if (n >= c_.max) x"_s, u"if (n > [5]) x"_s,
         u"if (n >[= c_.max]) x"_s},
        {"a word between does not", u"a same b"_s, u"c same d"_s, u"[a] same [b]"_s, u"[c] same [d]"_s},
        {"longer words hold lines together", u"x value y"_s, u"y value x"_s, u"[x] value [y]"_s, u"[y] value [x]"_s},
        {"letters of all scripts", u"größe = é́"_s, u"größer = é"_s, u"[größe = é́]"_s, u"[größer = é]"_s},
        {"whole characters", u"a 🚀 b"_s, u"a 🛰 b"_s, u"a [🚀] b"_s, u"a [🛰] b"_s},
        {"repeated ends are not used twice", u"aa a"_s, u"aa a a"_s, u"aa a"_s, u"aa a [a]"_s},
    };
    for (const auto &[name, removed, added, markedRemoved, markedAdded] : rows) {
        const WordMarks marks = wordMarks(removed, added);
        EXPECT_EQ(marked(removed, marks.removed), markedRemoved);
        EXPECT_EQ(marked(added, marks.added), markedAdded);
    }
}

using Lines = std::vector<QString>;
using Pairs = std::vector<qsizetype>;

Pairs pairs(const Lines &removed, const Lines &added) {
    const std::vector<QStringView> removedViews(removed.begin(), removed.end());
    const std::vector<QStringView> addedViews(added.begin(), added.end());
    return pairedLines(removedViews, addedViews);
}

TEST(PairedLines, AreSimilarAndInOrder) {
    const Rows<Lines, Lines, Pairs> rows{
        {"exactly 0.4", {u"abcd xxxxxx"_s}, {u"abcd"_s}, {0}},
        {"below 0.4", {u"abcd xxxxxxx"_s}, {u"abcd"_s}, {-1}},
        {"blanks and signs do not count", {u"    (a);"_s}, {u"    (b);"_s}, {-1}},
        {"a word counts as often as both have it", {u"ab ab ab ab ab"_s}, {u"ab"_s}, {-1}},
        {"the most similar one", {u"int value = 1;"_s}, {u"int other = value;"_s, u"int value = 2;"_s}, {1}},
        {"the first of equal ones", {u"if (ready(5))"_s}, {u"if (ready(x))"_s, u"y"_s, u"if (ready(x))"_s}, {0}},
        {"no crossing", {u"alpha beta"_s, u"gamma delta"_s}, {u"gamma delta x"_s, u"alpha beta x"_s}, {-1, 0}},
        {"long lines", {QString(2001, u'a'), u"same word"_s}, {QString(2001, u'a'), u"same word!"_s}, {-1, 1}},
    };
    for (const auto &[name, removed, added, expected] : rows)
        EXPECT_EQ(pairs(removed, added), expected);
}

} // namespace
} // namespace kestor

#include "support/window_test.h"
#include "ui/list/list_filter.h"
#include "ui/list/path_runs.h"

namespace kestor {
namespace {

TEST(ListFilter, MatchesWhenAllWordsOccurInAnyOrderAndCase) {
    const Rows<QString, QString, bool> rows{
        {"nothing typed matches all", u""_s, u"a/b.c"_s, true},
        {"only blanks match all", u"  "_s, u"a/b.c"_s, true},
        {"case does not count", u"RETRY"_s, u"src/net/retry_policy.cpp"_s, true},
        {"case does not count beyond ASCII", u"GRÖSSE"_s, u"src/größse.c"_s, false},
        {"accents fold their case", u"ÄRGER"_s, u"src/ärger.c"_s, true},
        {"words in another order", u"policy net"_s, u"src/net/retry_policy.cpp"_s, true},
        {"one word is missing", u"policy disk"_s, u"src/net/retry_policy.cpp"_s, false},
        {"a word may span folders", u"net/re"_s, u"src/net/retry_policy.cpp"_s, true},
    };
    for (const auto &[name, typed, text, matches] : rows)
        EXPECT_EQ(ListFilter(typed).matches(text), matches);
}

TEST(ListFilter, FindsWhereTheWordsStand) {
    const Rows<QString, QString, QList<TextRange>> rows{
        {"every occurrence", u"a"_s, u"abca"_s, {{0, 1}, {3, 1}}},
        {"overlaps are one range", u"ab bc"_s, u"xabcx"_s, {{1, 3}}},
        {"a word overlapping itself", u"aa"_s, u"aaa"_s, {{0, 3}}},
        {"nothing typed", u""_s, u"abc"_s, {}},
        {"at the end", u"C"_s, u"abc"_s, {{2, 1}}},
    };
    for (const auto &[name, typed, text, ranges] : rows)
        EXPECT_EQ(ListFilter(typed).ranges(text), ranges);
}

TEST(ListFilter, NarrowsOnlyWhenEveryOlderWordIsStillAskedFor) {
    struct Row {
        const char *older;
        const char *newer;
        bool narrows;
    };
    const Row rows[] = {
        {"re", "ret", true},  {"", "r", true},           {"net", "net pol", true}, {"net", "pol NETS", true},
        {"ret", "re", false}, {"net pol", "pol", false}, {"a b", "ab", true},      {"ab", "a b", false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(::testing::Message() << row.older << " then " << row.newer);
        EXPECT_EQ(ListFilter(QString::fromUtf8(row.newer)).narrows(ListFilter(QString::fromUtf8(row.older))),
                  row.narrows);
    }
}

TEST(PathRuns, SplitAtTheFileNameAndAtMatches) {
    const ElidedPath path{u"src/net/"_s, u"netlist.c"_s};
    const QList<TextRun> expected{{u"src/"_s, RunRole::folder},
                                  {u"net"_s, RunRole::match},
                                  {u"/"_s, RunRole::folder},
                                  {u"net"_s, RunRole::match},
                                  {u"list.c"_s, RunRole::name}};
    EXPECT_EQ(pathRuns(path, ListFilter(u"NET"_s)), expected);
    const QList<TextRun> acrossTheSlash{
        {u"src/ne"_s, RunRole::folder}, {u"t/net"_s, RunRole::match}, {u"list.c"_s, RunRole::name}};
    EXPECT_EQ(pathRuns(path, ListFilter(u"t/net"_s)), acrossTheSlash);
}

} // namespace
} // namespace kestor

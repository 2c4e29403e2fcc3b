#include "support/window_test.h"
#include "ui/list/list_filter.h"
#include "ui/list/path_runs.h"
#include "ui/look/elided_path.h"

namespace kestor {
namespace {

TEST(ListFilter, MatchesWhenAllWordsOccurInAnyOrderAndCase) {
    const Rows<QString, QString, bool> rows{
        {"nothing typed matches all", u""_s, u"a/b.c"_s, true},
        {"case does not count beyond ASCII", u"GRÖSSE"_s, u"src/größse.c"_s, false},
        {"accents fold their case", u"ÄRGER"_s, u"src/ärger.c"_s, true},
        {"words in another order", u"policy net"_s, u"src/net/retry_policy.cpp"_s, true},
        {"one word is missing", u"policy disk"_s, u"src/net/retry_policy.cpp"_s, false},
        {"a word may span folders", u"net/re"_s, u"src/net/retry_policy.cpp"_s, true},
    };
    for (const auto &[name, typed, text, matches] : rows)
        EXPECT_EQ(ListFilter(typed).matches(text), matches);
}

TEST(ListFilter, NarrowsOnlyWhenEveryOlderWordIsStillAskedFor) {
    const Rows<QString, bool> rows{
        {"re", u"ret"_s, true},       {"", u"r"_s, true},      {"net", u"net pol"_s, true},
        {"net", u"pol NETS"_s, true}, {"ret", u"re"_s, false}, {"net pol", u"pol"_s, false},
        {"a b", u"ab"_s, true},       {"ab", u"a b"_s, false},
    };
    for (const auto &[older, newer, narrows] : rows)
        EXPECT_EQ(ListFilter(newer).narrows(ListFilter(QString::fromUtf8(older))), narrows) << newer.toStdString();
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

/// Every UTF-16 unit is one pixel wide.
double unitWidth(const QString &text) {
    return static_cast<double>(text.size());
}

TEST(ElidedPath, LosesFoldersFromTheMiddleAndThenTheMiddleOfTheName) {
    const QString longPath = u"src/net/tls/certs/embedded/anchors.inc"_s;
    const Rows<QString, double, QString, QString> rows{
        {"all of it fits exactly", longPath, 38, u"src/net/tls/certs/embedded/"_s, u"anchors.inc"_s},
        {"one folder leaves", longPath, 37, u"src/net/…/certs/embedded/"_s, u"anchors.inc"_s},
        {"only the name", longPath, 13, u"…/"_s, u"anchors.inc"_s},
        {"the name loses its middle", longPath, 12, u"…/"_s, u"ancho….inc"_s},
        {"the extension is kept to the last", longPath, 7, u"…/"_s, u"….inc"_s},
        {"a long ending is no extension", u"minutes.of the last meeting"_s, 9, u""_s, u"minu…ting"_s},
        {"a leading dot starts no extension", u".bashrc"_s, 5, u""_s, u".b…rc"_s},
        {"no half of a character", u"a😀😀😀😀b.c"_s, 7, u""_s, u"a😀…b.c"_s},
        {"a slash at the end belongs to the name", u"a/build/"_s, 8, u"a/"_s, u"build/"_s},
    };
    for (const auto &[name, path, width, folder, file] : rows) {
        const ElidedPath shown = elidedPath(path, width, unitWidth);
        EXPECT_EQ(shown.folder, folder);
        EXPECT_EQ(shown.name, file);
    }
}

} // namespace
} // namespace kestor

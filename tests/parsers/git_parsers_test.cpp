#include "parsers/git_parsers.h"
#include "printed_records.h"
#include "support/test.h"

namespace kestor {
namespace {

TEST(GitParsersTest, theFirstRuleDecidesTheStatus) {
    using Kind = SVNStatusKind;
    const std::pair<Kind, QStringList> rows[] = {
        {Kind::ignored, u"!!"_list},
        {Kind::unversioned, u"??"_list},
        {Kind::added, u"AD|A | A"_list},
        {Kind::conflicted, u"UU|AU|UD|AA|DD"_list},
        {Kind::deleted, u"RD| D"_list},
        {Kind::replaced, u"RM|R "_list},
        {Kind::modified, u"C | M|T |?!|  "_list},
    };
    for (const auto &[kind, letters] : rows) {
        for (const QString &pair : letters)
            EXPECT_EQ(GitParsers::statusKind(pair[0], pair[1]), kind) << qPrintable(pair);
    }
}

TEST(GitParsersTest, readsStatusLines) {
    EXPECT_EQ(printed(GitParsers::parseStatus(uR"(R  old.txt -> new.txt
 M src/a.c
?? build/
??
UU "with \"quotes\".c"

R  "a b" -> "c d"
M  a10
M  A9)")),
              u"A9 modified none - -|a10 modified none - -|build/ unversioned none - -|"
              "c d replaced none - -|new.txt replaced none - -|src/a.c modified none - -|"
              "with \"quotes\".c conflicted none - - tree-conflict"_list);
}

TEST(GitParsersTest, readsLogs) {
    const QString marker = u"--KESTOR-GIT-COMMIT--"_s;
    const Rows<QString, QStringList> rows{
        {"numbers count down, a commit may have no paths",
         marker + u"h1\tme\t2024-05-01T10:20:30+02:00\tfix\ttabs\n\nM\ta.c\nR087\told\tnew\nA\t\"q\\\"\"\n"_s + marker +
             u"h2\tyou\tyesterday\t\n"_s,
         {u"1000000|me|2024-05-01T08:20:30.000Z|fix\ttabs|M a.c file|R new file|A q\" file"_s, u"999999|you|-|"_s}},
        {"a header with missing pieces hides its lines and takes no number",
         u"M\tearly\n"_s + marker + u"h1\tme\tdate\nM\tlost\n"_s + marker + u"h2\t\t\t\nno tab\nM\tkept"_s,
         {u"1000000||-||M kept file"_s}},
        {"nothing", {}, {}},
    };
    for (const auto &[name, text, wantedExpected] : rows)
        EXPECT_EQ(printed(GitParsers::parseLog(text)), wantedExpected);
    EXPECT_EQ(GitParsers::parseLog(marker + u"0123456789abcdef\ta\tb\tc"_s).constFirst().displayRevision(),
              u"0123456"_s);
}

TEST(GitParsersTest, listsTheCurrentBranchThenLocalThenRemoteOnes) {
    const QList<GitBranch> expected{{u"topic"_s, true, false},    {u"main"_s, false, false},
                                    {u"v2"_s, false, false},      {u"v10"_s, false, false},
                                    {u"origin/a"_s, false, true}, {u"origin/main"_s, false, true}};
    EXPECT_EQ(GitParsers::parseBranches(u" \trefs/heads/main\tmain\n"
                                        " \trefs/remotes/origin/HEAD\torigin\n"
                                        " \trefs/remotes/origin/main\torigin/main\n"
                                        " \trefs/heads/v10\tv10\n"
                                        " \trefs/remotes/origin/a\torigin/a\n"
                                        "*\trefs/heads/topic\ttopic\n"
                                        "\n*\tbroken\n"
                                        " \trefs/heads/v2\tv2"),
              expected);
}

} // namespace
} // namespace kestor

#include "parsers/git_parsers.h"
#include "printed_records.h"
#include "support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::printed;

TEST(GitParsersTest, theFirstRuleDecidesTheStatus) {
    struct Row {
        const char *letters;
        SVNStatusKind kind;
    };
    const Row rows[] = {
        {"!!", SVNStatusKind::ignored},    {"??", SVNStatusKind::unversioned}, {"UU", SVNStatusKind::conflicted},
        {"AU", SVNStatusKind::conflicted}, {"UD", SVNStatusKind::conflicted},  {"AA", SVNStatusKind::conflicted},
        {"DD", SVNStatusKind::conflicted}, {"AD", SVNStatusKind::added},       {"A ", SVNStatusKind::added},
        {" A", SVNStatusKind::added},      {"RD", SVNStatusKind::deleted},     {" D", SVNStatusKind::deleted},
        {"RM", SVNStatusKind::replaced},   {"R ", SVNStatusKind::replaced},    {"C ", SVNStatusKind::modified},
        {" M", SVNStatusKind::modified},   {"T ", SVNStatusKind::modified},    {"?!", SVNStatusKind::modified},
        {"  ", SVNStatusKind::modified},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.letters);
        EXPECT_EQ(GitParsers::statusKind(QLatin1Char(row.letters[0]), QLatin1Char(row.letters[1])), row.kind);
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
              QStringList({u"A9 modified none - -"_s, u"a10 modified none - -"_s, u"build/ unversioned none - -"_s,
                           u"c d replaced none - -"_s, u"new.txt replaced none - -"_s, u"src/a.c modified none - -"_s,
                           u"with \"quotes\".c conflicted none - - tree-conflict"_s}));
}

TEST(GitParsersTest, unquotesPaths) {
    struct Row {
        const char *name;
        QString quoted;
        QString path;
    };
    const Row rows[] = {
        {"escapes lose the backslash only", uR"("a\tb\303\\\"")"_s, uR"(atb303\")"_s},
        {"a backslash at the end stays", uR"("a\")"_s, uR"(a\)"_s},
        {"a quote on one side is no quoting", uR"("a\b)"_s, uR"("a\b)"_s},
        {"a single quote character", u"\""_s, u"\""_s},
        {"empty", u"\"\""_s, u""_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(GitParsers::unquotePath(row.quoted), row.path);
    }
}

TEST(GitParsersTest, readsLogs) {
    struct Row {
        const char *name;
        QString text;
        QStringList expected;
    };
    const QString marker = u"--KESTOR-GIT-COMMIT--"_s;
    const Row rows[] = {
        {"numbers count down, a commit may have no paths",
         marker + u"h1\tme\t2024-05-01T10:20:30+02:00\tfix\ttabs\n\nM\ta.c\nR087\told\tnew\nA\t\"q\\\"\"\n"_s + marker +
             u"h2\tyou\tyesterday\t\n"_s,
         {u"1000000|me|2024-05-01T08:20:30.000Z|fix\ttabs|M a.c file|R new file|A q\" file"_s, u"999999|you|-|"_s}},
        {"a header with missing pieces hides its lines and takes no number",
         u"M\tearly\n"_s + marker + u"h1\tme\tdate\nM\tlost\n"_s + marker + u"h2\t\t\t\nno tab\nM\tkept"_s,
         {u"1000000||-||M kept file"_s}},
        {"nothing", {}, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(printed(GitParsers::parseLog(row.text)), row.expected);
    }
    EXPECT_EQ(GitParsers::parseLog(marker + u"0123456789abcdef\ta\tb\tc"_s).constFirst().displayRevision(),
              u"0123456"_s);
}

TEST(GitParsersTest, readsNameStatusLines) {
    struct Row {
        const char *name;
        QStringView line;
        std::optional<SVNPathChange> expected;
    };
    const Row rows[] = {
        {"new name of a copy", u"C100\ta\tb", SVNPathChange{u"C"_s, u"b"_s, u"file"_s}},
        {"a rename without a new name", u"R100\ta", SVNPathChange{u"R"_s, u"a"_s, u"file"_s}},
        {"a third piece of another action", u"M\ta\tb", SVNPathChange{u"M"_s, u"a"_s, u"file"_s}},
        {"no action", u"\ta", SVNPathChange{u""_s, u"a"_s, u"file"_s}},
        {"no tab", u"M a", std::nullopt},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(GitParsers::parseNameStatusLine(row.line), row.expected);
    }
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

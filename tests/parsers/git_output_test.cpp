#include "described_diff.h"
#include "parsers/git_parsers.h"
#include "parsers/line_changes.h"
#include "parsers/unified_diff_parser.h"
#include "printed_records.h"
#include "support/printers.h"
#include "support/temp_tree.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::printed;
using testing::runTool;
using testing::TempTree;

/// What the real `git` prints.
class GitOutputTest : public ::testing::Test {
protected:
    void SetUp() override {
        git({u"init"_s, u"--initial-branch=main"_s});
        git({u"config"_s, u"user.name"_s, u"Anna Ärmel"_s});
        git({u"config"_s, u"user.email"_s, u"anna@example.org"_s});
        tree.write(u"a b.c"_s, "one\ntwo\nthree\nfour\nfive\n");
        tree.write(u"src/gone.c"_s, "x\n");
        tree.write(u"crlf.txt"_s, "one\r\ntwo\r\n");
        tree.write(u"old.txt"_s, "a longer content\nthat stays as it is\n");
        commitAll(u"first\ttab"_s);
    }

    void commitAll(const QString &message) {
        git({u"add"_s, u"--all"_s});
        git({u"commit"_s, u"-m"_s, message});
    }

    QString git(const QStringList &arguments) { return QString::fromUtf8(runTool(u"git"_s, arguments, tree.path())); }

    void changeWorkTree() {
        tree.write(u"a b.c"_s, "one\n2\nthree\nfour\nfive\n-- six");
        tree.write(u"crlf.txt"_s, "one\r\nzwei\r\n");
        git({u"rm"_s, u"src/gone.c"_s});
        git({u"mv"_s, u"old.txt"_s, u"new name.txt"_s});
        tree.write(u"image.png"_s, QByteArray("\0\1\2", 3));
        git({u"add"_s, u"image.png"_s});
        tree.write(u"untracked/x"_s, "new\n");
    }

    TempTree tree;
};

TEST_F(GitOutputTest, status) {
    changeWorkTree();
    EXPECT_EQ(printed(GitParsers::parseStatus(git({u"status"_s, u"--porcelain=v1"_s, u"--untracked-files=normal"_s}))),
              QStringList({u"a b.c modified none - -"_s, u"crlf.txt modified none - -"_s, u"image.png added none - -"_s,
                           u"new name.txt replaced none - -"_s, u"src/gone.c deleted none - -"_s,
                           u"untracked/ unversioned none - -"_s}));
}

TEST_F(GitOutputTest, log) {
    changeWorkTree();
    commitAll(u"second\n\nwith a body"_s);
    QList<LogEntry> entries =
        GitParsers::parseLog(git({u"log"_s, u"--format=--KESTOR-GIT-COMMIT--%H%x09%an%x09%aI%x09%s"_s,
                                  u"--name-status"_s, u"--date=iso-strict"_s}));
    for (LogEntry &entry : entries) {
        ASSERT_TRUE(entry.date);
        EXPECT_LT(qAbs(entry.date->secsTo(QDateTime::currentDateTimeUtc())), 600);
        entry.date.reset();
        EXPECT_EQ(entry.commitHash.value_or(QString()).size(), 40);
    }
    EXPECT_EQ(printed(entries),
              QStringList({u"1000000|Anna Ärmel|-|second|M a b.c file|M crlf.txt file|A image.png file|"
                           "R new name.txt file|D src/gone.c file|A untracked/x file"_s,
                           u"999999|Anna Ärmel|-|first\ttab|A a b.c file|A crlf.txt file|A old.txt file|"
                           "A src/gone.c file"_s}));
    EXPECT_EQ(numstatLineChanges(git({u"log"_s, u"--numstat"_s, u"--format="_s})), (LineChangeSummary{14, 3}));
}

TEST_F(GitOutputTest, branches) {
    git({u"branch"_s, u"v10"_s});
    git({u"branch"_s, u"v9"_s});
    git({u"clone"_s, u"--quiet"_s, u"."_s, u"clone"_s});
    const QByteArray output = runTool(
        u"git"_s,
        {u"for-each-ref"_s, u"--format=%(HEAD)%09%(refname)%09%(refname:short)"_s, u"refs/heads"_s, u"refs/remotes"_s},
        tree.path(u"clone"_s));
    const QList<GitBranch> expected{{u"main"_s, true, false},
                                    {u"origin/main"_s, false, true},
                                    {u"origin/v9"_s, false, true},
                                    {u"origin/v10"_s, false, true}};
    EXPECT_EQ(GitParsers::parseBranches(QString::fromUtf8(output)), expected);
}

TEST_F(GitOutputTest, diff) {
    changeWorkTree();
    const ParsedDiff diff = UnifiedDiffParser::parse(withLineFeeds(git({u"diff"_s, u"HEAD"_s, u"--"_s})));
    EXPECT_EQ(testing::described(diff), QStringList({u"file 0 [a b.c] [a b.c]"_s,
                                                     u"hunk 0 [@@ -1,5 +1,6 @@]"_s,
                                                     u"0: 1 1  [one]"_s,
                                                     u"1: 2 - -[two]"_s,
                                                     u"2: - 2 +[2]"_s,
                                                     u"3: 3 3  [three]"_s,
                                                     u"4: 4 4  [four]"_s,
                                                     u"5: 5 5  [five]"_s,
                                                     u"6: - 6 +[-- six]"_s,
                                                     u"7: - - [\\ No newline at end of file]"_s,
                                                     u"+2 -1"_s,
                                                     u"file 1 [crlf.txt] [crlf.txt]"_s,
                                                     u"hunk 1 [@@ -1,2 +1,2 @@]"_s,
                                                     u"8: 1 1  [one]"_s,
                                                     u"9: 2 - -[two]"_s,
                                                     u"10: - 2 +[zwei]"_s,
                                                     u"+1 -1"_s,
                                                     u"file 2 [image.png] [image.png]"_s,
                                                     u"+0 -0"_s,
                                                     u"file 3 [old.txt] [new name.txt]"_s,
                                                     u"+0 -0"_s,
                                                     u"file 4 [src/gone.c] [/dev/null]"_s,
                                                     u"hunk 2 [@@ -1 +0,0 @@]"_s,
                                                     u"11: 1 - -[x]"_s,
                                                     u"+0 -1"_s}));
}

} // namespace
} // namespace kestor

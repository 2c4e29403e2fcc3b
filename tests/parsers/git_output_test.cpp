#include "described_diff.h"
#include "parsers/git_parsers.h"
#include "parsers/line_changes.h"
#include "parsers/unified_diff_parser.h"
#include "printed_records.h"
#include "support/temp_tree.h"
#include "support/test.h"

namespace kestor {
namespace {

/// What the real `git` prints.
class GitOutputTest : public ::testing::Test {
protected:
    void SetUp() override {
        git(u"init|--initial-branch=main"_list);
        git(u"config|user.name|Anna Ärmel"_list);
        git(u"config|user.email|anna@example.org"_list);
        tree.writeAll({{u"a b.c"_s, "one\ntwo\nthree\nfour\nfive\n"},
                       {u"src/gone.c"_s, "x\n"},
                       {u"crlf.txt"_s, "one\r\ntwo\r\n"},
                       {u"old.txt"_s, "a longer content\nthat stays as it is\n"}});
        commitAll(u"first\ttab"_s);
    }

    void commitAll(const QString &message) {
        git(u"add|--all"_list);
        git({u"commit"_s, u"-m"_s, message});
    }

    QString git(const QStringList &arguments) { return QString::fromUtf8(runTool(u"git"_s, arguments, tree.path())); }

    void changeWorkTree() {
        tree.writeAll({{u"a b.c"_s, "one\n2\nthree\nfour\nfive\n-- six"}, {u"crlf.txt"_s, "one\r\nzwei\r\n"}});
        git(u"rm|src/gone.c"_list);
        git(u"mv|old.txt|new name.txt"_list);
        tree.write(u"image.png"_s, QByteArray("\0\1\2", 3));
        git(u"add|image.png"_list);
        tree.write(u"untracked/x"_s, "new\n");
    }

    TempTree tree;
};

TEST_F(GitOutputTest, status) {
    changeWorkTree();
    EXPECT_EQ(printed(GitParsers::parseStatus(git(u"status|--porcelain=v1|--untracked-files=normal"_list))),
              u"a b.c modified none - -|crlf.txt modified none - -|"
              "image.png added none - -|new name.txt replaced none - -|"
              "src/gone.c deleted none - -|untracked/ unversioned none - -"_list);
}

TEST_F(GitOutputTest, log) {
    changeWorkTree();
    commitAll(u"second\n\nwith a body"_s);
    QList<LogEntry> entries =
        GitParsers::parseLog(git(u"log|--format=--KESTOR-GIT-COMMIT--%H%x09%an%x09%aI%x09%s|--name-status|"
                                 "--date=iso-strict"_list));
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
    EXPECT_EQ(numstatLineChanges(git(u"log|--numstat|--format="_list)), (LineChangeSummary{14, 3}));
}

TEST_F(GitOutputTest, diff) {
    changeWorkTree();
    const ParsedDiff diff = UnifiedDiffParser::parse(withLineFeeds(git(u"diff|HEAD|--"_list)));
    EXPECT_EQ(described(diff), u"file 0 [a b.c] [a b.c]|hunk 0 [@@ -1,5 +1,6 @@]|0: 1 1  [one]|"
                               "1: 2 - -[two]|2: - 2 +[2]|3: 3 3  [three]|4: 4 4  [four]|5: 5 5  [five]|"
                               "6: - 6 +[-- six]|7: - - [\\ No newline at end of file]|+2 -1|"
                               "file 1 [crlf.txt] [crlf.txt]|hunk 1 [@@ -1,2 +1,2 @@]|8: 1 1  [one]|"
                               "9: 2 - -[two]|10: - 2 +[zwei]|+1 -1|file 2 [image.png] [image.png]|+0 -0|"
                               "file 3 [old.txt] [new name.txt]|+0 -0|file 4 [src/gone.c] [/dev/null]|"
                               "hunk 2 [@@ -1 +0,0 @@]|11: 1 - -[x]|+0 -1"_list);
}

} // namespace
} // namespace kestor

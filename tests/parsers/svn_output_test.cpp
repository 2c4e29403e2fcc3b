#include "parsers/line_changes.h"
#include "parsers/svn_xml_parsers.h"
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

/// What the real `svn` prints for a working copy with one change of each kind.
class SvnOutputTest : public ::testing::Test {
protected:
    void SetUp() override {
        runTool(u"svnadmin"_s, {u"create"_s, u"repo"_s}, tree.path());
        checkOut(u"wc"_s);
        tree.write(u"wc/file2.txt"_s, "one\ntwo\nthree\n");
        tree.write(u"wc/file10.txt"_s, "same\n");
        tree.write(u"wc/Gone & <lost>.txt"_s, "x");
        tree.write(u"wc/dir/größe.txt"_s, "x\n");
        svn({u"add"_s, u"--force"_s, u"."_s});
        svn({u"commit"_s, u"--username"_s, u"anna"_s, u"-m"_s, u"  first\n\nsecond line \n"_s});
        checkOut(u"other"_s);
    }

    void checkOut(const QString &folder) {
        runTool(u"svn"_s, {u"checkout"_s, u"file://"_s + tree.path(u"repo"_s), folder}, tree.path());
    }

    QByteArray svn(const QStringList &arguments, const QString &folder = u"wc"_s) {
        return runTool(u"svn"_s, arguments, tree.path(folder));
    }

    void changeWorkingCopy() {
        tree.write(u"wc/file2.txt"_s, "one\n2\nthree\nfour");
        tree.write(u"wc/new folder/a.c"_s);
        tree.write(u"wc/added@2x.txt"_s, "a\nb\n");
        svn({u"add"_s, u"added@2x.txt@"_s});
        svn({u"delete"_s, u"Gone & <lost>.txt"_s});
        svn({u"propset"_s, u"note"_s, u"text"_s, u"file10.txt"_s});
        svn({u"propset"_s, u"svn:ignore"_s, u"*.o"_s, u"."_s});
        tree.write(u"wc/x.o"_s);
    }

    TempTree tree;
};

TEST_F(SvnOutputTest, status) {
    changeWorkingCopy();
    EXPECT_EQ(
        printed(StatusParser::parse(svn({u"status"_s, u"--xml"_s, u"--no-ignore"_s}))),
        QStringList({u". normal modified 0 -"_s, u"added@2x.txt added none -1 -"_s, u"file2.txt modified none 1 anna"_s,
                     u"file10.txt normal modified 1 anna"_s, u"Gone & <lost>.txt deleted none 1 anna"_s,
                     u"new folder unversioned none - -"_s, u"x.o ignored none - -"_s}));
}

TEST_F(SvnOutputTest, statusWithUpdates) {
    tree.write(u"other/file2.txt"_s, "from elsewhere\n");
    tree.write(u"other/dir/b.txt"_s);
    svn({u"add"_s, u"dir/b.txt"_s}, u"other"_s);
    svn({u"delete"_s, u"file10.txt"_s}, u"other"_s);
    svn({u"commit"_s, u"--username"_s, u"bert"_s, u"-m"_s, u"more"_s}, u"other"_s);
    tree.write(u"wc/mine.txt"_s);
    const RemoteStatus status = RemoteStatusParser::parse(svn({u"status"_s, u"--xml"_s, u"--show-updates"_s}));
    EXPECT_EQ(status.repositoryRevision, 2);
    EXPECT_EQ(printed(status.items),
              QStringList({u"dir modified none 1 anna"_s, u"dir/b.txt added none - -"_s,
                           u"file2.txt modified none 1 anna"_s, u"file10.txt deleted none 1 anna"_s}));
}

TEST_F(SvnOutputTest, log) {
    svn({u"propset"_s, u"note"_s, u"text"_s, u"dir"_s});
    svn({u"update"_s});
    svn({u"commit"_s, u"--username"_s, u"bert"_s, u"-m"_s, QString()});
    svn({u"update"_s});
    QList<LogEntry> entries = LogParser::parse(svn({u"log"_s, u"--xml"_s, u"--verbose"_s}));
    for (LogEntry &entry : entries) {
        ASSERT_TRUE(entry.date);
        EXPECT_LT(qAbs(entry.date->secsTo(QDateTime::currentDateTimeUtc())), 600);
        entry.date.reset();
    }
    EXPECT_EQ(printed(entries), QStringList({u"2|bert|-||M /dir dir"_s,
                                             u"1|anna|-|  first\n\nsecond line |A /Gone & <lost>.txt file|A /dir dir|"
                                             "A /dir/größe.txt file|A /file10.txt file|A /file2.txt file"_s}));
}

TEST_F(SvnOutputTest, info) {
    svn({u"update"_s});
    tree.write(u"wc/dir/größe.txt"_s, "y\n");
    svn({u"commit"_s, u"--username"_s, u"bert"_s, u"-m"_s, u"m"_s});
    RepositoryInfo info = InfoParser::parse(svn({u"info"_s, u"--xml"_s}));
    EXPECT_TRUE(info.lastChangedDate);
    EXPECT_EQ(info.repositoryUUID.value_or(QString()).size(), 36);
    info.lastChangedDate.reset();
    info.repositoryUUID.reset();
    const QString url = u"file://"_s + tree.path(u"repo"_s);
    EXPECT_EQ(printed(info),
              QStringList({tree.path(u"wc"_s), url, u"^/"_s, url, u"-"_s, u"1"_s, u"1"_s, u"1"_s, u"anna"_s, u"-"_s}));
}

TEST_F(SvnOutputTest, diff) {
    changeWorkingCopy();
    const ParsedDiff diff = UnifiedDiffParser::parse(QString::fromUtf8(svn({u"diff"_s})));
    QStringList files;
    for (const DiffFile &file : diff.files)
        files.append(u"%1 %2 +%3 -%4"_s.arg(file.oldPath, file.newPath).arg(file.additions).arg(file.deletions));
    EXPECT_EQ(files, QStringList({u"Gone & <lost>.txt Gone & <lost>.txt +0 -1"_s, u"added@2x.txt added@2x.txt +2 -0"_s,
                                  u"file10.txt file10.txt +0 -0"_s, u"file2.txt file2.txt +2 -1"_s, u". . +0 -0"_s}));
    EXPECT_EQ(lineChanges(diff), (LineChangeSummary{4, 2}));
}

} // namespace
} // namespace kestor

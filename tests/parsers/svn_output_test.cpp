#include "parsers/line_changes.h"
#include "parsers/svn_xml_parsers.h"
#include "parsers/unified_diff_parser.h"
#include "printed_records.h"
#include "support/temp_tree.h"
#include "support/test.h"

namespace kestor {
namespace {

/// What the real `svn` prints for a working copy with one change of each kind.
class SvnOutputTest : public ::testing::Test {
protected:
    void SetUp() override {
        runTool(u"svnadmin"_s, u"create|repo"_list, tree.path());
        checkOut(u"wc"_s);
        tree.writeAll({{u"wc/file2.txt"_s, "one\ntwo\nthree\n"},
                       {u"wc/file10.txt"_s, "same\n"},
                       {u"wc/Gone & <lost>.txt"_s, "x"},
                       {u"wc/dir/größe.txt"_s, "x\n"}});
        svn(u"add|--force|."_list);
        svn(u"commit|--username|anna|-m|  first\n\nsecond line \n"_list);
        checkOut(u"other"_s);
    }

    void checkOut(const QString &folder) {
        runTool(u"svn"_s, {u"checkout"_s, u"file://"_s + tree.path(u"repo"_s), folder}, tree.path());
    }

    QByteArray svn(const QStringList &arguments, const QString &folder = u"wc"_s) {
        return runTool(u"svn"_s, arguments, tree.path(folder));
    }

    void changeWorkingCopy() {
        tree.writeAll(
            {{u"wc/file2.txt"_s, "one\n2\nthree\nfour"}, {u"wc/new folder/a.c"_s}, {u"wc/added@2x.txt"_s, "a\nb\n"}});
        svn(u"add|added@2x.txt@"_list);
        svn(u"delete|Gone & <lost>.txt"_list);
        svn(u"propset|note|text|file10.txt"_list);
        svn(u"propset|svn:ignore|*.o|."_list);
        tree.write(u"wc/x.o"_s);
    }

    TempTree tree;
};

TEST_F(SvnOutputTest, status) {
    changeWorkingCopy();
    EXPECT_EQ(printed(StatusParser::parse(svn(u"status|--xml|--no-ignore"_list))),
              u". normal modified 0 -|added@2x.txt added none -1 -|"
              "file2.txt modified none 1 anna|file10.txt normal modified 1 anna|"
              "Gone & <lost>.txt deleted none 1 anna|new folder unversioned none - -|"
              "x.o ignored none - -"_list);
}

TEST_F(SvnOutputTest, statusWithUpdates) {
    tree.writeAll({{u"other/file2.txt"_s, "from elsewhere\n"}, {u"other/dir/b.txt"_s}});
    svn({u"add"_s, u"dir/b.txt"_s}, u"other"_s);
    svn({u"delete"_s, u"file10.txt"_s}, u"other"_s);
    svn({u"commit"_s, u"--username"_s, u"bert"_s, u"-m"_s, u"more"_s}, u"other"_s);
    tree.write(u"wc/mine.txt"_s);
    const RemoteStatus status = RemoteStatusParser::parse(svn(u"status|--xml|--show-updates"_list));
    EXPECT_EQ(status.repositoryRevision, 2);
    EXPECT_EQ(printed(status.items), u"dir modified none 1 anna|dir/b.txt added none - -|"
                                     "file2.txt modified none 1 anna|file10.txt deleted none 1 anna"_list);
}

TEST_F(SvnOutputTest, log) {
    svn(u"propset|note|text|dir"_list);
    svn(u"update"_list);
    svn({u"commit"_s, u"--username"_s, u"bert"_s, u"-m"_s, QString()});
    svn(u"update"_list);
    QList<LogEntry> entries = LogParser::parse(svn(u"log|--xml|--verbose"_list));
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
    svn(u"update"_list);
    tree.write(u"wc/dir/größe.txt"_s, "y\n");
    svn(u"commit|--username|bert|-m|m"_list);
    RepositoryInfo info = InfoParser::parse(svn(u"info|--xml"_list));
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
    const ParsedDiff diff = UnifiedDiffParser::parse(QString::fromUtf8(svn(u"diff"_list)));
    QStringList files;
    for (const DiffFile &file : diff.files)
        files.append(u"%1 %2 +%3 -%4"_s.arg(file.oldPath, file.newPath).arg(file.additions).arg(file.deletions));
    EXPECT_EQ(files, u"Gone & <lost>.txt Gone & <lost>.txt +0 -1|added@2x.txt added@2x.txt +2 -0|"
                     "file10.txt file10.txt +0 -0|file2.txt file2.txt +2 -1|. . +0 -0"_list);
    EXPECT_EQ(lineChanges(diff), (LineChangeSummary{4, 2}));
}

} // namespace
} // namespace kestor

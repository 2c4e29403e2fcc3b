#include "controller/file_grouping.h"
#include "controller/history_diff.h"
#include "controller/log_loading.h"
#include "controller/repository_paths.h"
#include "support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

TEST(RepositoryPaths, MapToTheWorkingCopy) {
    struct Row {
        const char *name;
        QString path;
        QString relativeURL;
        QString expected;
    };
    const Row rows[] = {
        {"below the folder", u"/trunk/src/a.c"_s, u"^/trunk"_s, u"src/a.c"_s},
        {"outer slashes", u"//trunk/a//"_s, u"^/trunk/"_s, u"a"_s},
        {"the folder itself", u"/trunk"_s, u"^/trunk"_s, u"."_s},
        {"elsewhere", u"/branches/x/a.c"_s, u"^/trunk"_s, u"branches/x/a.c"_s},
        {"a name that only begins alike", u"/trunk2/a.c"_s, u"^/trunk"_s, u"trunk2/a.c"_s},
        {"the repository's root", u"/trunk/a.c"_s, u"^/"_s, u"trunk/a.c"_s},
        {"unknown folder", u"/trunk/a.c"_s, QString(), u"trunk/a.c"_s},
        {"a folder that a URL escapes", u"/my #%ä/a.c"_s, u"^/my%20%23%25%C3%A4"_s, u"a.c"_s},
        {"the root itself", u"/"_s, u"^/trunk"_s, QString()},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(workingCopyPath(row.path, repositoryFolder(row.relativeURL)).toString(), row.expected);
    }
}

TEST(RepositoryPaths, BecomeURLs) {
    const RepositoryInfo info{.url = u"https://h/r%20x/trunk"_s, .repositoryRoot = u"https://h/r%20x/"_s};
    struct Row {
        const char *name;
        std::optional<QString> url;
        std::optional<QString> expected;
    };
    const Row rows[] = {
        {"repository path", repositoryURLForRepositoryPath(info, u"/trunk/a b#%@2ä?.c"_s, 7),
         u"https://h/r%20x/trunk/a%20b%23%25@2%C3%A4%3F.c@7"_s},
        {"working-copy path", repositoryURLForWorkingCopyPath(info, u"d/a.c"_s, 7), u"https://h/r%20x/trunk/d/a.c@7"_s},
        {"the folder itself", repositoryURLForWorkingCopyPath(info, QString(), 7), u"https://h/r%20x/trunk@7"_s},
        {"nothing known", repositoryURLForRepositoryPath({}, u"/a"_s, 7), std::nullopt},
        {"no URL", repositoryURLForRepositoryPath({.repositoryRoot = u"no url"_s}, u"/a"_s, 7), std::nullopt},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.url, row.expected);
    }
}

LogEntry entryOf(qint64 revision, const QStringList &changes) {
    LogEntry entry{.revision = revision};
    for (const QString &change : changes) {
        const bool isFolder = change.endsWith(u'/');
        entry.paths.append({change.left(1), change.sliced(2), isFolder ? std::optional(u"dir"_s) : std::nullopt});
    }
    return entry;
}

TEST(FileGrouping, OrdersByNewestRevisionThenAsFileManagersDo) {
    const QList<LogEntry> entries{
        entryOf(5, {u"M /trunk/File10"_s, u"M /trunk/file2"_s, u"A /trunk/sub/"_s, u"M /trunk"_s, u"M /trunk/ä1"_s,
                    u"D /branches/x/a.c"_s, u"M /trunk/a"_s}),
        entryOf(9, {u"M /trunk/file2"_s, u"A /trunk/b"_s}),
        entryOf(2, {u"A /trunk/a"_s, u"A /trunk/file2"_s, u"D /trunk/gone"_s}),
    };
    const FileHistory files = groupedByFile(entries, u"^/trunk"_s);
    QStringList rows;
    for (qsizetype i = 0; i < files.size(); ++i) {
        const FileHistoryItem item = files[i];
        QStringList revisions;
        for (qsizetype r = 0; r < item.revisions.size(); ++r)
            revisions.append(item.revisions[r].action + QString::number(item.revisions[r].revision));
        rows.append(item.path + u' ' + revisions.join(u' '));
    }
    EXPECT_EQ(rows, (QStringList{u"b A9"_s, u"a M5 A2"_s, u"ä1 M5"_s, u"branches/x/a.c D5"_s, u"file2 M5 M9 A2"_s,
                                 u"File10 M5"_s, u"gone D2"_s}));
    EXPECT_EQ(files[1].revisions[0].paths, entries[0].paths);
    EXPECT_EQ(files.indexOf(u"File10"_s), 5);
    EXPECT_EQ(files.indexOf(u"trunk"_s), std::nullopt);
}

TEST(HistorySelection, StaysWhereItIsOrGoesToTheNewest) {
    const QList<LogEntry> entries{entryOf(5, {u"M /a"_s}), entryOf(4, {u"A /b"_s}), entryOf(3, {u"A /a"_s})};
    const LoadedHistory loaded{entries, groupedByFile(entries, QString())};
    const LoadedHistory folders{{entryOf(2, {u"A /d/"_s})}, groupedByFile({entryOf(2, {u"A /d/"_s})}, QString())};
    struct Row {
        const char *name;
        const LoadedHistory &history;
        HistorySelection before;
        HistorySelection after;
    };
    const Row rows[] = {
        {"nothing selected", loaded, {}, {u"a"_s, 5}},
        {"both still there", loaded, {u"a"_s, 3}, {u"a"_s, 3}},
        {"a revision of another file", loaded, {u"b"_s, 5}, {u"b"_s, 4}},
        {"a file that is gone", loaded, {u"z"_s, 3}, {u"a"_s, 3}},
        {"no files", folders, {u"a"_s, 3}, {std::nullopt, 2}},
        {"empty log", {}, {u"a"_s, 3}, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(selectionAfterLoad(row.history, row.before), row.after);
    }
}

TEST(HistoryDiff, WithoutARepositoryURLNamesTheWorkingCopyPath) {
    const FileHistoryRevision revision{.revision = 7, .action = u"M"_s, .paths = {{u"M"_s, u"/trunk/a@b.c"_s, {}}}};
    EXPECT_EQ(svnHistoryTarget({}, u"a@b.c"_s, revision), u"a@b.c@"_s);
}

TEST(HistoryDiff, KnowsWhichVersionsThereAre) {
    const RepositoryInfo info{.relativeURL = u"^/t"_s, .repositoryRoot = u"file:///r"_s};
    struct Row {
        const char *name;
        QString action;
        SvnVersions versions;
    };
    const SvnVersion after{u"file:///r/t/a@7"_s, 7};
    const Row rows[] = {
        {"added, perhaps as a copy", u"A"_s, {std::nullopt, after}},
        {"changed, perhaps below a moved folder", u"M"_s, {SvnVersion{u"file:///r/t/a@7"_s, 6}, after}},
        {"replaced by another file", u"R"_s, {SvnVersion{u"file:///r/t/a@6"_s, 6}, after}},
        {"deleted", u"D"_s, {SvnVersion{u"file:///r/t/a@6"_s, 6}, std::nullopt}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const FileHistoryRevision revision{
            .revision = 7, .action = row.action, .paths = {{row.action, u"/t/a"_s, u"file"_s}}};
        EXPECT_EQ(svnVersions(info, u"a"_s, revision), row.versions);
    }
}

} // namespace
} // namespace kestor

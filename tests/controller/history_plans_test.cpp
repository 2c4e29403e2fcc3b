#include "controller/file_grouping.h"
#include "controller/history_diff.h"
#include "controller/log_loading.h"
#include "controller/repository_paths.h"
#include "support/test.h"

namespace kestor {
namespace {

TEST(RepositoryPaths, MapToTheWorkingCopy) {
    const Rows<QString, QString, QString> rows{
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
    for (const auto &[name, path, relativeURL, expected] : rows)
        EXPECT_EQ(workingCopyPath(path, repositoryFolder(relativeURL)).toString(), expected);
}

LogEntry entryOf(qint64 revision, const QStringList &changes) {
    LogEntry entry{.revision = revision};
    for (const QString &change : changes) {
        const bool isFolder = change.endsWith(u'/');
        entry.paths.append({change.left(1), change.sliced(2), isFolder ? std::optional(u"dir"_s) : std::nullopt});
    }
    return entry;
}

TEST(HistorySelection, StaysWhereItIsOrGoesToTheNewest) {
    const QList<LogEntry> entries{entryOf(5, {u"M /a"_s}), entryOf(4, {u"A /b"_s}), entryOf(3, {u"A /a"_s})};
    const LoadedHistory loaded{entries, groupedByFile(entries, QString())};
    const LoadedHistory folders{{entryOf(2, {u"A /d/"_s})}, groupedByFile({entryOf(2, {u"A /d/"_s})}, QString())};
    const Rows<LoadedHistory, HistorySelection, HistorySelection> rows{
        {"nothing selected", loaded, {}, {u"a"_s, 5}},
        {"both still there", loaded, {u"a"_s, 3}, {u"a"_s, 3}},
        {"a revision of another file", loaded, {u"b"_s, 5}, {u"b"_s, 4}},
        {"a file that is gone", loaded, {u"z"_s, 3}, {u"a"_s, 3}},
        {"no files", folders, {u"a"_s, 3}, {std::nullopt, 2}},
        {"empty log", {}, {u"a"_s, 3}, {}},
    };
    for (const auto &[name, history, before, wantedAfter] : rows)
        EXPECT_EQ(selectionAfterLoad(history, before), wantedAfter);
}

} // namespace
} // namespace kestor

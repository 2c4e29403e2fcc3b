#include "history_fixture.h"
#include "support/printers.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::awaited;
using testing::GitFixture;
using testing::HistoryFixture;
using testing::MovedFiles;
using testing::runTool;
using testing::SvnFixture;

constexpr qint64 newestCommit = 1000000;

TEST(History, ListsTheFilesOfASubversionProjectByTheirNewestRevision) {
    const MovedFiles repository;
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::svn);
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.files(),
              (QStringList{u"new/size.c: D 7, A 6"_s, u"new/Größe.c: D 6, M 5"_s, u"icon@2x #1 50%.txt: M 3, A 2"_s,
                           u"file2: A 2"_s, u"file10: A 2"_s, u"old/Größe.c: A 2"_s}));
    EXPECT_EQ(f.app.selectedHistoryPath.value(), u"new/size.c"_s);
    EXPECT_EQ(f.app.selectedRevision.value(), 7);
    EXPECT_EQ(f.app.historyDiffID.value(), (FileRevisionID{u"new/size.c"_s, 7}));
    EXPECT_EQ(f.app.historyLineSummary.value(), (LineChangeSummary{2, 0})) << "what is left of all changes";
    EXPECT_EQ(f.app.busyMessage.value(), std::nullopt);
}

TEST(History, ShowsWhatARevisionChangedInAFileWhateverBecameOfIt) {
    struct Row {
        const char *name;
        QString path;
        qint64 revision;
        QStringList lines;
    };
    const Row rows[] = {
        {"deleted", u"new/size.c"_s, 7, {u"-x"_s, u"-y"_s}},
        {"renamed without a change", u"new/size.c"_s, 6, {}},
        {"renamed away", u"new/Größe.c"_s, 6, {u"-x"_s, u"-y"_s}},
        {"moved with its folder since", u"old/Größe.c"_s, 2, {u"+x"_s}},
        {"changed below a moved folder", u"new/Größe.c"_s, 5, {u"+y"_s}},
        {"replaced by a folder since", u"icon@2x #1 50%.txt"_s, 3, {u"+b"_s}},
        {"added", u"icon@2x #1 50%.txt"_s, 2, {u"+a"_s}},
    };
    const MovedFiles repository;
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::svn);
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        f.select(row.path, row.revision);
        EXPECT_EQ(f.diffLines(), row.lines);
        EXPECT_EQ(f.app.historyDiffID.value(), (FileRevisionID{row.path, row.revision}));
        EXPECT_EQ(f.app.historyDiffText.value() == u"(no text diff)"_s, row.lines.isEmpty());
    }
}

TEST(History, OfAWorkingCopyOfABranchNamesWhatLiesOutsideByItsWholePath) {
    SvnFixture repository;
    repository.write(u"a.c"_s);
    repository.commitAll(u"two"_s);
    const QString branch = u"file://"_s + repository.tree.path(u"repo"_s) + u"/branches/my%20%23%25"_s;
    repository.svn({u"copy"_s, u"-q"_s, u"-m"_s, u"branch"_s, u"."_s, branch});
    repository.svn({u"switch"_s, u"-q"_s, branch});
    repository.write(u"a.c"_s, "x\ny\n");
    repository.commitAll(u"on the branch"_s);
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::svn);
    EXPECT_EQ(f.files(), (QStringList{u"a.c: M 4"_s, u"trunk/a.c: A 2"_s}));
    EXPECT_EQ(f.diffLines(), QStringList{u"+y"_s});
    f.select(u"trunk/a.c"_s);
    EXPECT_EQ(f.diffLines(), QStringList{u"+x"_s});
    EXPECT_EQ(f.app.historyLineSummary.value(), (LineChangeSummary{2, 0}));
}

TEST(History, IsGroupedAfreshWhenTheWorkingCopyMovesToABranch) {
    SvnFixture repository;
    repository.write(u"a.c"_s);
    repository.commitAll(u"two"_s);
    const QString branch = u"file://"_s + repository.tree.path(u"repo"_s) + u"/branches/b"_s;
    repository.svn({u"copy"_s, u"-q"_s, u"-m"_s, u"branch"_s, u"."_s, branch});
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::svn);
    EXPECT_EQ(f.files(), QStringList{u"a.c: A 2"_s});
    f.app.selectedTab = WorkflowTab::changes;
    awaited(f.app.runSelectedProjectCommand(u"Switch"_s, {u"switch"_s, branch}, RefreshAfter::yes, ShowOutput::always));
    EXPECT_EQ(f.files(), QStringList{u"trunk/a.c: A 2"_s});
    EXPECT_EQ(f.app.historyDiffID.value(), (FileRevisionID{u"trunk/a.c"_s, 2}));
}

/// A file that was renamed, a merge, names that need care.
class GitHistoryFixture : public GitFixture {
public:
    GitHistoryFixture() {
        write(u"ä #%@.c"_s, "one\ntwo\nthree\n");
        write(u"b.c"_s);
        commitAll(u"first"_s);
        git({u"checkout"_s, u"-q"_s, u"-b"_s, u"side"_s});
        write(u"side.c"_s, "s\n");
        commitAll(u"side"_s);
        git({u"checkout"_s, u"-q"_s, u"main"_s});
        git({u"mv"_s, u"ä #%@.c"_s, u"new.c"_s});
        commitAll(u"rename"_s);
        git({u"merge"_s, u"-q"_s, u"--no-edit"_s, u"side"_s});
    }
};

TEST(History, OfGitHoldsRenamesMergesAndTheFirstCommit) {
    GitHistoryFixture repository;
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::git);
    ASSERT_EQ(f.app.logEntries.value().size(), 4);
    EXPECT_EQ(f.app.logEntries.value().first().paths, QList<SVNPathChange>()) << "a merge changes nothing by itself";
    QStringList paths;
    for (qsizetype i = 0; i < f.app.fileHistoryItems.value().size(); ++i)
        paths.append(f.app.fileHistoryItems.value().pathAt(i));
    paths.sort();
    EXPECT_EQ(paths, (QStringList{u"b.c"_s, u"new.c"_s, u"side.c"_s, u"ä #%@.c"_s}));
    EXPECT_EQ(f.app.historyLineSummary.value(), (LineChangeSummary{5, 0}));
    f.select(u"ä #%@.c"_s);
    EXPECT_EQ(f.diffLines(), (QStringList{u"+one"_s, u"+two"_s, u"+three"_s}));
    EXPECT_EQ(f.app.selectedRevisionToken(),
              QString::fromLatin1(repository.git({u"rev-parse"_s, u"side~1"_s}).trimmed()));
}

TEST(History, FollowsTheSelectedCommitWhenANewOneMovesItsNumber) {
    GitFixture repository;
    repository.write(u"a.c"_s, "1\n");
    repository.commitAll(u"first"_s);
    repository.write(u"a.c"_s, "2\n");
    repository.commitAll(u"second"_s);
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::git);
    f.select(u"a.c"_s, newestCommit - 1);
    const QString first = f.app.selectedRevisionToken();
    repository.write(u"a.c"_s, "3\n");
    awaited(f.app.refreshAll());
    f.app.commitMessage = u"third"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.files(), QStringList{u"a.c: M 1000000, M 999999, A 999998"_s}) << "shown at once";
    EXPECT_EQ(f.app.selectedRevisionToken(), first);
    EXPECT_EQ(f.diffLines(), QStringList{u"+1"_s});
}

TEST(History, LoadsWhenItsTabIsShownAndLacksSomething) {
    SvnFixture repository;
    repository.write(u"a.c"_s);
    repository.commitAll(u"two"_s);
    HistoryFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    EXPECT_FALSE(f.app.historyLoaded);
    f.app.selectedTab = WorkflowTab::history;
    awaited(f.app.tabChanged());
    EXPECT_EQ(f.files(), QStringList{u"a.c: A 2"_s});
    f.app.selectedTab = WorkflowTab::archives;
    awaited(f.app.tabChanged());
    EXPECT_EQ(f.app.archiveEntries.value(), f.app.logEntries.value());

    // Nobody told the program: only a refresh finds that out.
    repository.write(u"b.c"_s);
    repository.commitAll(u"three"_s);
    for (const WorkflowTab tab : {WorkflowTab::history, WorkflowTab::archives}) {
        f.app.selectedTab = tab;
        awaited(f.app.tabChanged());
    }
    EXPECT_EQ(f.app.logEntries.value().size(), 2);
    EXPECT_EQ(f.app.archiveEntries.value().size(), 2);
    awaited(f.app.refreshArchives());
    EXPECT_EQ(f.app.archiveEntries.value().size(), 3);
    awaited(f.app.refreshHistory());
    EXPECT_EQ(f.app.logEntries.value().size(), 3);

    f.app.selectedTab = WorkflowTab::changes;
    repository.write(u"c.c"_s);
    awaited(f.app.refreshAll());
    f.app.setCommitSelection(f.app.changes, true);
    f.app.commitMessage = u"four"_s;
    awaited(f.app.commitSelected());
    awaited(f.app.runSelectedProjectCommand(u"Update"_s, {u"update"_s}, RefreshAfter::yes, ShowOutput::always));
    EXPECT_EQ(f.app.logEntries.value().size(), 3) << "not shown, not loaded";
    for (const WorkflowTab tab : {WorkflowTab::history, WorkflowTab::archives}) {
        f.app.selectedTab = tab;
        awaited(f.app.tabChanged());
    }
    EXPECT_EQ(f.app.logEntries.value().size(), 4);
    EXPECT_EQ(f.app.archiveEntries.value().size(), 4);
}

TEST(History, OfAnEmptyRepositoryIsEmptyAndNoFailure) {
    const testing::TempTree tree;
    runTool(u"svnadmin"_s, {u"create"_s, tree.path(u"repo"_s)}, tree.path());
    runTool(u"svn"_s, {u"checkout"_s, u"file://"_s + tree.path(u"repo"_s), tree.path(u"wc"_s)}, tree.path());
    const GitFixture git;
    struct Row {
        const char *name;
        QString path;
        RepositoryKind kind;
    };
    const Row rows[] = {
        {"Subversion at revision 0", tree.path(u"wc"_s), RepositoryKind::svn},
        {"Git before the first commit", git.path(), RepositoryKind::git},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        HistoryFixture f;
        f.openHistory(row.path, row.kind);
        awaited(f.app.loadArchives());
        EXPECT_EQ(f.alertText(), QString());
        EXPECT_TRUE(f.app.historyLoaded && f.app.archivesLoaded);
        EXPECT_TRUE(f.app.logEntries.value().isEmpty() && f.app.archiveEntries.value().isEmpty());
        EXPECT_EQ(f.app.selectedHistoryPath.value(), std::nullopt);
        EXPECT_EQ(f.app.selectedRevision.value(), std::nullopt);
        EXPECT_EQ(f.app.historyDiffID.value(), std::nullopt);
    }
}

TEST(History, ThatCannotBeLoadedKeepsWhatWasShownAndSaysWhy) {
    SvnFixture repository;
    repository.write(u"a.c"_s);
    repository.commitAll(u"two"_s);
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::svn);
    awaited(f.app.loadArchives());
    QDir().rename(repository.tree.path(u"repo"_s), repository.tree.path(u"elsewhere"_s));
    awaited(f.app.loadHistory());
    EXPECT_TRUE(f.alertText().startsWith(u"History Failed: svn: E")) << f.alertText().toStdString();
    awaited(f.app.loadArchives());
    EXPECT_TRUE(f.alertText().startsWith(u"Archives Failed: svn: E")) << f.alertText().toStdString();
    EXPECT_EQ(f.files(), QStringList{u"a.c: A 2"_s});
    EXPECT_EQ(f.app.archiveEntries.value().size(), 2);
    EXPECT_EQ(f.app.busyMessage.value(), std::nullopt);
}

TEST(History, OfTheOldProjectIsGoneWhenAnotherIsSelected) {
    SvnFixture repository;
    repository.write(u"a.c"_s);
    repository.commitAll(u"two"_s);
    const GitFixture other;
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::svn);
    awaited(f.app.loadArchives());
    f.app.selectedArchiveEntryID = 2;
    f.app.selectedTab = WorkflowTab::changes;
    f.open(other.path(), RepositoryKind::git);
    EXPECT_TRUE(f.files().isEmpty() && f.app.logEntries.value().isEmpty() && f.app.archiveEntries.value().isEmpty());
    EXPECT_FALSE(f.app.historyLoaded || f.app.archivesLoaded);
    EXPECT_EQ(f.app.selectedHistoryPath.value(), std::nullopt);
    EXPECT_EQ(f.app.selectedRevision.value(), std::nullopt);
    EXPECT_EQ(f.app.selectedArchiveEntryID.value(), std::nullopt);
    EXPECT_EQ(f.app.historyLineSummary.value(), LineChangeSummary());
    EXPECT_EQ(f.app.historyDiffText.value(), QString());
    EXPECT_EQ(f.app.historyDiffID.value(), std::nullopt);
}

TEST(History, ShowsBothVersionsOfAPicture) {
    struct Row {
        const char *name;
        QString path;
        qint64 age; ///< counted from the newest revision
        std::optional<QByteArray> before;
        std::optional<QByteArray> after;
    };
    const Row rows[] = {
        {"deleted", u"a@b.png"_s, 0, "\x89PNG two", {}},
        {"changed", u"a@b.png"_s, 1, "\x89PNG one", "\x89PNG two"},
        {"added", u"a@b.png"_s, 2, {}, "\x89PNG one"},
    };
    const auto fill = [](auto &repository) {
        repository.write(u"a@b.png"_s, "\x89PNG one");
        repository.commitAll(u"first"_s);
        repository.write(u"a@b.png"_s, "\x89PNG two");
        repository.commitAll(u"second"_s);
    };
    SvnFixture svn;
    fill(svn);
    svn.svn({u"delete"_s, u"-q"_s, u"a@b.png@"_s});
    svn.commitAll(u"third"_s);
    GitFixture git;
    fill(git);
    git.git({u"rm"_s, u"-q"_s, u"a@b.png"_s});
    git.commitAll(u"third"_s);
    for (const RepositoryKind kind : {RepositoryKind::svn, RepositoryKind::git}) {
        HistoryFixture f;
        f.openHistory(kind == RepositoryKind::svn ? svn.path() : git.path(), kind);
        const qint64 newest = f.app.logEntries.value().first().revision;
        for (const Row &row : rows) {
            SCOPED_TRACE(row.name);
            f.select(row.path, newest - row.age);
            const DiffPreview preview = f.app.historyDiffPreview;
            EXPECT_EQ(preview.kind, DiffPreviewKind::image);
            EXPECT_EQ(preview.oldData, row.before);
            EXPECT_EQ(preview.newData, row.after);
        }
    }
}

} // namespace
} // namespace kestor

#include "history_fixture.h"
#include "support/test.h"

namespace kestor {
namespace {

constexpr qint64 newestCommit = 1000000;

TEST(History, ListsTheFilesOfASubversionProjectByTheirNewestRevision) {
    const MovedFiles repository;
    HistoryFixture f(repository);
    EXPECT_EQ(f.files(), u"new/size.c: D 7, A 6|new/Größe.c: D 6, M 5|icon@2x #1 50%.txt: M 3, A 2|"
                         "file2: A 2|file10: A 2|old/Größe.c: A 2"_list);
    EXPECT_EQ(f.app.selectedHistoryPath.value(), u"new/size.c"_s);
    EXPECT_EQ(f.app.selectedRevision.value(), 7);
    EXPECT_EQ(f.app.historyDiffID.value(), (FileRevisionID{u"new/size.c"_s, 7}));
    EXPECT_EQ(f.app.historyLineSummary.value(), (LineChangeSummary{2, 0})) << "what is left of all changes";
    EXPECT_EQ(f.app.busyMessage.value(), std::nullopt);
}

TEST(History, ShowsWhatARevisionChangedInAFileWhateverBecameOfIt) {
    const Rows<QString, qint64, QStringList> rows{
        {"deleted", u"new/size.c"_s, 7, {u"-x"_s, u"-y"_s}},
        {"renamed without a change", u"new/size.c"_s, 6, {}},
        {"renamed away", u"new/Größe.c"_s, 6, {u"-x"_s, u"-y"_s}},
        {"moved with its folder since", u"old/Größe.c"_s, 2, {u"+x"_s}},
        {"changed below a moved folder", u"new/Größe.c"_s, 5, {u"+y"_s}},
        {"replaced by a folder since", u"icon@2x #1 50%.txt"_s, 3, {u"+b"_s}},
        {"added", u"icon@2x #1 50%.txt"_s, 2, {u"+a"_s}},
    };
    const MovedFiles repository;
    HistoryFixture f(repository);
    for (const auto &[name, path, revision, lines] : rows) {
        f.select(path, revision);
        EXPECT_EQ(f.diffLines(), lines);
        EXPECT_EQ(f.app.historyDiffID.value(), (FileRevisionID{path, revision}));
        EXPECT_EQ(f.app.historyDiffText.value() == u"(no text diff)"_s, lines.isEmpty());
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
    HistoryFixture f(repository);
    EXPECT_EQ(f.files(), u"a.c: M 4|trunk/a.c: A 2"_list);
    EXPECT_EQ(f.diffLines(), u"+y"_list);
    f.select(u"trunk/a.c"_s);
    EXPECT_EQ(f.diffLines(), u"+x"_list);
    EXPECT_EQ(f.app.historyLineSummary.value(), (LineChangeSummary{2, 0}));
}

TEST(History, IsGroupedAfreshWhenTheWorkingCopyMovesToABranch) {
    SvnFixture repository;
    repository.write(u"a.c"_s);
    repository.commitAll(u"two"_s);
    const QString branch = u"file://"_s + repository.tree.path(u"repo"_s) + u"/branches/b"_s;
    repository.svn({u"copy"_s, u"-q"_s, u"-m"_s, u"branch"_s, u"."_s, branch});
    HistoryFixture f(repository);
    f.app.selectedTab = WorkflowTab::changes;
    awaited(f.app.runSelectedProjectCommand(u"Switch"_s, {u"switch"_s, branch}, RefreshAfter::yes, ShowOutput::always));
    EXPECT_EQ(f.files(), u"trunk/a.c: A 2"_list);
    EXPECT_EQ(f.app.historyDiffID.value(), (FileRevisionID{u"trunk/a.c"_s, 2}));
}

/// A file that was renamed, a merge, names that need care.
class GitHistoryFixture : public GitFixture {
public:
    GitHistoryFixture() {
        writeAll({{u"ä #%@.c"_s, "one\ntwo\nthree\n"}, {u"b.c"_s}});
        commitAll(u"first"_s);
        git(u"checkout|-q|-b|side"_list);
        write(u"side.c"_s, "s\n");
        commitAll(u"side"_s);
        git(u"checkout|-q|main"_list);
        git(u"mv|ä #%@.c|new.c"_list);
        commitAll(u"rename"_s);
        git(u"merge|-q|--no-edit|side"_list);
    }
};

TEST(History, OfGitHoldsRenamesMergesAndTheFirstCommit) {
    GitHistoryFixture repository;
    HistoryFixture f(repository);
    ASSERT_EQ(f.app.logEntries.value().size(), 4);
    EXPECT_EQ(f.app.logEntries.value().first().paths, QList<SVNPathChange>()) << "a merge changes nothing by itself";
    QStringList paths;
    for (qsizetype i = 0; i < f.app.fileHistoryItems.value().size(); ++i)
        paths.append(f.app.fileHistoryItems.value().pathAt(i).toString());
    paths.sort();
    EXPECT_EQ(paths, u"b.c|new.c|side.c|ä #%@.c"_list);
    EXPECT_EQ(f.app.historyLineSummary.value(), (LineChangeSummary{5, 0}));
    f.select(u"ä #%@.c"_s);
    EXPECT_EQ(f.diffLines(), u"+one|+two|+three"_list);
    EXPECT_EQ(f.app.selectedRevisionToken(), QString::fromLatin1(repository.git(u"rev-parse|side~1"_list).trimmed()));
}

TEST(History, FollowsTheSelectedCommitWhenANewOneMovesItsNumber) {
    GitFixture repository;
    repository.write(u"a.c"_s, "1\n");
    repository.commitAll(u"first"_s);
    repository.write(u"a.c"_s, "2\n");
    repository.commitAll(u"second"_s);
    HistoryFixture f(repository);
    f.select(u"a.c"_s, newestCommit - 1);
    const QString first = f.app.selectedRevisionToken();
    repository.write(u"a.c"_s, "3\n");
    awaited(f.app.refreshAll());
    f.app.commitMessage = u"third"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.files(), u"a.c: M 1000000, M 999999, A 999998"_list) << "shown at once";
    EXPECT_EQ(f.app.selectedRevisionToken(), first);
    EXPECT_EQ(f.diffLines(), u"+1"_list);
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
    EXPECT_EQ(f.files(), u"a.c: A 2"_list);
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
    const TempTree tree;
    runTool(u"svnadmin"_s, {u"create"_s, tree.path(u"repo"_s)}, tree.path());
    runTool(u"svn"_s, {u"checkout"_s, u"file://"_s + tree.path(u"repo"_s), tree.path(u"wc"_s)}, tree.path());
    const GitFixture git;
    const Rows<QString, RepositoryKind> rows{
        {"Subversion at revision 0", tree.path(u"wc"_s), RepositoryKind::svn},
        {"Git before the first commit", git.path(), RepositoryKind::git},
    };
    for (const auto &[name, path, kind] : rows) {
        HistoryFixture f;
        f.openHistory(path, kind);
        awaited(f.app.loadArchives());
        EXPECT_TRUE(f.app.historyLoaded && f.app.archivesLoaded);
        EXPECT_TRUE(f.app.logEntries.value().isEmpty() && f.app.archiveEntries.value().isEmpty());
        EXPECT_EQ(f.app.selectedHistoryPath.value(), std::nullopt);
        EXPECT_EQ(f.app.selectedRevision.value(), std::nullopt);
        EXPECT_EQ(f.app.historyDiffID.value(), std::nullopt);
    }
}

TEST(History, OfTheOldProjectIsGoneWhenAnotherIsSelected) {
    SvnFixture repository;
    repository.write(u"a.c"_s);
    repository.commitAll(u"two"_s);
    const GitFixture other;
    HistoryFixture f(repository);
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
    const Rows<QString, qint64, std::optional<QByteArray>, std::optional<QByteArray>> rows{
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
    svn.svn(u"delete|-q|a@b.png@"_list);
    svn.commitAll(u"third"_s);
    GitFixture git;
    fill(git);
    git.git(u"rm|-q|a@b.png"_list);
    git.commitAll(u"third"_s);
    for (const RepositoryKind kind : {RepositoryKind::svn, RepositoryKind::git}) {
        HistoryFixture f;
        f.openHistory(kind == RepositoryKind::svn ? svn.path() : git.path(), kind);
        const qint64 newest = f.app.logEntries.value().first().revision;
        for (const auto &[name, path, age, before, after] : rows) {
            f.select(path, newest - age);
            const DiffPreview preview = f.app.historyDiffPreview;
            EXPECT_EQ(preview.kind, DiffPreviewKind::image);
            EXPECT_EQ(preview.oldData, before);
            EXPECT_EQ(preview.newData, after);
        }
    }
    svn.write(u"old/p.png"_s, "\x89PNG one");
    svn.commitAll(u"fourth"_s);
    svn.svn(u"update|-q"_list);
    svn.svn(u"move|-q|old|new"_list);
    svn.write(u"new/p.png"_s, "\x89PNG two");
    svn.commitAll(u"fifth"_s);
    HistoryFixture moved(svn);
    moved.select(u"new/p.png"_s);
    EXPECT_EQ(moved.app.historyDiffPreview.value().oldData, "\x89PNG one") << "changed while its folder moved";
}

} // namespace
} // namespace kestor

#include "history_fixture.h"
#include "support/test.h"

namespace kestor {
namespace {

constexpr qint64 newestCommit = 1000000;

/// A working copy of a trunk in which files were renamed, moved with their folder, replaced and deleted.
class MovedFiles : public SvnFixture {
public:
    MovedFiles() {
        commit({{u"icon@2x #1 50%.txt"_s, "a\n"}, {u"old/Größe.c"_s, "x\n"}, {u"file10"_s}, {u"file2"_s}});
        commit({{u"icon@2x #1 50%.txt"_s, "a\nb\n"}});
        svn(u"move|-q|old|new"_list);
        commitAll();
        commit({{u"new/Größe.c"_s, "x\ny\n"}});
        svn(u"move|-q|new/Größe.c|new/size.c"_list);
        commitAll();
        svn(u"delete|-q|new/size.c"_list);
        commitAll();
        svn(u"delete|-q|icon@2x #1 50%.txt@"_list);
        tree.makeDirectory(u"wc/icon@2x #1 50%.txt"_s);
        commitAll();
    }
};

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
    repository.commit({{u"a.c"_s}});
    const QString branch = repository.url(u"branches/my%20%23%25"_s);
    repository.svn({u"copy"_s, u"-q"_s, u"-m"_s, u"branch"_s, u"."_s, branch});
    repository.svn({u"switch"_s, u"-q"_s, branch});
    repository.commit({{u"a.c"_s, "x\ny\n"}});
    HistoryFixture f(repository);
    EXPECT_EQ(f.files(), u"a.c: M 4|trunk/a.c: A 2"_list);
    EXPECT_EQ(f.diffLines(), u"+y"_list);
    f.select(u"trunk/a.c"_s);
    EXPECT_EQ(f.diffLines(), u"+x"_list);
    EXPECT_EQ(f.app.historyLineSummary.value(), (LineChangeSummary{2, 0}));
}

TEST(History, IsGroupedAfreshWhenTheWorkingCopyMovesToABranch) {
    SvnFixture repository;
    repository.commit({{u"a.c"_s}});
    const QString branch = repository.url(u"branches/b"_s);
    repository.svn({u"copy"_s, u"-q"_s, u"-m"_s, u"branch"_s, u"."_s, branch});
    HistoryFixture f(repository);
    f.app.selectedTab = WorkflowTab::changes;
    f.run(u"Switch"_s, {u"switch"_s, branch});
    EXPECT_EQ(f.files(), u"trunk/a.c: A 2"_list);
    EXPECT_EQ(f.app.historyDiffID.value(), (FileRevisionID{u"trunk/a.c"_s, 2}));
}

TEST(History, OfGitHoldsRenamesMergesAndTheFirstCommit) {
    GitFixture repository;
    repository.commit({{u"ä #%@.c"_s, "one\ntwo\nthree\n"}, {u"b.c"_s}});
    repository.git(u"checkout|-q|-b|side"_list);
    repository.commit({{u"side.c"_s, "s\n"}});
    repository.git(u"checkout|-q|main"_list);
    repository.git(u"mv|ä #%@.c|new.c"_list);
    repository.commitAll();
    repository.git(u"merge|-q|--no-edit|side"_list);
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
    repository.commit({{u"a.c"_s, "1\n"}});
    repository.commit({{u"a.c"_s, "2\n"}});
    HistoryFixture f(repository);
    f.select(u"a.c"_s, newestCommit - 1);
    const QString first = f.app.selectedRevisionToken();
    repository.write(u"a.c"_s, "3\n");
    awaited(f.app.refreshAll());
    f.commit({u"a.c"_s});
    EXPECT_EQ(f.files(), u"a.c: M 1000000, M 999999, A 999998"_list) << "shown at once";
    EXPECT_EQ(f.app.selectedRevisionToken(), first);
    EXPECT_EQ(f.diffLines(), u"+1"_list);
}

TEST(History, LoadsWhenItsTabIsShownAndLacksSomething) {
    SvnFixture repository;
    repository.commit({{u"a.c"_s}});
    AppFixture f(repository);
    const auto loaded = [&f] {
        return std::pair<int, int>(f.app.logEntries.value().size(), f.app.archiveEntries.value().size());
    };
    const auto showBoth = [&f] {
        f.showTab(WorkflowTab::history);
        f.showTab(WorkflowTab::archives);
    };
    EXPECT_EQ(loaded(), std::pair(0, 0));
    showBoth();
    EXPECT_EQ(loaded(), std::pair(2, 2));

    // Nobody told the program: only a refresh finds that out.
    repository.commit({{u"b.c"_s}});
    showBoth();
    EXPECT_EQ(loaded(), std::pair(2, 2));
    awaited(f.app.refreshArchives());
    EXPECT_EQ(loaded(), std::pair(2, 3));
    awaited(f.app.refreshHistory());
    EXPECT_EQ(loaded(), std::pair(3, 3));

    f.app.selectedTab = WorkflowTab::changes;
    repository.write(u"c.c"_s);
    awaited(f.app.refreshAll());
    f.commit({u"c.c"_s});
    f.run(u"Update"_s, u"update"_list);
    EXPECT_EQ(loaded(), std::pair(3, 3)) << "not shown, not loaded";
    showBoth();
    EXPECT_EQ(loaded(), std::pair(4, 4));
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
        AppFixture f;
        f.open(path, kind);
        f.showTab(WorkflowTab::history);
        f.showTab(WorkflowTab::archives);
        EXPECT_TRUE(f.app.historyLoaded && f.app.archivesLoaded);
        EXPECT_EQ(f.alertText(), QString());
    }
}

TEST(History, OfTheOldProjectIsGoneWhenAnotherIsSelected) {
    SvnFixture repository;
    repository.commit({{u"a.c"_s}});
    const GitFixture other;
    HistoryFixture f(repository);
    awaited(f.app.loadArchives());
    f.app.selectedArchiveEntryID = 2;
    f.app.selectedTab = WorkflowTab::changes;
    f.open(other);
    EXPECT_TRUE(f.files().isEmpty() && f.app.logEntries.value().isEmpty() && f.app.archiveEntries.value().isEmpty());
    EXPECT_FALSE(f.app.historyLoaded || f.app.archivesLoaded);
    EXPECT_FALSE(f.app.selectedHistoryPath.value() || f.app.selectedRevision.value());
    EXPECT_FALSE(f.app.selectedArchiveEntryID.value() || f.app.historyDiffID.value());
    EXPECT_EQ(f.app.historyLineSummary.value(), LineChangeSummary());
    EXPECT_EQ(f.app.historyDiffText.value(), QString());
}

TEST(History, ShowsBothVersionsOfAPicture) {
    const Rows<QString, qint64, std::optional<QByteArray>, std::optional<QByteArray>> rows{
        {"deleted", u"a@b.png"_s, 0, "\x89PNG two", {}},
        {"changed", u"a@b.png"_s, 1, "\x89PNG one", "\x89PNG two"},
        {"added", u"a@b.png"_s, 2, {}, "\x89PNG one"},
    };
    SvnFixture svn;
    GitFixture git;
    const Rows<RepositoryFixture *, QStringList> repositories{{"svn", &svn, u"delete|-q|a@b.png@"_list},
                                                              {"git", &git, u"rm|-q|a@b.png"_list}};
    for (const auto &[kind, repository, deletion] : repositories) {
        repository->commit({{u"a@b.png"_s, "\x89PNG one"}});
        repository->commit({{u"a@b.png"_s, "\x89PNG two"}});
        repository->run(deletion);
        repository->commitAll();
        HistoryFixture f(*repository);
        const qint64 newest = f.app.logEntries.value().first().revision;
        for (const auto &[name, path, age, before, after] : rows) {
            f.select(path, newest - age);
            const DiffPreview preview = f.app.historyDiffPreview;
            EXPECT_EQ(preview.kind, DiffPreviewKind::image);
            EXPECT_EQ(preview.oldData, before);
            EXPECT_EQ(preview.newData, after);
        }
    }
    svn.commit({{u"old/p.png"_s, "\x89PNG one"}});
    svn.svn(u"update|-q"_list);
    svn.svn(u"move|-q|old|new"_list);
    svn.commit({{u"new/p.png"_s, "\x89PNG two"}});
    HistoryFixture moved(svn);
    moved.select(u"new/p.png"_s);
    EXPECT_EQ(moved.app.historyDiffPreview.value().oldData, "\x89PNG one") << "changed while its folder moved";
}

} // namespace
} // namespace kestor

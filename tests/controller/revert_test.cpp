#include "support/app_test.h"
#include "support/trash_fixture.h"

#include <functional>

namespace kestor {
namespace {

TEST(Revert, AsksWithTheNumbersAndCancelsQuietly) {
    GitFixture repository;
    repository.commit({{u"m.c"_s, "one\n"}});
    AppFixture f(repository);
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.alertText(), u"No Paths Selected: There are no changed paths to revert."_s);
    awaited(f.app.revertSelectedPaths());
    EXPECT_EQ(f.alertText(), u"No Paths Selected: Select a changed path first."_s);
    repository.writeAll({{u"m.c"_s, "two\n"}, {u"n.c"_s}});
    awaited(f.app.refreshAll());
    f.user.confirms = false;
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.user.asked.last(), u"confirm Revert: Revert all 2 changed path(s)? Local changes will be discarded. 1 "
                                   "unversioned path(s) will be deleted from disk."_s);
    EXPECT_EQ(f.rows(), u"*M m.c|? n.c"_list);
    EXPECT_EQ(repository.read(u"m.c"_s), "two\n");
}

TEST(Revert, OfEverythingInSubversionLeavesTheBaseAndNothingElse) {
    const TrashFixture trash;
    SvnFixture repository;
    repository.commit(u"m.c|d.c|gone.c|icon@2x.txt"_list, "one\n");
    const QStringList before = repository.tree.entries();
    repository.writeAll({{u"m.c"_s, "two\n"}, {u"icon@2x.txt"_s, "two\n"}});
    repository.svn(u"delete|d.c"_list);
    QFile::remove(repository.path(u"gone.c"_s));
    repository.write(u"new/deep/n.c"_s);
    AppFixture f(repository);
    awaited(f.app.revertAllPaths());
    EXPECT_TRUE(f.rows().isEmpty());
    EXPECT_EQ(repository.tree.entries(), before);
    EXPECT_EQ(repository.read(u"m.c"_s), "one\n");
    EXPECT_EQ(trash.files(), u"n.c"_list);
    EXPECT_TRUE(f.output().stdoutText.endsWith(u"\n\nDeleted 1 path(s)"_s));
}

TEST(Revert, OfAnAddedFolderKeepsItsFilesOnDisk) {
    SvnFixture repository;
    repository.write(u"d/e/f.c"_s);
    repository.svn(u"add|d"_list);
    AppFixture f(repository);
    awaited(f.app.revertPath(u"d"_s));
    EXPECT_EQ(f.rows(), u"? d/e/f.c"_list);
}

TEST(Revert, InSubversionTakesCopiesMovesAndConflictsWhole) {
    const TrashFixture trash;
    SvnFixture repository;
    repository.commit({{u"a/x.c"_s, "one\n"}, {u"c.c"_s, "one\n"}});
    repository.commit({{u"c.c"_s, "two\n"}});
    repository.svn(u"update|-q|-r|2"_list);
    const QStringList before = repository.tree.entries();
    repository.svn(u"copy|-q|a|copied"_list);
    repository.svn(u"move|-q|a|moved"_list);
    repository.write(u"c.c"_s, "mine\n");
    repository.svn(u"update|-q|--accept|postpone|c.c"_list);
    AppFixture f(repository);
    awaited(f.app.revertAllPaths());
    EXPECT_TRUE(f.rows().isEmpty());
    EXPECT_EQ(repository.tree.entries(), before);
}

/// What a user did, the row to revert ("" for all), the paths that the question counts, and the trash afterwards.
template <typename Fixture>
using Losses = Rows<std::function<void(Fixture &)>, QString, int, QStringList>;

template <typename Fixture>
void expectNothingIsLost(const Losses<Fixture> &losses) {
    Fixture repository;
    repository.commit({{u"d/g.c"_s, "one\n"}, {u"f.c"_s, "one\n"}});
    repository.tree.write(u"out/g.c"_s, "outside\n");
    AppFixture f(repository);
    for (const auto &[name, change, path, count, trashed] : losses) {
        const TrashFixture trash;
        change(repository);
        awaited(f.app.refreshStatus());
        awaited(path.isEmpty() ? f.app.revertAllPaths() : f.app.revertPath(path));
        EXPECT_EQ(f.alertText(), QString());
        EXPECT_EQ(f.user.asked.last().section(u". "_s, 1),
                  count ? QString::number(count) + u" unversioned path(s) will be deleted from disk."_s : QString());
        EXPECT_EQ(trash.files(), trashed);
        for (const QString &file : u"d/g.c|f.c"_list)
            EXPECT_EQ(repository.tree.read(u"wc/"_s + file), "one\n") << qPrintable(file);
        EXPECT_EQ(repository.tree.read(u"out/g.c"_s), "outside\n");
    }
}

template <typename Fixture>
void replaceByLink(Fixture &repository) {
    QDir(repository.path(u"d"_s)).removeRecursively();
    QFile::link(repository.tree.path(u"out"_s), repository.path(u"d"_s));
}

void replaceByDeadLink(RepositoryFixture &repository) {
    QFile::remove(repository.path(u"f.c"_s));
    QFile::link(u"nowhere"_s, repository.path(u"f.c"_s));
}

template <typename Fixture>
void replaceByFile(Fixture &repository) {
    QDir(repository.path(u"d"_s)).removeRecursively();
    repository.write(u"d"_s, "work\n");
}

template <typename Fixture>
void replaceByFolder(Fixture &repository) {
    QFile::remove(repository.path(u"f.c"_s));
    repository.write(u"f.c/work"_s);
}

TEST(Revert, InSubversionTrashesWhatTheToolTakesFromTheDisk) {
    using R = SvnFixture;
    const auto moveFolder = [](R &r) {
        r.svn(u"move|-q|d|moved"_list);
        r.writeAll({{u"moved/g.c"_s, "edited\n"}, {u"moved/todo.txt"_s}});
    };
    const auto copyFile = [](R &r) {
        r.svn(u"copy|-q|f.c|icon@2x.c@"_list);
        r.write(u"icon@2x.c"_s, "edited\n");
    };
    const auto deleteFolder = [](R &r) {
        r.svn(u"delete|-q|--keep-local|d"_list);
        r.write(u"d/g.c"_s, "anew\n");
    };
    const auto copyIntoNewFolder = [](R &r) {
        r.svn(u"mkdir|-q|new"_list);
        r.svn(u"copy|-q|f.c|new/f.c"_list);
    };
    expectNothingIsLost<R>({
        {"moved folder, with what is new in it", moveFolder, {}, 2, u"moved"_list},
        {"copied file with edits", copyFile, u"icon@2x.c"_s, 1, u"icon@2x.c"_list},
        {"folder at a file", replaceByFolder<R>, u"f.c"_s, 1, u"f.c"_list},
        {"file at a folder", replaceByFile<R>, {}, 1, u"d"_list},
        {"file above a file", replaceByFile<R>, u"d/g.c"_s, 1, u"d"_list},
        {"link above a file", replaceByLink<R>, u"d/g.c"_s, 1, u"d"_list},
        {"deleted folder, written anew", deleteFolder, u"d"_s, 1, u"d"_list},
        {"copy in an added folder stays", copyIntoNewFolder, u"new"_s, 0, {}},
    });
}

TEST(Revert, InGitTrashesWhatTheToolTakesFromTheDisk) {
    using R = GitFixture;
    const auto stageFolder = [](R &r) {
        replaceByFolder(r);
        r.git(u"add|--all"_list);
    };
    const auto nestRepository = [](R &r) {
        QFile::remove(r.path(u"f.c"_s));
        r.git(u"init|-q|f.c"_list);
        r.git(u"-C|f.c|-c|user.name=a|-c|user.email=b|commit|-q|--allow-empty|-m|work"_list);
    };
    expectNothingIsLost<R>({
        {"folder at a file", replaceByFolder<R>, u"f.c"_s, 1, u"f.c"_list},
        {"staged folder at a file", stageFolder, {}, 1, u"f.c"_list},
        {"file at a folder", replaceByFile<R>, {}, 1, u"d"_list},
        {"link without target at a file", replaceByDeadLink, u"f.c"_s, 1, {}},
        {"link above a file", replaceByLink<R>, u"d/g.c"_s, 1, u"d"_list},
        {"repository at a file", nestRepository, u"f.c"_s, 1, u"f.c"_list},
    });
}

TEST(Revert, InGitLeavesWhatIsInSubmodulesAlone) {
    GitFixture library;
    library.commit({{u"f.c"_s, "one\n"}});
    library.commit({{u"f.c"_s, "two\n"}});
    const Rows<QStringList> rows{{"moved on", u"-C|sub|checkout|-q|HEAD~1"_list},
                                 {"just added", u"reset|-q|--soft|HEAD~1"_list},
                                 {"no longer tracked", u"rm|-q|--cached|sub"_list},
                                 {"in conflict, and not in the last commit",
                                  {u"-c"_s,
                                   u"alias.try=!new=$(git rev-parse :sub) && git reset -q --soft HEAD~1 && git rm -q "
                                   "--cached sub && printf \"160000 $new 3\\tsub\" | git update-index --index-info"_s,
                                   u"try"_s}}};
    for (const auto &[name, change] : rows) {
        const TrashFixture trash;
        GitFixture repository;
        repository.commit({{u"kept.c"_s}});
        repository.git({u"-c"_s, u"protocol.file.allow=always"_s, u"submodule"_s, u"--quiet"_s, u"add"_s,
                        library.path(), u"sub"_s});
        repository.commitAll();
        repository.git(u"config|submodule.recurse|true"_list);
        repository.git(change);
        repository.write(u"sub/f.c"_s, "work\n");
        AppFixture f(repository);
        awaited(f.app.revertPath(u"sub"_s));
        EXPECT_EQ(f.alertText(), QString());
        EXPECT_EQ(repository.read(u"sub/f.c"_s), "work\n");
        EXPECT_EQ(trash.files(), QStringList());
    }
}

TEST(Revert, TrashesWhatCameWhileItAsked) {
    const TrashFixture trash;
    GitFixture repository;
    repository.commit({{u"gone.c"_s, "one\n"}, {u"old.c"_s, "one\ntwo\nthree\n"}});
    repository.git(u"mv|old.c|new.c"_list);
    repository.write(u"lost.c"_s);
    repository.git(u"add|lost.c"_list);
    for (const QString &path : u"gone.c|lost.c"_list)
        QFile::remove(repository.path(path));
    AppFixture f(repository);
    f.user.meanwhile = [&repository] {
        repository.writeAll(u"gone.c|lost.c|old.c"_list, "work\n");
    };
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.user.asked.last().section(u". "_s, 1), u"1 unversioned path(s) will be deleted from disk."_s);
    EXPECT_EQ(trash.files(), u"gone.c|lost.c|new.c|old.c"_list);
    EXPECT_TRUE(f.rows().isEmpty()) << qPrintable(f.alertText());
}

TEST(Revert, ThatFailsPutsBackWhatItTookFromTheDisk) {
    const TrashFixture trash;
    GitFixture repository;
    repository.commit({{u"f.c"_s}});
    replaceByFolder(repository);
    repository.write(u"new/n.c"_s);
    QFile::link(u"nowhere"_s, repository.path(u"link"_s));
    repository.git(u"add|link"_list);
    AppFixture f(repository);
    repository.write(u".git/index.lock"_s);
    const QStringList before = repository.tree.entries(u"wc"_s);
    awaited(f.app.revertAllPaths());
    EXPECT_TRUE(f.alertText().contains(u"index.lock"_s));
    EXPECT_EQ(repository.tree.entries(u"wc"_s), before);
    EXPECT_EQ(repository.git(u"diff|--name-only|--|link"_list), QByteArray());
    EXPECT_TRUE(trash.files().isEmpty());
}

TEST(Revert, InGitLeavesWhatStandsAtAnOldNameAlone) {
    const TrashFixture trash;
    GitFixture repository;
    repository.git(u"config|status.renames|copies"_list);
    repository.commit(
        {{u"old.c"_s, "one\ntwo\nthree\n"}, {u"origin.c"_s, "four\nfive\nsix\n"}, {u"cached.c"_s, "one\n"}});
    repository.git(u"mv|old.c|new.c"_list);
    repository.writeAll(
        {{u"old.c"_s, "precious\n"}, {u"copy.c"_s, "four\nfive\nsix\n"}, {u"origin.c"_s, "four\nfive\nedited\n"}});
    repository.git(u"add|copy.c"_list);
    repository.git(u"rm|-q|--cached|cached.c"_list);
    repository.write(u"cached.c"_s, "kept aside\n");
    AppFixture f(repository);
    for (const QString &path : u"new.c|copy.c|cached.c"_list)
        awaited(f.app.revertPath(path));
    EXPECT_EQ(repository.read(u"old.c"_s), "precious\n");
    EXPECT_EQ(repository.read(u"origin.c"_s), "four\nfive\nedited\n");
    EXPECT_EQ(repository.read(u"cached.c"_s), "one\n");
    EXPECT_EQ(trash.files(), u"cached.c|copy.c|new.c"_list);
}

TEST(Revert, OfAGitConflictWorksForEachSide) {
    const TrashFixture trash;
    GitFixture repository;
    repository.commit(u"both.c|ours.c|theirs.c"_list, "base\n");
    repository.git(u"checkout|-q|-b|side"_list);
    repository.git(u"rm|-q|theirs.c"_list);
    repository.commit({{u"both.c"_s, "side\n"}, {u"ours.c"_s, "side\n"}});
    repository.git(u"checkout|-q|main"_list);
    repository.git(u"rm|-q|ours.c"_list);
    repository.commit({{u"both.c"_s, "main\n"}, {u"theirs.c"_s, "main\n"}});
    const QStringList before = repository.tree.entries();
    repository.git({u"-c"_s, u"alias.try=!git merge -q side || true"_s, u"try"_s});
    AppFixture f(repository);
    EXPECT_EQ(f.rows().size(), 3);
    f.commit({u"both.c"_s, u"ours.c"_s, u"theirs.c"_s});
    EXPECT_EQ(f.alertText(), u"Commit Failed: both.c still holds conflict markers. Resolve the conflict before "
                             "committing it."_s);
    awaited(f.app.revertAllPaths());
    EXPECT_TRUE(f.rows().isEmpty()) << qPrintable(f.alertText() + f.rows().join(u", "_s));
    EXPECT_EQ(repository.tree.entries(), before);
}

TEST(Revert, OfEverythingEndsWhatWaitsForACommitInGit) {
    GitFixture repository;
    repository.commit({{u"f.c"_s, "base\n"}});
    repository.git(u"checkout|-q|-b|side"_list);
    repository.commit({{u"f.c"_s, "side\n"}});
    repository.git(u"checkout|-q|main"_list);
    repository.commit({{u"f.c"_s, "main\n"}});
    AppFixture f(repository);
    repository.git(u"checkout|-q|-b|more|side"_list);
    repository.commit({{u"gen.log"_s}});
    repository.git(u"checkout|-q|main"_list);
    repository.write(u".kestorignore"_s, "*.log\n");
    const Rows<QString, bool> rows{{"merge side", u"MERGE_HEAD"_s, true},
                                   {"cherry-pick side", u"CHERRY_PICK_HEAD"_s, true},
                                   {"revert side", u"REVERT_HEAD"_s, true},
                                   {"merge more", u"MERGE_HEAD"_s, false}}; // with a row that is hidden
    for (const auto &[name, head, ends] : rows) {
        repository.git({u"-c"_s, u"alias.try=!git "_s + QLatin1String(name) + u" || true"_s, u"try"_s});
        ASSERT_TRUE(repository.tree.exists(u"wc/.git/"_s + head));
        awaited(f.app.refreshStatus());
        awaited(f.app.revertPath(u"f.c"_s));
        EXPECT_EQ(f.alertText(), QString());
        EXPECT_EQ(repository.tree.exists(u"wc/.git/"_s + head), !ends);
    }
}

TEST(Revert, OfAnAddedGitFileGoesThroughTheTrashOrNotAtAll) {
    TrashFixture trash;
    GitFixture repository;
    repository.commit({{u"m.c"_s, "one\n"}});
    repository.write(u"a.c"_s, "precious\n");
    repository.git(u"add|a.c"_list);
    repository.write(u"m.c"_s, "two\n");
    AppFixture f(repository);
    trash.block();
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.alertText(), u"Revert Failed: a.c could not be moved to the trash. Nothing was changed."_s);
    EXPECT_EQ(repository.read(u"a.c"_s), "precious\n");
    EXPECT_EQ(repository.read(u"m.c"_s), "two\n");
    const TrashFixture working;
    awaited(f.app.revertAllPaths());
    EXPECT_TRUE(f.user.asked.last().endsWith(u". 1 unversioned path(s) will be deleted from disk."_s));
    EXPECT_EQ(working.files(), u"a.c"_list);
    EXPECT_TRUE(f.rows().isEmpty());
}

TEST(Revert, OfUnversionedFilesWithoutATrashRemovesThemAsConfirmed) {
    TrashFixture trash;
    trash.block();
    GitFixture repository;
    repository.commit({{u"kept.c"_s}});
    repository.write(u"new/n.c"_s);
    AppFixture f(repository);
    awaited(f.app.revertPath(u"new/n.c"_s));
    EXPECT_EQ(repository.tree.entries(u"wc"_s), u"kept.c"_list);
    EXPECT_EQ(f.output().stdoutText, u"Deleted 1 path(s)"_s);
}

TEST(Revert, InAFolderThatIsGoneSaysSoAndNothingElse) {
    SvnFixture repository;
    repository.write(u"new.c"_s);
    AppFixture f(repository);
    QStringList alerts;
    const auto watching = f.app.alert.addNotifier([&] { alerts.append(f.alertText()); });
    QDir(repository.path()).removeRecursively();
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(alerts, QStringList{u"Revert Failed: "_s + repository.path() + u" does not exist or is not a folder."_s});
    EXPECT_EQ(f.user.asked, QStringList());
}

TEST(Revert, BeforeTheFirstCommitOnlyUnstages) {
    GitFixture repository;
    repository.write(u"a.c"_s, "precious\n");
    repository.git(u"add|a.c"_list);
    AppFixture f(repository);
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.rows(), u"? a.c"_list);
    EXPECT_EQ(repository.read(u"a.c"_s), "precious\n");
}

TEST(Ignore, AddsWhatIsMissingAndReloads) {
    SvnFixture repository;
    repository.tree.makeDirectory(u"out"_s);
    repository.writeAll({{u"build/[x].o"_s}, {u"keep.c"_s}, {u".kestorignore"_s, "*.tmp\r\nlast"}});
    AppFixture f;
    awaited(f.app.ignoreSelectedPaths());
    EXPECT_EQ(f.alertText(), u"No Project Selected: Choose a project first."_s);
    f.open(repository);
    f.app.selectedChangeID = u"build/[x].o"_s;
    awaited(f.app.ignoreSelectedPaths());
    EXPECT_EQ(repository.read(u".kestorignore"_s), "*.tmp\r\nlast\r\n/build/\\[x].o\r\n");
    EXPECT_EQ(f.rows(), u"? .kestorignore|? keep.c"_list);
    f.user.promptAnswer = u"path=build/[x].o"_answer;
    awaited(f.app.includeIgnoredPath());
    EXPECT_EQ(f.rows(), u"? .kestorignore|? build/[x].o|? keep.c"_list);
    QFile::link(repository.tree.path(u"out"_s), repository.path(u"build/out"_s));
    awaited(f.app.refreshStatus());
    f.app.selectedChangeID = u"build/out"_s;
    awaited(f.app.ignoreSelectedPaths());
    EXPECT_EQ(f.rows(), u"? .kestorignore|? build/[x].o|? keep.c"_list);
    f.user.promptAnswer = u"path=a/../../x"_answer;
    awaited(f.app.includeIgnoredPath());
    EXPECT_EQ(f.alertText(), u"Include Ignored Path Failed: a/../../x lies outside the working copy."_s);
    f.user.promptAnswer = u"path=build/[x].o"_answer;
    awaited(f.app.includeIgnoredPath());
    EXPECT_EQ(f.alertText(), u"Ignore Rules Unchanged: The selected ignore rule already exists in "_s +
                                 repository.path(u".kestorignore"_s) + u'.');
    f.app.selectedChangeID = u"build/[x].o"_s;
    awaited(f.app.ignoreSelectedPaths());
    EXPECT_EQ(f.rows(), u"? .kestorignore|? keep.c"_list) << "the rule above was taken back by the line below it";
    repository.svn(u"add|-q|keep.c"_list);
    awaited(f.app.refreshStatus());
    f.app.selectedChangeID = u".kestorignore"_s;
    awaited(f.app.ignoreSelectedPaths());
    EXPECT_EQ(f.rows(), u"*A keep.c"_list) << "the change that is ticked stays in sight";
    awaited(f.app.ignoreSelectedPaths());
    EXPECT_EQ(f.alertText(), u"Ignore Failed: Only unversioned paths can be ignored."_s);
}

} // namespace
} // namespace kestor

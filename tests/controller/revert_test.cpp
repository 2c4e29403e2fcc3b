#include "support/app_fixture.h"
#include "support/printers.h"
#include "support/repositories.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::AppFixture;
using testing::awaited;
using testing::GitFixture;
using testing::SvnFixture;
using testing::TempTree;

/// A trash of its own as long as it lives.
class TrashFixture {
public:
    TrashFixture() { qputenv("XDG_DATA_HOME", qPrintable(tree.path(u"data"_s))); }
    ~TrashFixture() { qunsetenv("XDG_DATA_HOME"); }
    /// Puts a file where the trash would be.
    void block() { tree.write(u"data"_s); }
    QStringList files() const {
        return QDir(tree.path(u"data/Trash/files"_s)).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
    }

private:
    TempTree tree{};
};

TEST(Revert, AsksWithTheNumbersAndCancelsQuietly) {
    GitFixture repository;
    repository.write(u"m.c"_s, "one\n");
    repository.commitAll(u"first"_s);
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.alertText(), u"No Paths Selected: There are no changed paths to revert."_s);
    awaited(f.app.revertSelectedPaths());
    EXPECT_EQ(f.alertText(), u"No Paths Selected: Select a changed path first."_s);
    repository.write(u"m.c"_s, "two\n");
    repository.write(u"n.c"_s);
    awaited(f.app.refreshAll());
    f.user.confirms = false;
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.user.asked.last(), u"confirm Revert: Revert all 2 changed path(s)? Local changes will be discarded. 1 "
                                   "unversioned path(s) will be deleted from disk."_s);
    EXPECT_EQ(f.rows(), (QStringList{u"*M m.c"_s, u"? n.c"_s}));
    EXPECT_EQ(repository.tree.read(u"wc/m.c"_s), "two\n");
}

TEST(Revert, OfEverythingInSubversionLeavesTheBaseAndNothingElse) {
    const TrashFixture trash;
    SvnFixture repository;
    for (const QString &name : {u"m.c"_s, u"d.c"_s, u"gone.c"_s, u"icon@2x.txt"_s})
        repository.write(name, "one\n");
    repository.commitAll(u"first"_s);
    const QStringList before = repository.tree.entries();
    repository.write(u"m.c"_s, "two\n");
    repository.write(u"icon@2x.txt"_s, "two\n");
    repository.svn({u"delete"_s, u"d.c"_s});
    QFile::remove(repository.path(u"gone.c"_s));
    repository.write(u"new/deep/n.c"_s);
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_TRUE(f.rows().isEmpty());
    EXPECT_EQ(repository.tree.entries(), before);
    EXPECT_EQ(repository.tree.read(u"wc/m.c"_s), "one\n");
    EXPECT_EQ(trash.files(), (QStringList{u"n.c"_s}));
    EXPECT_TRUE(f.app.commandOutput.value()->stdoutText.endsWith(u"\n\nDeleted 1 path(s)"_s));
}

TEST(Revert, OfAnAddedFolderKeepsItsFilesOnDisk) {
    SvnFixture repository;
    repository.write(u"d/e/f.c"_s);
    repository.svn({u"add"_s, u"d"_s});
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    awaited(f.app.revertPath(u"d"_s));
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.rows(), (QStringList{u"? d/e/f.c"_s}));
}

TEST(Revert, InSubversionTakesCopiesMovesAndConflictsWhole) {
    const TrashFixture trash;
    SvnFixture repository;
    repository.write(u"a/x.c"_s, "one\n");
    repository.write(u"c.c"_s, "one\n");
    repository.commitAll(u"first"_s);
    repository.write(u"c.c"_s, "two\n");
    repository.commitAll(u"second"_s);
    repository.svn({u"update"_s, u"-q"_s, u"-r"_s, u"2"_s});
    const QStringList before = repository.tree.entries();
    repository.svn({u"copy"_s, u"-q"_s, u"a"_s, u"copied"_s});
    repository.svn({u"move"_s, u"-q"_s, u"a"_s, u"moved"_s});
    repository.write(u"c.c"_s, "mine\n");
    repository.svn({u"update"_s, u"-q"_s, u"--accept"_s, u"postpone"_s, u"c.c"_s});
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.app.commandOutput.value()->title, u"Revert"_s);
    EXPECT_TRUE(f.rows().isEmpty());
    EXPECT_EQ(repository.tree.entries(), before);
}

TEST(Revert, InGitLeavesWhatStandsAtAnOldNameAlone) {
    const TrashFixture trash;
    GitFixture repository;
    repository.git({u"config"_s, u"status.renames"_s, u"copies"_s});
    repository.write(u"old.c"_s, "one\ntwo\nthree\n");
    repository.write(u"origin.c"_s, "four\nfive\nsix\n");
    repository.write(u"cached.c"_s, "one\n");
    repository.commitAll(u"first"_s);
    repository.git({u"mv"_s, u"old.c"_s, u"new.c"_s});
    repository.write(u"old.c"_s, "precious\n");
    repository.write(u"copy.c"_s, "four\nfive\nsix\n");
    repository.write(u"origin.c"_s, "four\nfive\nedited\n");
    repository.git({u"add"_s, u"copy.c"_s});
    repository.git({u"rm"_s, u"-q"_s, u"--cached"_s, u"cached.c"_s});
    repository.write(u"cached.c"_s, "kept aside\n");
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    for (const QString &path : {u"new.c"_s, u"copy.c"_s, u"cached.c"_s})
        awaited(f.app.revertPath(path));
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(repository.tree.read(u"wc/old.c"_s), "precious\n");
    EXPECT_EQ(repository.tree.read(u"wc/origin.c"_s), "four\nfive\nedited\n");
    EXPECT_EQ(repository.tree.read(u"wc/cached.c"_s), "one\n");
    EXPECT_EQ(trash.files(), (QStringList{u"cached.c"_s, u"copy.c"_s, u"new.c"_s}));
}

TEST(Revert, OfAGitConflictWorksForEachSide) {
    const TrashFixture trash;
    GitFixture repository;
    for (const QString &name : {u"both.c"_s, u"ours.c"_s, u"theirs.c"_s})
        repository.write(name, "base\n");
    repository.commitAll(u"base"_s);
    repository.git({u"checkout"_s, u"-q"_s, u"-b"_s, u"side"_s});
    repository.git({u"rm"_s, u"-q"_s, u"theirs.c"_s});
    repository.write(u"both.c"_s, "side\n");
    repository.write(u"ours.c"_s, "side\n");
    repository.commitAll(u"side"_s);
    repository.git({u"checkout"_s, u"-q"_s, u"main"_s});
    repository.git({u"rm"_s, u"-q"_s, u"ours.c"_s});
    repository.write(u"both.c"_s, "main\n");
    repository.write(u"theirs.c"_s, "main\n");
    repository.commitAll(u"main"_s);
    const QStringList before = repository.tree.entries();
    repository.git({u"-c"_s, u"alias.try=!git merge -q side || true"_s, u"try"_s});
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    EXPECT_EQ(f.rows().size(), 3);
    f.app.setCommitSelection(f.app.changes, true);
    f.app.commitMessage = u"merged"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), u"Commit Failed: both.c still holds conflict markers. Resolve the conflict before "
                             "committing it."_s);
    awaited(f.app.revertAllPaths());
    EXPECT_TRUE(f.rows().isEmpty()) << qPrintable(f.alertText() + f.rows().join(u", "_s));
    EXPECT_EQ(repository.tree.entries(), before);
}

TEST(Revert, OfAnAddedGitFileGoesThroughTheTrashOrNotAtAll) {
    TrashFixture trash;
    GitFixture repository;
    repository.write(u"m.c"_s, "one\n");
    repository.commitAll(u"first"_s);
    repository.write(u"a.c"_s, "precious\n");
    repository.git({u"add"_s, u"a.c"_s});
    repository.write(u"m.c"_s, "two\n");
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    trash.block();
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.alertText(), u"Revert Failed: a.c could not be moved to the trash. Nothing was changed."_s);
    EXPECT_EQ(repository.tree.read(u"wc/a.c"_s), "precious\n");
    EXPECT_EQ(repository.tree.read(u"wc/m.c"_s), "two\n");
    const TrashFixture working;
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(working.files(), (QStringList{u"a.c"_s}));
    EXPECT_TRUE(f.rows().isEmpty());
}

TEST(Revert, OfUnversionedFilesWithoutATrashRemovesThemAsConfirmed) {
    TrashFixture trash;
    trash.block();
    GitFixture repository;
    repository.write(u"kept.c"_s);
    repository.commitAll(u"first"_s);
    repository.write(u"new/n.c"_s);
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    awaited(f.app.revertPath(u"new/n.c"_s));
    EXPECT_EQ(repository.tree.entries(u"wc"_s), (QStringList{u"kept.c"_s}));
    EXPECT_EQ(f.app.commandOutput.value()->stdoutText, u"Deleted 1 path(s)"_s);
}

TEST(Revert, BeforeTheFirstCommitOnlyUnstages) {
    GitFixture repository;
    repository.write(u"a.c"_s, "precious\n");
    repository.git({u"add"_s, u"a.c"_s});
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.rows(), (QStringList{u"? a.c"_s}));
    EXPECT_EQ(repository.tree.read(u"wc/a.c"_s), "precious\n");
}

TEST(Ignore, AddsWhatIsMissingAndReloads) {
    SvnFixture repository;
    repository.write(u"build/[x].o"_s);
    repository.write(u"keep.c"_s);
    repository.write(u".kestorignore"_s, "*.tmp\r\nlast");
    AppFixture f;
    awaited(f.app.ignoreSelectedPaths());
    EXPECT_EQ(f.alertText(), u"No Project Selected: Choose a project first."_s);
    f.open(repository.path(), RepositoryKind::svn);
    f.app.selectedChangeID = u"build/[x].o"_s;
    awaited(f.app.ignoreSelectedPaths());
    EXPECT_EQ(repository.tree.read(u"wc/.kestorignore"_s), "*.tmp\r\nlast\r\n/build/\\[x].o\r\n");
    EXPECT_EQ(f.rows(), (QStringList{u"? .kestorignore"_s, u"? keep.c"_s}));
    f.user.promptAnswer = {{u"path"_s, u"build/[x].o"_s}};
    awaited(f.app.includeIgnoredPath());
    EXPECT_EQ(f.user.asked.last(), u"prompt Include Ignored Path: Path="_s);
    EXPECT_EQ(f.rows(), (QStringList{u"? .kestorignore"_s, u"? build/[x].o"_s, u"? keep.c"_s}));
    f.user.promptAnswer = {{u"path"_s, u"a/../../x"_s}};
    awaited(f.app.includeIgnoredPath());
    EXPECT_EQ(f.alertText(), u"Include Ignored Path Failed: a/../../x lies outside the working copy."_s);
    f.user.promptAnswer = {{u"path"_s, u"build/[x].o"_s}};
    awaited(f.app.includeIgnoredPath());
    EXPECT_EQ(f.alertText(), u"Ignore Rules Unchanged: The selected ignore rule already exists in "_s +
                                 repository.path(u".kestorignore"_s) + u'.');
}

} // namespace
} // namespace kestor

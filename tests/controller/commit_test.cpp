#include "support/app_fixture.h"
#include "support/printers.h"
#include "support/repositories.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::AppFixture;
using testing::awaited;
using testing::GitFixture;
using testing::SvnFixture;

void tickOnly(AppFixture &f, const QStringList &paths) {
    f.app.setCommitSelection(f.app.changes, false);
    QList<WorkingCopyItem> items = f.app.changes;
    items.removeIf([&paths](const WorkingCopyItem &item) { return !paths.contains(item.path); });
    f.app.setCommitSelection(items, true);
}

void writeHook(const QString &path, const QByteArray &script) {
    QFile hook(path);
    ASSERT_TRUE(hook.open(QIODevice::WriteOnly));
    hook.write("#!/bin/sh\n" + script);
    hook.close();
    hook.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

TEST(Commit, IsRefusedWithoutPathsOrMessage) {
    GitFixture repository;
    AppFixture f;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), u"No Project Selected: Choose a project first."_s);
    repository.write(u"a.c"_s);
    f.open(repository.path(), RepositoryKind::git);
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), u"Nothing To Commit: Select at least one changed path."_s);
    tickOnly(f, {u"a.c"_s});
    f.app.commitMessage = u" \n\t"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), u"Commit Message Required: Enter a commit message before committing."_s);
}

TEST(Commit, OfMixedKindsArrivesInOneSubversionRevision) {
    SvnFixture repository;
    for (const QString &name : {u"m.c"_s, u"gone.c"_s, u"d.c"_s, u"icon@2x.txt"_s, u"kept.c"_s})
        repository.write(name, "one\n");
    repository.commitAll(u"first"_s);
    for (const QString &name : {u"m.c"_s, u"icon@2x.txt"_s, u"kept.c"_s})
        repository.write(name, "two\n");
    repository.svn({u"delete"_s, u"d.c"_s});
    QFile::remove(repository.path(u"gone.c"_s));
    repository.write(u"new/deep/größe.c"_s);
    repository.write(u"new/left.c"_s);
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    tickOnly(f, {u"m.c"_s, u"gone.c"_s, u"d.c"_s, u"icon@2x.txt"_s, u"new/deep/größe.c"_s});
    f.app.commitMessage = u"m.c"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.rows(), (QStringList{u"M kept.c"_s, u"? new/left.c"_s}));
    EXPECT_EQ(f.app.commitMessage.value(), QString());
    EXPECT_EQ(f.app.commandOutput.value()->title, u"Commit"_s);
    const QString log = QString::fromUtf8(repository.svn({u"log"_s, u"-v"_s, u"-r"_s, u"HEAD"_s}));
    for (const QString &line :
         {u"M /trunk/m.c"_s, u"D /trunk/gone.c"_s, u"D /trunk/d.c"_s, u"M /trunk/icon@2x.txt"_s, u"A /trunk/new"_s,
          u"A /trunk/new/deep"_s, u"A /trunk/new/deep/größe.c"_s, u"\n\nm.c\n"_s})
        EXPECT_TRUE(log.contains(line)) << qPrintable(line) << "\n" << qPrintable(log);
}

TEST(Commit, TakesAddedFoldersButNoUntickedRowInThem) {
    SvnFixture repository;
    repository.write(u"d/in.c"_s);
    repository.write(u"d/out.c"_s);
    repository.svn({u"add"_s, u"d"_s});
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    tickOnly(f, {u"d/in.c"_s});
    f.app.commitMessage = u"one of two"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.rows(), (QStringList{u"A d/out.c"_s}));
}

TEST(Commit, KeepsMessagesByteForByte) {
    const QStringList messages{u"-leading dash"_s, u"first\n\n\nthird paragraph\n  indented  \n# no comment"_s,
                               u"größe 🚀"_s, QString(100 * 1024, u'x')};
    SvnFixture svn;
    GitFixture git;
    AppFixture f;
    for (const QString &message : messages) {
        SCOPED_TRACE(qPrintable(message.left(20)));
        svn.write(u"a.c"_s, message.toUtf8());
        git.write(u"a.c"_s, message.toUtf8());
        f.open(svn.path(), RepositoryKind::svn);
        tickOnly(f, {u"a.c"_s});
        f.app.commitMessage = message;
        awaited(f.app.commitSelected());
        EXPECT_EQ(
            QString::fromUtf8(svn.svn({u"propget"_s, u"--strict"_s, u"--revprop"_s, u"-r"_s, u"HEAD"_s, u"svn:log"_s})),
            message);
        f.open(git.path(), RepositoryKind::git);
        tickOnly(f, {u"a.c"_s});
        f.app.commitMessage = message;
        awaited(f.app.commitSelected());
        EXPECT_EQ(QString::fromUtf8(git.git({u"log"_s, u"-1"_s, u"--format=%B"_s})), message + u"\n\n"_s);
    }
}

TEST(Commit, OfGitTakesRenamesWholeAndNothingElse) {
    GitFixture repository;
    repository.write(u"old.c"_s, "one\ntwo\nthree\n");
    repository.write(u"staged.c"_s, "one\n");
    repository.commitAll(u"first"_s);
    repository.git({u"mv"_s, u"old.c"_s, u"new.c"_s});
    repository.write(u"staged.c"_s, "two\n");
    repository.git({u"add"_s, u"staged.c"_s});
    repository.write(u"a*.c"_s);
    repository.write(u"ab.c"_s);
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    tickOnly(f, {u"new.c"_s, u"a*.c"_s});
    f.app.commitMessage = u"rename"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(repository.git({u"show"_s, u"--format="_s, u"--name-status"_s, u"HEAD"_s}),
              "A\ta*.c\nR100\told.c\tnew.c\n");
    EXPECT_EQ(f.rows(), (QStringList{u"? ab.c"_s, u"M staged.c"_s}));
}

TEST(Commit, TakesStagedDeletionsAndNothingThatHasNoRow) {
    GitFixture git;
    git.write(u"gone.c"_s, "one\n");
    git.write(u"old.c"_s, "one\ntwo\nthree\n");
    git.commitAll(u"first"_s);
    git.git({u"rm"_s, u"-q"_s, u"gone.c"_s});
    git.git({u"mv"_s, u"old.c"_s, u"new.c"_s});
    git.write(u"old.c"_s, "another file\n");
    SvnFixture svn;
    svn.write(u".kestorignore"_s, "*.tmp\n");
    svn.write(u"p/kept.c"_s, "one\n");
    svn.write(u"p/h.tmp"_s, "one\n");
    svn.commitAll(u"first"_s);
    svn.write(u"p/h.tmp"_s, "two\n");
    svn.svn({u"propset"_s, u"-q"_s, u"note"_s, u"x"_s, u"p"_s});
    AppFixture f;
    f.open(git.path(), RepositoryKind::git);
    tickOnly(f, {u"gone.c"_s, u"new.c"_s});
    f.app.commitMessage = u"why"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(git.git({u"show"_s, u"HEAD:new.c"_s}), "one\ntwo\nthree\n");
    EXPECT_FALSE(git.git({u"ls-tree"_s, u"--name-only"_s, u"HEAD"_s}).contains("gone.c"));
    EXPECT_EQ(git.tree.read(u"wc/old.c"_s), "another file\n");
    f.open(svn.path(), RepositoryKind::svn);
    tickOnly(f, {u"p"_s});
    f.app.commitMessage = u"why"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(svn.svn({u"cat"_s, u"-r"_s, u"HEAD"_s, u"p/h.tmp"_s}), "one\n");
}

TEST(Commit, OfAMergeIsWholeOrRefusedBeforeAnythingRuns) {
    GitFixture repository;
    repository.write(u"a.c"_s, "one\n");
    repository.write(u"b.c"_s, "one\n");
    repository.commitAll(u"first"_s);
    repository.git({u"checkout"_s, u"-q"_s, u"-b"_s, u"side"_s});
    repository.write(u"a.c"_s, "side\n");
    repository.write(u"b.c"_s, "side\n");
    repository.commitAll(u"side"_s);
    repository.git({u"checkout"_s, u"-q"_s, u"main"_s});
    repository.write(u"c.c"_s);
    repository.commitAll(u"main"_s);
    repository.git({u"merge"_s, u"--no-commit"_s, u"--no-ff"_s, u"-q"_s, u"side"_s});
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    tickOnly(f, {u"a.c"_s});
    f.app.commitMessage = u"merged"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), u"Commit Failed: A merge is committed as a whole. Tick every changed path, then commit "
                             "again."_s);
    EXPECT_EQ(f.app.commitMessage.value(), u"merged"_s);
    tickOnly(f, {u"a.c"_s, u"b.c"_s});
    awaited(f.app.commitSelected());
    EXPECT_EQ(repository.git({u"log"_s, u"-1"_s, u"--format=%s %p"_s}).split(' ').size(), 3);
    EXPECT_TRUE(f.rows().isEmpty());
}

TEST(Commit, RefusedByAHookLeavesEverythingAsItWas) {
    SvnFixture svn;
    svn.write(u"m.c"_s, "one\n");
    svn.write(u"gone.c"_s, "one\n");
    svn.commitAll(u"first"_s);
    svn.write(u"m.c"_s, "two\n");
    svn.write(u"new/deep/a.c"_s);
    QFile::remove(svn.path(u"gone.c"_s));
    writeHook(svn.tree.path(u"repo/hooks/pre-commit"_s), "echo 'no entry today' >&2\nexit 1\n");
    GitFixture git;
    git.write(u"staged.c"_s, "one\n");
    git.commitAll(u"first"_s);
    git.write(u"staged.c"_s, "two\n");
    git.git({u"add"_s, u"staged.c"_s});
    git.write(u"staged.c"_s, "three\n");
    git.write(u"new.c"_s);
    writeHook(git.path(u".git/hooks/pre-commit"_s), "echo 'no entry today' >&2\nexit 1\n");
    AppFixture f;
    for (const auto &[path, kind] : {std::pair{svn.path(), RepositoryKind::svn}, {git.path(), RepositoryKind::git}}) {
        SCOPED_TRACE(qPrintable(path));
        f.open(path, kind);
        f.app.setCommitSelection(f.app.changes, true);
        f.app.commitMessage = u"try"_s;
        const QStringList rows = f.rows();
        const QByteArray status =
            kind == RepositoryKind::svn ? svn.svn({u"status"_s}) : git.git({u"status"_s, u"--porcelain"_s});
        awaited(f.app.commitSelected());
        EXPECT_TRUE(f.alertText().startsWith(u"Commit Failed: "_s));
        EXPECT_TRUE(f.alertText().contains(u"no entry today"_s)) << qPrintable(f.alertText());
        EXPECT_EQ(f.app.commitMessage.value(), u"try"_s);
        EXPECT_EQ(f.rows(), rows);
        EXPECT_EQ(kind == RepositoryKind::svn ? svn.svn({u"status"_s}) : git.git({u"status"_s, u"--porcelain"_s}),
                  status);
    }
    EXPECT_EQ(git.git({u"show"_s, u":staged.c"_s}), "two\n");
}

TEST(Commit, KilledInTheMiddleShowsWhatIsThere) {
    SvnFixture svn;
    svn.write(u"m.c"_s, "one\n");
    svn.commitAll(u"first"_s);
    svn.write(u"m.c"_s, "two\n");
    svn.write(u"new.c"_s);
    GitFixture git;
    git.write(u"m.c"_s, "one\n");
    git.commitAll(u"first"_s);
    git.write(u"m.c"_s, "two\n");
    git.write(u"new.c"_s);
    for (const QString &hook : {svn.tree.path(u"repo/hooks/pre-commit"_s), git.path(u".git/hooks/pre-commit"_s)})
        writeHook(hook, "kill -9 $PPID\n");
    AppFixture f;
    for (const auto &[path, kind] : {std::pair{svn.path(), RepositoryKind::svn}, {git.path(), RepositoryKind::git}}) {
        SCOPED_TRACE(qPrintable(path));
        f.open(path, kind);
        f.app.setCommitSelection(f.app.changes, true);
        f.app.commitMessage = u"try"_s;
        awaited(f.app.commitSelected());
        EXPECT_TRUE(f.alertText().startsWith(u"Commit Failed: "_s)) << qPrintable(f.alertText());
        EXPECT_EQ(f.app.commitMessage.value(), u"try"_s);
        EXPECT_FALSE(f.app.busyMessage.value());
        AppFixture later;
        later.open(path, kind);
        EXPECT_EQ(f.app.changes.value(), later.app.changes.value());
        EXPECT_EQ(f.app.selectedCommitPaths.value().size(), 2);
    }
    EXPECT_EQ(svn.tree.read(u"wc/m.c"_s), "two\n");
    EXPECT_EQ(git.tree.read(u"wc/m.c"_s), "two\n");
}

TEST(Commit, OfAFileThatCameBackDoesNotDeleteIt) {
    SvnFixture repository;
    repository.write(u"gone.c"_s, "one\n");
    repository.commitAll(u"first"_s);
    QFile::remove(repository.path(u"gone.c"_s));
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    tickOnly(f, {u"gone.c"_s});
    f.app.commitMessage = u"remove"_s;
    repository.write(u"gone.c"_s, "precious\n");
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), u"Commit Failed: gone.c is on disk again. Refresh before committing it."_s);
    EXPECT_EQ(repository.tree.read(u"wc/gone.c"_s), "precious\n");
}

TEST(Commit, OfManyFilesFitsIntoTheCommandLine) {
    GitFixture repository;
    for (int i = 0; i < 1500; ++i)
        repository.write(u"%1/%2.c"_s.arg(QString(70, u'd')).arg(i));
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    f.app.setCommitSelection(f.app.changes, true);
    f.app.commitMessage = u"many"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(repository.git({u"ls-files"_s}).count('\n'), 1500);
}

} // namespace
} // namespace kestor

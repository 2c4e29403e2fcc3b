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

void select(AppFixture &f, const QString &path) {
    f.app.selectedChangeID = path;
    awaited(f.app.selectedChangeChanged());
}

TEST(Changes, OfASubversionProjectAreRealFilesWithDiffs) {
    SvnFixture repository;
    for (const QString &name : {u"modified.c"_s, u"deleted.c"_s, u"missing.c"_s, u"icon@2x.txt"_s, u"-dash größe.c"_s})
        repository.write(name, "one\ntwo\n");
    repository.commitAll(u"first"_s);
    repository.write(u"modified.c"_s, "one\n2\n3\n");
    repository.write(u"icon@2x.txt"_s, "one\nzwei\n");
    repository.write(u"-dash größe.c"_s, "eins\ntwo\n");
    repository.write(u"new/sub/file.c"_s, "fresh\n");
    repository.write(u"new/skipped.o"_s);
    repository.write(u".kestorignore"_s, "*.o\n");
    repository.svn({u"delete"_s, u"deleted.c"_s});
    QFile::remove(repository.path(u"missing.c"_s));
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.rows(),
              (QStringList{u"*M -dash größe.c"_s, u"? .kestorignore"_s, u"*D deleted.c"_s, u"*M icon@2x.txt"_s,
                           u"! missing.c"_s, u"*M modified.c"_s, u"? new/sub/file.c"_s}));
    EXPECT_EQ(f.app.changesLineSummary.value(), (LineChangeSummary{4, 5}));
    EXPECT_EQ(f.app.busyMessage.value(), std::nullopt);
    for (const QString &path : {u"-dash größe.c"_s, u"icon@2x.txt"_s, u"modified.c"_s}) {
        SCOPED_TRACE(qPrintable(path));
        select(f, path);
        EXPECT_TRUE(f.app.diffText.value().startsWith(u"Index: "_s + path + u'\n'))
            << qPrintable(f.app.diffText.value());
        EXPECT_EQ(f.app.diffPath.value(), path);
    }
    select(f, u"new/sub/file.c"_s);
    EXPECT_TRUE(f.app.diffText.value().endsWith(u"@@ -0,0 +1,1 @@\n+fresh"_s));
}

TEST(Changes, OfAGitProjectBeforeItsFirstCommitHaveDiffsToo) {
    GitFixture repository;
    repository.write(u"größe.txt"_s, "one\ntwo\n");
    repository.write(u"a[1].txt"_s, "bracket\n");
    repository.write(u"a1.txt"_s, "digit\n");
    repository.git({u"add"_s, u"."_s});
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    EXPECT_EQ(f.rows(), (QStringList{u"*A a[1].txt"_s, u"*A a1.txt"_s, u"*A größe.txt"_s}));
    EXPECT_EQ(f.app.changesLineSummary.value(), (LineChangeSummary{4, 0}));
    select(f, u"größe.txt"_s);
    EXPECT_TRUE(f.app.diffText.value().contains(u"+one\n+two\n"_s)) << qPrintable(f.app.diffText.value());
    select(f, u"a[1].txt"_s);
    EXPECT_TRUE(f.app.diffText.value().contains(u"+bracket"_s));
    EXPECT_FALSE(f.app.diffText.value().contains(u"+digit"_s));
}

TEST(Changes, ARefreshKeepsSelectionAndTicksAndFollowsTheDisk) {
    GitFixture repository;
    for (const QString &name : {u"a.c"_s, u"b.c"_s, u"c.c"_s})
        repository.write(name, "one\n");
    repository.commitAll(u"first"_s);
    for (const QString &name : {u"a.c"_s, u"b.c"_s, u"c.c"_s})
        repository.write(name, "two\n");
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    EXPECT_EQ(f.app.selectedChangeID.value(), u"a.c"_s);
    select(f, u"b.c"_s);
    f.app.setCommitSelection({*f.app.selectedChange()}, false);
    repository.git({u"checkout"_s, u"-q"_s, u"a.c"_s});
    repository.write(u"d.c"_s);
    awaited(f.app.refreshAll());
    EXPECT_EQ(f.rows(), (QStringList{u"M b.c"_s, u"*M c.c"_s, u"? d.c"_s}));
    EXPECT_EQ(f.app.selectedChangeID.value(), u"b.c"_s);
    repository.git({u"checkout"_s, u"-q"_s, u"b.c"_s});
    awaited(f.app.refreshStatus());
    EXPECT_EQ(f.app.selectedChangeID.value(), u"c.c"_s);
    EXPECT_EQ(f.app.diffPath.value(), u"c.c"_s);
}

TEST(Changes, AFailedStatusKeepsTheRowsAndSaysWhy) {
    GitFixture repository;
    repository.write(u"a.c"_s);
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    repository.write(u".git/index"_s, "broken");
    awaited(f.app.refreshAll());
    EXPECT_TRUE(f.alertText().startsWith(u"Status Failed: "_s)) << qPrintable(f.alertText());
    EXPECT_EQ(f.app.commandOutput.value()->title, u"Status Failed"_s);
    EXPECT_EQ(f.rows(), (QStringList{u"? a.c"_s}));
    EXPECT_EQ(f.app.busyMessage.value(), std::nullopt);
}

TEST(Changes, AVanishedFolderIsTold) {
    GitFixture repository;
    AppFixture f;
    f.open(repository.path(), RepositoryKind::git);
    QDir(repository.path()).removeRecursively();
    awaited(f.app.refreshAll());
    EXPECT_TRUE(f.alertText().startsWith(u"Status Failed: "_s)) << qPrintable(f.alertText());
    EXPECT_TRUE(f.alertText().contains(repository.path())) << qPrintable(f.alertText());
}

TEST(Changes, ALatin1ByteHidesNothing) {
    SvnFixture repository;
    repository.write(u"a.txt"_s, "one\n");
    repository.commitAll(u"first"_s);
    repository.write(u"a.txt"_s, "M\xFCller\n");
    AppFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    EXPECT_TRUE(f.app.diffText.value().contains(u"-one\n+Müller\n"_s)) << qPrintable(f.app.diffText.value());
    EXPECT_EQ(f.app.changesLineSummary.value(), (LineChangeSummary{1, 1}));
}

} // namespace
} // namespace kestor

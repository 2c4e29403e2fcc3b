#include "controller/status_run.h"
#include "model/project_store.h"
#include "support/app_test.h"
#include "support/environment_variable.h"

#include <QRegularExpression>
#include <QStandardPaths>

namespace kestor {
namespace {

void select(AppFixture &f, const QString &path) {
    f.app.selectedChangeID = path;
    awaited(f.app.selectedChangeChanged());
}

TEST(Changes, OfASubversionProjectAreRealFilesWithDiffs) {
    SvnFixture repository;
    repository.commit(u"modified.c|deleted.c|missing.c|icon@2x.txt|-dash größe.c"_list, "one\ntwo\n");
    repository.writeAll({{u"modified.c"_s, "one\n2\n3\n"},
                         {u"icon@2x.txt"_s, "one\nzwei\n"},
                         {u"-dash größe.c"_s, "eins\ntwo\n"},
                         {u"new/sub/file.c"_s, "fresh\n"},
                         {u"new/skipped.o"_s},
                         {u".kestorignore"_s, "*.o\n"}});
    repository.svn(u"delete|deleted.c"_list);
    QFile::remove(repository.path(u"missing.c"_s));
    AppFixture f(repository);
    EXPECT_EQ(f.rows(), u"*M -dash größe.c|? .kestorignore|*D deleted.c|*M icon@2x.txt|! missing.c|"
                        "*M modified.c|? new/sub/file.c"_list);
    EXPECT_EQ(f.app.changesLineSummary.value(), (LineChangeSummary{4, 5}));
    EXPECT_EQ(f.app.busyMessage.value(), std::nullopt);
    for (const QString &path : u"-dash größe.c|icon@2x.txt|modified.c"_list) {
        SCOPED_TRACE(qPrintable(path));
        select(f, path);
        EXPECT_TRUE(startsWith(f.app.diffText.value(), u"Index: "_s + path + u'\n'));
        EXPECT_EQ(f.app.diffPath.value(), path);
    }
    select(f, u"new/sub/file.c"_s);
    EXPECT_TRUE(f.app.diffText.value().endsWith(u"@@ -0,0 +1,1 @@\n+fresh"_s));
}

TEST(Changes, AStartReadsThemFromTheRunThatBeganBeforeIt) {
    const auto start = [](RepositoryFixture &repository, const QString &tool) {
        SCOPED_TRACE(qPrintable(tool));
        repository.commit(u"a.c|b.c"_list, "one\n");
        repository.writeAll({{u"a.c"_s, "two\n"}});
        TempTree home;
        home.writeProgram(u"bin/"_s + tool, "echo $1 >> '" + home.path(u"runs"_s).toUtf8() + "'; exec " +
                                                QStandardPaths::findExecutable(tool).toUtf8() + " \"$@\"\n");
        const EnvironmentVariable path("PATH", home.path(u"bin:"_s).toUtf8() + qgetenv("PATH"));
        QSettings settings(home.path(u"test.conf"_s), QSettings::IniFormat);
        ProjectStore(settings).save({{QUuid::createUuid(), u"p"_s, repository.path(), repository.kind}});
        const Tools tools = systemTools(settings);
        beginFirstStatus(settings, tools);
        ScriptedUser user;
        AppState app(settings, user, tools);
        awaited(app.projectSelectionChanged());
        EXPECT_EQ(app.changes.value().size(), 1);
        EXPECT_EQ(home.read(u"runs"_s).split('\n').count("status"), 1);
    };
    SvnFixture svn;
    start(svn, u"svn"_s);
    GitFixture git;
    start(git, u"git"_s);
}

TEST(Changes, WithControlCharactersInTheirNamesHideNothingAndAreActedOn) {
    const auto act = [](auto &repository) {
        repository.writeAll({{u"a.c"_s}, {u"b\x01.c"_s}, {u"c\x1b[31m.c"_s}, {u"z.c"_s}});
        AppFixture f(repository);
        EXPECT_EQ(f.rows(), u"? a.c|? b\x01.c|? c\x1b[31m.c|? z.c"_list);
        awaited(f.app.revertPath(u"b\x01.c"_s));
        EXPECT_EQ(f.rows(), u"? a.c|? c\x1b[31m.c|? z.c"_list);
        f.app.selectedChangeID = u"c\x1b[31m.c"_s;
        awaited(f.app.ignoreSelectedPaths());
        EXPECT_EQ(f.rows(), u"? .kestorignore|? a.c|? z.c"_list);
    };
    SvnFixture svn;
    act(svn);
    GitFixture git;
    act(git);
}

TEST(Changes, OfAGitProjectBeforeItsFirstCommitHaveDiffsToo) {
    GitFixture repository;
    repository.writeAll({{u"größe.txt"_s, "one\ntwo\n"}, {u"a[1].txt"_s, "bracket\n"}, {u"a1.txt"_s, "digit\n"}});
    repository.git(u"add|."_list);
    AppFixture f(repository);
    EXPECT_EQ(f.rows(), u"*A a[1].txt|*A a1.txt|*A größe.txt"_list);
    EXPECT_EQ(f.app.changesLineSummary.value(), (LineChangeSummary{4, 0}));
    select(f, u"größe.txt"_s);
    EXPECT_TRUE(contains(f.app.diffText.value(), u"+one\n+two\n"_s));
    select(f, u"a[1].txt"_s);
    EXPECT_TRUE(f.app.diffText.value().contains(u"+bracket"_s));
    EXPECT_FALSE(f.app.diffText.value().contains(u"+digit"_s));
}

TEST(Changes, HaveTheNamesThatGitQuotes) {
    QStringList names = u"-dash@2x.png|a -> b.txt|back\\slash.c|bell\a7.c|größe.txt|plain.txt|say \"hi\".c|"
                        "tab\there.c|two\nlines.c|with space.txt"_list;
    GitFixture repository;
    repository.writeAll(names, "x\n");
    const AppFixture f(repository);
    QStringList shown = f.rows();
    shown.sort();
    EXPECT_EQ(shown, names.replaceInStrings(QRegularExpression(u"^"_s), u"? "_s));
}

TEST(Changes, ARefreshKeepsSelectionAndTicksAndFollowsTheDisk) {
    GitFixture repository;
    repository.commit(u"a.c|b.c|c.c"_list, "one\n");
    repository.writeAll(u"a.c|b.c|c.c"_list, "two\n");
    AppFixture f(repository);
    EXPECT_EQ(f.app.selectedChangeID.value(), u"a.c"_s);
    select(f, u"b.c"_s);
    f.app.setCommitSelection(marked({f.app.selectedChange()->path}), false);
    repository.git(u"checkout|-q|a.c"_list);
    repository.write(u"d.c"_s);
    awaited(f.app.refreshAll());
    EXPECT_EQ(f.rows(), u"M b.c|*M c.c|? d.c"_list);
    EXPECT_EQ(f.app.selectedChangeID.value(), u"b.c"_s);
    repository.git(u"checkout|-q|b.c"_list);
    awaited(f.app.refreshStatus());
    EXPECT_EQ(f.app.selectedChangeID.value(), u"c.c"_s);
    EXPECT_EQ(f.app.diffPath.value(), u"c.c"_s);
}

TEST(Changes, ALatin1ByteHidesNothing) {
    SvnFixture repository;
    repository.commit({{u"a.txt"_s, "one\n"}});
    repository.write(u"a.txt"_s, "M\xFCller\n");
    AppFixture f(repository);
    EXPECT_TRUE(contains(f.app.diffText.value(), u"-one\n+Müller\n"_s));
    EXPECT_EQ(f.app.changesLineSummary.value(), (LineChangeSummary{1, 1}));
}

} // namespace
} // namespace kestor

#include "history_fixture.h"
#include "support/app_test.h"
#include "support/test.h"

namespace kestor {
namespace {

TEST(HistoryCommands, OfferThePathThatTheShownTabHasSelected) {
    HeldApp f(RepositoryKind::svn);
    const auto ask = [&f] {
        f.tasks.push_back(f.app->showDiffAgainstRevision());
    };
    ask();
    f.app->changes = QList<WorkingCopyItem>{{.path = u"a.c"_s, .kind = SVNStatusKind::modified},
                                            {.path = u"b.c"_s, .kind = SVNStatusKind::modified}};
    f.app->selectedChangeID = u"b.c"_s;
    ask();
    f.app->selectedTab = WorkflowTab::incoming;
    f.app->selectedIncomingRevision = 9;
    ask();
    EXPECT_EQ(f.user.asked, u"prompt Diff: Revision Or Range=BASE, Path=|"
                            "prompt Diff: Revision Or Range=BASE, Path=b.c|"
                            "prompt Diff: Revision Or Range=9, Path=b.c"_list);
}

/// Three versions of "a@b.bin", which is no valid text, in either system.
const QByteArray versions[] = {QByteArray("\x00\xff one\r\n", 8), QByteArray("\x00\xff two\r\n", 8),
                               QByteArray("\x00\xff last\n", 8)};

TEST(HistoryCommands, TakeBackGetAndSaveOldVersions) {
    SvnFixture svn;
    GitFixture git;
    for (const auto &[name, repository] : Rows<RepositoryFixture *>{{"svn", &svn}, {"git", &git}}) {
        for (const QByteArray &version : versions)
            repository->commit({{u"a@b.bin"_s, version}});
        TempTree &tree = repository->tree;
        tree.makeDirectory(u"folder.bin"_s);
        HistoryFixture f(*repository);
        awaited(f.app.rollbackSelectedRevision());
        EXPECT_EQ(f.rows(), u"*M a@b.bin"_list);
        EXPECT_EQ(repository->read(u"a@b.bin"_s), versions[1]);

        f.app.selectedRevision = f.app.logEntries.value()[2].revision;
        const QMap<QString, QString> oldest{{u"path"_s, u"a@b.bin"_s}, {u"revision"_s, f.app.selectedRevisionToken()}};
        f.user.promptAnswer = oldest;
        f.user.chosenSaveFile = tree.path(u"saved.bin"_s);
        awaited(f.app.exportFileAtRevision());
        EXPECT_EQ(tree.read(u"saved.bin"_s), versions[0]) << "byte by byte";
        EXPECT_EQ(f.output().title, u"Export File"_s);
        f.user.chosenSaveFile = tree.path(u"folder.bin"_s);
        awaited(f.app.exportFileAtRevision());
        EXPECT_EQ(f.alertText(), u"Export File Failed: Could not write "_s + tree.path(u"folder.bin"_s) +
                                     u": Filename refers to a directory"_s);
        f.user.promptAnswer = u"path=a@b.bin|revision=v9"_answer;
        f.user.chosenSaveFile = tree.path(u"saved.bin"_s);
        awaited(f.app.exportFileAtRevision());
        EXPECT_TRUE(f.alertText().contains(u"v9"_s));
        EXPECT_EQ(tree.read(u"saved.bin"_s), versions[0]) << "the older file is left alone";

        awaited(f.app.revertAllPaths());
        f.user.promptAnswer = oldest;
        awaited(f.app.pullFileAtRevision());
        EXPECT_EQ(repository->read(u"a@b.bin"_s), versions[0]);
    }
}

TEST(HistoryCommands, ShowOldVersionsAndWhatChanged) {
    SvnFixture svn;
    GitFixture git;
    const Rows<RepositoryFixture *, QString, QString, QString> rows{{"svn", &svn, u"2"_s, u"2:3"_s, u"BASE"_s},
                                                                    {"git", &git, u"HEAD~1"_s, u"HEAD"_s, u"HEAD"_s}};
    for (const auto &[name, repository, oldRevision, change, base] : rows) {
        repository->commit({{u"d/icon@2x.txt"_s, "one\n"}});
        repository->commit({{u"d/icon@2x.txt"_s, "two\n"}});
        AppFixture f(*repository);
        const auto printed = [&f](QCoro::Task<> (AppState::*operation)(), const QMap<QString, QString> &answer) {
            f.user.promptAnswer = answer;
            awaited((f.app.*operation)());
            EXPECT_EQ(f.alertText(), QString());
            return f.output().stdoutText;
        };
        const QString target = u"d/icon@2x.txt"_s;
        EXPECT_EQ(printed(&AppState::catTarget, {{u"target"_s, target}, {u"revision"_s, oldRevision}}), u"one\n"_s);
        EXPECT_EQ(printed(&AppState::catTarget, {{u"target"_s, target}}), u"two\n"_s) << "the newest";
        for (const QString &path : {target, QString()}) {
            const QString diff =
                printed(&AppState::showDiffAgainstRevision, {{u"path"_s, path}, {u"revision"_s, change}});
            EXPECT_EQ(changedLines(diff), u"-one|+two"_list);
        }
        printed(&AppState::showDiffAgainstRevision, {{u"path"_s, target}, {u"revision"_s, base}});
    }
}

TEST(HistoryCommands, GitTakesANameForANameAndAPatternForAPattern) {
    GitFixture repository;
    repository.commit({{u"[ab].c"_s, "1\n"}, {u"a.c"_s, "1\n"}});
    repository.commit({{u"[ab].c"_s, "2\n"}, {u"a.c"_s, "2\n"}});
    HistoryFixture f(repository);
    f.select(u"[ab].c"_s);
    EXPECT_EQ(f.diffLines(), u"-1|+2"_list);
    f.user.promptAnswer = u"path=[ab].c|revision=HEAD~1"_answer;
    awaited(f.app.pullFileAtRevision());
    EXPECT_EQ(f.rows(), u"*M [ab].c"_list);
    f.user.promptAnswer = u"path=*.c|revision=HEAD~1"_answer;
    awaited(f.app.pullFileAtRevision());
    EXPECT_EQ(f.rows(), u"*M [ab].c|*M a.c"_list);
}

TEST(HistoryCommands, RollingBackADeletionTellsInItsQuestionWhatIsOverwritten) {
    GitFixture repository;
    repository.commit(u"conf"_list, "old\n");
    repository.git(u"rm|-q|--cached|conf"_list);
    repository.commit({{u".gitignore"_s, "conf\n"}});
    repository.write(u"conf"_s, "mine\n");
    AppFixture f(repository);
    awaited(f.app.loadHistory());
    f.user.confirms = false;
    awaited(f.app.rollbackSelectedRevision());
    EXPECT_TRUE(f.user.asked.join(u'|').endsWith(
        u"Review the resulting changes before committing. 1 ignored path(s) on disk will be overwritten: conf"_s));
    EXPECT_EQ(repository.tree.read(u"wc/conf"_s), "mine\n");
}

TEST(HistoryCommands, PullingOverLocalChangesAsksFirst) {
    GitFixture repository;
    repository.writeAll({{u"d/f.c"_s, "1\n"},
                         {u".env"_s, "1\n"},
                         {u"conf/c"_s, "1\n"},
                         {u"was/folder"_s, "1\n"},
                         {u".gitignore"_s, "*.o\n"},
                         {u"clean.c"_s, "1\n"}});
    repository.commitAll(u"first"_s);
    repository.git(u"tag|first"_list);
    repository.git(u"rm|-q|--cached|.env|conf/c"_list);
    repository.git(u"rm|-q|was/folder"_list);
    repository.write(u".gitignore"_s, "*.o\n.env\nconf/\nwas\n");
    repository.write(u"e/clean.c"_s);
    repository.commitAll(u"second"_s);
    repository.writeAll({{u"d/f.c"_s, "mine\n"}, {u".env"_s, "mine\n"}, {u"was"_s}, {u"e/x.o"_s}, {u"e/new"_s}});
    AppFixture f(repository);
    f.user.confirms = false;
    const Rows<QString, QString, bool> rows{{"changed file", u"d/f.c"_s, u"HEAD"_s, true},
                                            {"folder of one", u"d"_s, u"HEAD"_s, true},
                                            {"pattern", u"*.c"_s, u"HEAD"_s, true},
                                            {"ignored file", u".env"_s, u"first"_s, true},
                                            {"file in an ignored folder", u"conf/c"_s, u"first"_s, true},
                                            {"folder with an ignored file", u"conf"_s, u"first"_s, true},
                                            {"folder that is a file now", u"was"_s, u"first"_s, true},
                                            {"revision that Git cannot tell of", u"clean.c"_s, u"nowhere"_s, true},
                                            {"file as committed", u"clean.c"_s, u"first"_s, false},
                                            {"folder with what no commit has", u"e"_s, u"HEAD"_s, false}};
    for (const QString &untracked : u"no|normal"_list) {
        repository.git({u"config"_s, u"status.showUntrackedFiles"_s, untracked});
        for (const auto &[name, path, revision, asks] : rows) {
            f.user.promptAnswer = QMap<QString, QString>{{u"path"_s, path}, {u"revision"_s, revision}};
            f.user.asked.clear();
            awaited(f.app.pullFileAtRevision());
            EXPECT_EQ(
                f.user.asked.contains(u"confirm Pull File: Local changes in "_s + path + u" will be discarded."_s),
                asks);
        }
    }
    EXPECT_TRUE(f.app.commandOutput.value()->commandLine.endsWith(u" checkout HEAD -- e"_s));
    EXPECT_EQ(repository.tree.read(u"wc/d/f.c"_s), "mine\n");
    EXPECT_EQ(repository.tree.read(u"wc/.env"_s), "mine\n");
}

} // namespace
} // namespace kestor

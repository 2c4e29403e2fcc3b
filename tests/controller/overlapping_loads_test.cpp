#include "support/app_test.h"

namespace kestor {
namespace {

const QStringList probe = u"rev-parse|--show-toplevel"_list;
const QStringList status = u"status|--porcelain=v1|--untracked-files=normal"_list;

const QStringList log = u"log|--date=iso-strict|--name-status|"
                        "--format=--KESTOR-GIT-COMMIT--%H%x09%an%x09%aI%x09%s"_list;

/// As many commits of one file as there are hashes.
QByteArray printedLog(const QByteArray &file, const QList<QByteArray> &hashes) {
    QByteArray text;
    for (const QByteArray &hash : hashes)
        text += "--KESTOR-GIT-COMMIT--" + hash + "\tAda\t2024-01-01T00:00:00Z\tm\n\nM\t" + file + '\n';
    return text;
}

QStringList diffVector(const QString &hash) {
    return {u"show"_s, u"--format="_s, u"--patch"_s, u"--find-renames"_s, u"--no-ext-diff"_s, hash, u"--"_s, u"a.c"_s};
}

/// Two Git projects and tools that end when told.
class OverlappingLoads : public ::testing::Test, public HeldApp {
protected:
    OverlappingLoads() : HeldApp(RepositoryKind::git) {}

    void selectProject(qsizetype index) {
        app->selectedProjectID = app->projects.value()[index].id;
        tasks.push_back(app->projectSelectionChanged());
        finish(probe, "");
    }
    QStringList paths() const {
        QStringList all;
        for (const WorkingCopyItem &item : app->changes.value())
            all.append(item.path);
        return all;
    }
    void loadHistoryOf(qsizetype index) {
        app->selectedProjectID = app->projects.value()[index].id;
        app->repositoryInfo = RepositoryInfo{.workingRevision = u"main"_s};
        tasks.push_back(app->loadHistory());
    }
};

TEST_F(OverlappingLoads, AnOlderProjectsRowsNeverReplaceTheNewOnes) {
    selectProject(0);
    ASSERT_TRUE(waitForRun(status, 1));
    EXPECT_EQ(app->busyMessage.value(), u"Loading changes"_s);
    selectProject(1);
    ASSERT_TRUE(waitForRun(status, 2));
    // The second project answers first.
    tool->runs[tool->vectors().lastIndexOf(status)].promise->addResult(SVNCommandResult{{}, 0, " M two.c\n", {}});
    tool->runs[tool->vectors().lastIndexOf(status)].promise->finish();
    ASSERT_TRUE(waitUntil([&] { return paths() == u"two.c"_list; }));
    EXPECT_EQ(app->busyMessage.value(), std::nullopt);
    finish(status, " M one.c\n");
    settle();
    EXPECT_EQ(paths(), u"two.c"_list);
    EXPECT_EQ(app->selectedChangeID.value(), u"two.c"_s);
}

TEST_F(OverlappingLoads, ASupersededLoadTakesBackNoOtherBusyMessage) {
    selectProject(0);
    ASSERT_TRUE(waitForRun(status, 1));
    tasks.push_back(
        app->runGitCommand(u"Pull"_s, {u"pull"_s}, folder.path(), RefreshAfter::no, ShowOutput::whenPrinted));
    EXPECT_EQ(app->busyMessage.value(), u"Pull"_s);
    finish(status, "");
    settle();
    EXPECT_EQ(app->busyMessage.value(), u"Pull"_s);
    finish({u"pull"_s}, "");
    EXPECT_TRUE(waitUntil([&] { return !app->busyMessage.value(); }));
}

TEST_F(OverlappingLoads, TheFailureOfAnOldLoadStaysUntold) {
    selectProject(0);
    ASSERT_TRUE(waitForRun(status, 1));
    selectProject(1);
    ASSERT_TRUE(waitForRun(status, 2));
    ASSERT_TRUE(tool->finish(status, "", 128, "fatal: gone"));
    finish(status, " M two.c\n");
    ASSERT_TRUE(waitUntil([&] { return paths() == u"two.c"_list; }));
    EXPECT_EQ(app->alert.value(), std::nullopt);
}

TEST_F(OverlappingLoads, AnOlderDiffNeverReplacesTheNewOne) {
    app->selectedProjectID = app->projects.value()[0].id;
    app->changes = QList<WorkingCopyItem>{{.path = u"a.c"_s, .kind = SVNStatusKind::modified},
                                          {.path = u"b.c"_s, .kind = SVNStatusKind::modified}};
    for (const QString &path : u"a.c|b.c"_list) {
        app->selectedChangeID = path;
        tasks.push_back(app->selectedChangeChanged());
    }
    ASSERT_TRUE(waitUntil([&] { return tool->runs.size() == 2; }));
    const auto finishRun = [this](qsizetype run, const QByteArray &printed) {
        tool->runs[run].promise->addResult(SVNCommandResult{{}, 0, printed, {}});
        tool->runs[run].promise->finish();
    };
    finishRun(1, "+new\n");
    ASSERT_TRUE(waitUntil([&] { return app->diffText.value() == u"+new\n"_s; }));
    finishRun(0, "+old\n");
    settle();
    EXPECT_EQ(app->diffPath.value(), u"b.c"_s);
    EXPECT_EQ(app->diffText.value(), u"+new\n"_s);
}

TEST_F(OverlappingLoads, OnlyAskedForLoadsMayTakeGitsLocks) {
    selectProject(0);
    ASSERT_TRUE(waitForRun(status, 1));
    EXPECT_EQ(tool->runs[tool->vectors().lastIndexOf(status)].purpose, RunPurpose::backgroundRead);
    tasks.push_back(app->refreshStatus());
    ASSERT_TRUE(waitForRun(status, 2));
    EXPECT_EQ(tool->runs[tool->vectors().lastIndexOf(status)].purpose, RunPurpose::userCommand);
}

TEST_F(OverlappingLoads, AnOlderHistoryNeverReplacesTheNewOne) {
    loadHistoryOf(0);
    loadHistoryOf(0);
    loadHistoryOf(1);
    ASSERT_EQ(tool->vectors(), (QList<QStringList>{log, log, log}));
    EXPECT_EQ(app->busyMessage.value(), u"Loading history"_s);
    tool->runs[2].promise->addResult(SVNCommandResult{{}, 0, printedLog("two.c", {"abc"}), {}});
    tool->runs[2].promise->finish();
    ASSERT_TRUE(waitUntil([&] { return app->historyLoaded.value(); }));
    EXPECT_EQ(app->busyMessage.value(), std::nullopt) << "the list is there, its sum and diff may follow";
    ASSERT_TRUE(tool->finish(log, "", 128, "fatal: gone"));
    const QStringList head = u"rev-parse|--verify|--quiet|HEAD"_list;
    ASSERT_TRUE(waitUntil([&] { return tool->finish(head, "", 128); }));
    finish(log, printedLog("one.c", {"def"}));
    settle();
    EXPECT_EQ(app->selectedHistoryPath.value(), u"two.c"_s);
    EXPECT_EQ(app->alert.value(), std::nullopt);
}

TEST_F(OverlappingLoads, WalkingThroughRevisionsLoadsTheLastOneAndFewOnTheWay) {
    loadHistoryOf(0);
    finish(log, printedLog("a.c", {"h0", "h1", "h2", "h3", "h4"}));
    ASSERT_TRUE(waitForRun(diffVector(u"h0"_s)));
    for (qint64 age = 1; age < 5; ++age) {
        app->selectedRevision = 1000000 - age;
        tasks.push_back(app->selectedHistoryRevisionChanged());
    }
    finish(diffVector(u"h1"_s), "+1\n");
    finish(diffVector(u"h4"_s), "+4\n");
    ASSERT_TRUE(waitUntil([&] { return app->historyDiffText.value() == u"+4\n"_s; }));
    finish(diffVector(u"h0"_s), "+0\n");
    settle();
    EXPECT_EQ(app->historyDiffID.value(), (FileRevisionID{u"a.c"_s, 1000000 - 4}));
    EXPECT_FALSE(tool->vectors().contains(diffVector(u"h2"_s)) || tool->vectors().contains(diffVector(u"h3"_s)));
}

TEST_F(OverlappingLoads, ARefreshAsksAgainForTheDiffThatASilentServerHolds) {
    loadHistoryOf(0);
    finish(log, printedLog("a.c", {"h0", "h1"}));
    ASSERT_TRUE(waitForRun(diffVector(u"h0"_s)));
    app->selectedRevision = 1000000 - 1;
    tasks.push_back(app->selectedHistoryRevisionChanged());
    ASSERT_TRUE(waitForRun(diffVector(u"h1"_s)));
    loadHistoryOf(0);
    finish(log, printedLog("a.c", {"h0", "h1"}));
    EXPECT_TRUE(waitForRun(diffVector(u"h1"_s), 2));
}

TEST(Lifetime, AStateThatGoesAwayWhileToolsRunLeavesNothingBehind) {
    const TempTree folder;
    runTool(u"git"_s, u"init|-q"_list, folder.path());
    QSettings settings(folder.path(u"test.conf"_s), QSettings::IniFormat);
    ScriptedUser user;
    {
        AppState app(settings, user, systemTools(settings));
        app.addProject(folder.path(), RepositoryKind::git);
        app.runGitCommand(u"Wait"_s, {u"-c"_s, u"alias.wait=!sleep 60"_s, u"wait"_s}, folder.path(), RefreshAfter::yes,
                          ShowOutput::always);
        EXPECT_TRUE(app.busyMessage.value().has_value());
    }
    HeldApp::settle();
}

} // namespace
} // namespace kestor

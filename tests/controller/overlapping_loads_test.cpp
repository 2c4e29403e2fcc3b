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
    selectProject(0);
    ASSERT_TRUE(waitForRun(status, 2));
    selectProject(1);
    ASSERT_TRUE(waitForRun(status, 3));
    // The second project answers first.
    finishRun(tool->vectors().lastIndexOf(status), " M two.c\n");
    ASSERT_TRUE(waitUntil([&] { return paths() == u"two.c"_list; }));
    EXPECT_EQ(app->busyMessage.value(), std::nullopt);
    finish(status, " M one.c\n");
    finish(status, "", 128);
    settle();
    EXPECT_EQ(paths(), u"two.c"_list);
    EXPECT_EQ(app->alert.value(), std::nullopt);
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

TEST_F(OverlappingLoads, AnOlderDiffNeverReplacesTheNewOne) {
    app->selectedProjectID = app->projects.value()[0].id;
    app->changes = QList<WorkingCopyItem>{{.path = u"a.c"_s, .kind = SVNStatusKind::modified},
                                          {.path = u"b.c"_s, .kind = SVNStatusKind::modified}};
    for (const QString &path : u"a.c|b.c"_list) {
        app->selectedChangeID = path;
        tasks.push_back(app->selectedChangeChanged());
    }
    ASSERT_TRUE(waitUntil([&] { return tool->runs.size() == 2; }));
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
    finishRun(2, printedLog("two.c", {"abc"}));
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

TEST_F(OverlappingLoads, LookingAgainAtATabThatStillLoadsAsksForNothing) {
    loadHistoryOf(0);
    app->selectedTab = WorkflowTab::history;
    tasks.push_back(app->tabChanged());
    EXPECT_EQ(tool->vectors(), QList<QStringList>{log});
    finish(log, "", 1);
    ASSERT_TRUE(waitUntil([&] { return !app->busyMessage.value(); }));
    tasks.push_back(app->tabChanged());
    EXPECT_TRUE(waitForRun(log, 2));
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
    const GitFixture repository;
    {
        AppFixture f(repository);
        f.app.refreshAll();
        f.app.runGitCommand(u"Wait"_s, u"-c|alias.wait=!sleep 60|wait"_list, repository.path(), RefreshAfter::yes,
                            ShowOutput::always);
        EXPECT_TRUE(f.app.busyMessage.value().has_value());
    }
    HeldApp::settle();
}

} // namespace
} // namespace kestor

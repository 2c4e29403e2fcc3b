#include "support/app_fixture.h"
#include "support/held_tool.h"
#include "support/printers.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::HeldTool;
using testing::ScriptedUser;
using testing::TempTree;
using testing::waitUntil;

const QStringList probe{u"rev-parse"_s, u"--show-toplevel"_s};
const QStringList status{u"status"_s, u"--porcelain=v1"_s, u"--untracked-files=normal"_s};

const QStringList log{u"log"_s, u"--date=iso-strict"_s, u"--name-status"_s,
                      u"--format=--KESTOR-GIT-COMMIT--%H%x09%an%x09%aI%x09%s"_s};

/// As many commits of one file as there are hashes.
QByteArray printedLog(const QByteArray &file, const QList<QByteArray> &hashes) {
    QByteArray text;
    for (const QByteArray &hash : hashes)
        text += "--KESTOR-GIT-COMMIT--" + hash + "\tAda\t2024-01-01T00:00:00Z\tm\n\nM\t" + file + '\n';
    return text;
}

QStringList diffOf(const QString &hash) {
    return {u"show"_s, u"--format="_s, u"--patch"_s, u"--find-renames"_s, u"--no-ext-diff"_s, hash, u"--"_s, u"a.c"_s};
}

/// Two Git projects and tools that end when told.
class OverlappingLoads : public ::testing::Test {
protected:
    OverlappingLoads() {
        const QList<Project> projects{{QUuid::createUuid(), u"one"_s, folder.path(), RepositoryKind::git},
                                      {QUuid::createUuid(), u"two"_s, folder.path(), RepositoryKind::git}};
        ProjectStore(settings).save(projects);
        app = std::make_unique<AppState>(settings, user, Tools{svn, svn, git});
    }

    void selectProject(qsizetype index) {
        app->selectedProjectID = app->projects.value()[index].id;
        tasks.push_back(app->projectSelectionChanged());
        finish(probe, "");
    }
    void finish(const QStringList &arguments, const QByteArray &output) {
        ASSERT_TRUE(waitUntil([&] { return git->finish(arguments, output); })) << qPrintable(arguments.join(u' '));
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
    qsizetype statusRuns() const { return git->vectors().count(status); }

    TempTree folder{};
    QSettings settings{folder.path(u"test.conf"_s), QSettings::IniFormat};
    ScriptedUser user{};
    std::shared_ptr<HeldTool> svn = std::make_shared<HeldTool>();
    std::shared_ptr<HeldTool> git = std::make_shared<HeldTool>();
    std::vector<QCoro::Task<>> tasks{};
    std::unique_ptr<AppState> app{};
};

TEST_F(OverlappingLoads, AnOlderProjectsRowsNeverReplaceTheNewOnes) {
    selectProject(0);
    ASSERT_TRUE(waitUntil([&] { return statusRuns() == 1; }));
    EXPECT_EQ(app->busyMessage.value(), u"Loading changes"_s);
    selectProject(1);
    ASSERT_TRUE(waitUntil([&] { return statusRuns() == 2; }));
    // The second project answers first.
    git->runs[git->vectors().lastIndexOf(status)].promise->addResult(SVNCommandResult{{}, 0, " M two.c\n", {}});
    git->runs[git->vectors().lastIndexOf(status)].promise->finish();
    ASSERT_TRUE(waitUntil([&] { return paths() == QStringList{u"two.c"_s}; }));
    EXPECT_EQ(app->busyMessage.value(), std::nullopt);
    finish(status, " M one.c\n");
    for (int i = 0; i < 50; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    EXPECT_EQ(paths(), QStringList{u"two.c"_s});
    EXPECT_EQ(app->selectedChangeID.value(), u"two.c"_s);
}

TEST_F(OverlappingLoads, ASupersededLoadTakesBackNoOtherBusyMessage) {
    selectProject(0);
    ASSERT_TRUE(waitUntil([&] { return statusRuns() == 1; }));
    tasks.push_back(
        app->runGitCommand(u"Pull"_s, {u"pull"_s}, folder.path(), RefreshAfter::no, ShowOutput::whenPrinted));
    EXPECT_EQ(app->busyMessage.value(), u"Pull"_s);
    finish(status, "");
    for (int i = 0; i < 50; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    EXPECT_EQ(app->busyMessage.value(), u"Pull"_s);
    finish({u"pull"_s}, "");
    EXPECT_TRUE(waitUntil([&] { return !app->busyMessage.value(); }));
}

TEST_F(OverlappingLoads, TheFailureOfAnOldLoadStaysUntold) {
    selectProject(0);
    ASSERT_TRUE(waitUntil([&] { return statusRuns() == 1; }));
    selectProject(1);
    ASSERT_TRUE(waitUntil([&] { return statusRuns() == 2; }));
    ASSERT_TRUE(git->finish(status, "", 128, "fatal: gone"));
    finish(status, " M two.c\n");
    ASSERT_TRUE(waitUntil([&] { return paths() == QStringList{u"two.c"_s}; }));
    EXPECT_EQ(app->alert.value(), std::nullopt);
}

TEST_F(OverlappingLoads, OnlyAskedForLoadsMayTakeGitsLocks) {
    selectProject(0);
    ASSERT_TRUE(waitUntil([&] { return statusRuns() == 1; }));
    EXPECT_EQ(git->runs[git->vectors().lastIndexOf(status)].purpose, RunPurpose::backgroundRead);
    tasks.push_back(app->refreshStatus());
    ASSERT_TRUE(waitUntil([&] { return statusRuns() == 2; }));
    EXPECT_EQ(git->runs[git->vectors().lastIndexOf(status)].purpose, RunPurpose::userCommand);
}

TEST_F(OverlappingLoads, AnOlderHistoryNeverReplacesTheNewOne) {
    loadHistoryOf(0);
    loadHistoryOf(1);
    ASSERT_EQ(git->vectors(), (QList<QStringList>{log, log}));
    EXPECT_EQ(app->busyMessage.value(), u"Loading history"_s);
    git->runs[1].promise->addResult(SVNCommandResult{{}, 0, printedLog("two.c", {"abc"}), {}});
    git->runs[1].promise->finish();
    ASSERT_TRUE(waitUntil([&] { return app->historyLoaded.value(); }));
    EXPECT_EQ(app->busyMessage.value(), std::nullopt) << "the list is there, its sum and diff may follow";
    ASSERT_TRUE(git->finish(log, "", 128, "fatal: gone"));
    const QStringList head{u"rev-parse"_s, u"--verify"_s, u"--quiet"_s, u"HEAD"_s};
    ASSERT_TRUE(waitUntil([&] { return git->finish(head, "", 128); }));
    for (int i = 0; i < 50; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    EXPECT_EQ(app->selectedHistoryPath.value(), u"two.c"_s);
    EXPECT_EQ(app->alert.value(), std::nullopt);
}

TEST_F(OverlappingLoads, WalkingThroughRevisionsLoadsTheLastOneAndFewOnTheWay) {
    loadHistoryOf(0);
    finish(log, printedLog("a.c", {"h0", "h1", "h2", "h3", "h4"}));
    ASSERT_TRUE(waitUntil([&] { return git->vectors().contains(diffOf(u"h0"_s)); }));
    for (qint64 age = 1; age < 5; ++age) {
        app->selectedRevision = 1000000 - age;
        tasks.push_back(app->selectedHistoryRevisionChanged());
    }
    finish(diffOf(u"h1"_s), "+1\n");
    finish(diffOf(u"h4"_s), "+4\n");
    ASSERT_TRUE(waitUntil([&] { return app->historyDiffText.value() == u"+4\n"_s; }));
    finish(diffOf(u"h0"_s), "+0\n");
    for (int i = 0; i < 50; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    EXPECT_EQ(app->historyDiffID.value(), (FileRevisionID{u"a.c"_s, 1000000 - 4}));
    EXPECT_FALSE(git->vectors().contains(diffOf(u"h2"_s)) || git->vectors().contains(diffOf(u"h3"_s)));
}

TEST_F(OverlappingLoads, ARefreshAsksAgainForTheDiffThatASilentServerHolds) {
    loadHistoryOf(0);
    finish(log, printedLog("a.c", {"h0", "h1"}));
    ASSERT_TRUE(waitUntil([&] { return git->vectors().contains(diffOf(u"h0"_s)); }));
    app->selectedRevision = 1000000 - 1;
    tasks.push_back(app->selectedHistoryRevisionChanged());
    ASSERT_TRUE(waitUntil([&] { return git->vectors().contains(diffOf(u"h1"_s)); }));
    loadHistoryOf(0);
    finish(log, printedLog("a.c", {"h0", "h1"}));
    EXPECT_TRUE(waitUntil([&] { return git->vectors().count(diffOf(u"h1"_s)) == 2; }));
}

TEST(Lifetime, AStateThatGoesAwayWhileToolsRunLeavesNothingBehind) {
    const TempTree folder;
    testing::runTool(u"git"_s, {u"init"_s, u"-q"_s}, folder.path());
    QSettings settings(folder.path(u"test.conf"_s), QSettings::IniFormat);
    ScriptedUser user;
    {
        AppState app(settings, user, systemTools(settings));
        app.addProject(folder.path(), RepositoryKind::git);
        app.runGitCommand(u"Wait"_s, {u"-c"_s, u"alias.wait=!sleep 60"_s, u"wait"_s}, folder.path(), RefreshAfter::yes,
                          ShowOutput::always);
        EXPECT_TRUE(app.busyMessage.value().has_value());
    }
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
}

} // namespace
} // namespace kestor

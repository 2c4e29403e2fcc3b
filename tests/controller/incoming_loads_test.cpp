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

const QStringList infoRun{u"info"_s, u"--xml"_s};
const QStringList statusRun{u"status"_s, u"--xml"_s, u"-u"_s};
const QByteArray printedInfo = "<info><entry path='.' revision='10'><url>file:///r</url></entry></info>";

QByteArray statusAt(const QByteArray &head) {
    return "<status><target path='.'><against revision='" + head + "'/></target></status>";
}

QStringList logTo(const QString &head) {
    return {u"log"_s, u"--xml"_s, u"--verbose"_s, u"-r"_s, u"11:"_s + head};
}

QByteArray printedLog(const QList<QByteArray> &revisions) {
    QByteArray text = "<log>";
    for (const QByteArray &revision : revisions)
        text += "<logentry revision='" + revision + "'><msg>m</msg></logentry>";
    return text + "</log>";
}

QStringList diffOf(const QString &revision) {
    return {u"diff"_s, u"-c"_s, revision, u"."_s};
}

const QStringList summaryTo12{u"diff"_s, u"-r"_s, u"10:12"_s, u"file:///r@12"_s};

/// Two Subversion projects and tools that end when told.
class IncomingLoads : public ::testing::Test {
protected:
    IncomingLoads() {
        const QList<Project> projects{{QUuid::createUuid(), u"one"_s, folder.path(), RepositoryKind::svn},
                                      {QUuid::createUuid(), u"two"_s, folder.path(), RepositoryKind::svn}};
        ProjectStore(settings).save(projects);
        app = std::make_unique<AppState>(settings, user, Tools{svn, svn, svn});
    }

    void load() { tasks.push_back(app->incoming.loadIncoming()); }
    void finish(const QStringList &arguments, const QByteArray &output, qint32 status = 0) {
        ASSERT_TRUE(waitUntil([&] { return svn->finish(arguments, output, status, status == 0 ? "" : "svn: E1"); }))
            << qPrintable(arguments.join(u' '));
    }
    void finishStatus(const QByteArray &head) {
        finish(infoRun, printedInfo);
        finish(statusRun, statusAt(head));
    }
    static void settle() {
        for (int i = 0; i < 50; ++i)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    }
    QList<qint64> revisions() const {
        QList<qint64> all;
        for (const LogEntry &entry : app->incomingEntries.value())
            all.append(entry.revision);
        return all;
    }

    TempTree folder{};
    QSettings settings{folder.path(u"test.conf"_s), QSettings::IniFormat};
    ScriptedUser user{};
    std::shared_ptr<HeldTool> svn = std::make_shared<HeldTool>();
    std::vector<QCoro::Task<>> tasks{};
    std::unique_ptr<AppState> app{};
};

TEST_F(IncomingLoads, AsksBothAtOnceAndShowsTheListBeforeItsSumAndDiff) {
    load();
    EXPECT_EQ(svn->vectors(), (QList<QStringList>{infoRun, statusRun}));
    EXPECT_EQ(app->busyMessage.value(), u"Loading incoming"_s);
    finishStatus("12");
    finish(logTo(u"12"_s), printedLog({"11", "12"}));
    ASSERT_TRUE(waitUntil([&] { return !app->busyMessage.value(); }));
    EXPECT_EQ(revisions(), (QList<qint64>{12, 11}));
    EXPECT_EQ(app->incomingLineSummary.value(), LineChangeSummary());
    finish(summaryTo12, "Index: a\n@@ -1 +1 @@\n-x\n+y\n+z\n");
    ASSERT_TRUE(waitUntil([&] { return app->incomingLineSummary.value() == LineChangeSummary{2, 1}; }));
    finish(diffOf(u"12"_s), "+twelve\n");
    ASSERT_TRUE(waitUntil([&] { return app->incomingDiffRevision.value() == 12; }));
    load();
    finishStatus("12");
    finish(logTo(u"12"_s), printedLog({"11", "12"}));
    finish(diffOf(u"12"_s), "+twelve\n");
    ASSERT_TRUE(waitUntil([&] { return !app->busyMessage.value(); }));
    settle();
    EXPECT_EQ(svn->vectors().count(summaryTo12), 1) << "the same range has the same sum";
    EXPECT_EQ(app->incomingLineSummary.value(), (LineChangeSummary{2, 1}));
}

TEST_F(IncomingLoads, RunsNoLogWithoutARange) {
    load();
    finishStatus("10");
    ASSERT_TRUE(waitUntil([&] { return app->incomingLoaded.value(); }));
    settle();
    EXPECT_EQ(svn->vectors(), (QList<QStringList>{infoRun, statusRun}));
    EXPECT_EQ(app->incoming.incomingRangeDescription(), u"r10 to r10"_s);
}

TEST_F(IncomingLoads, AFailedLogLeavesRangeAndListAsTheyWere) {
    load();
    finishStatus("11");
    finish(logTo(u"11"_s), printedLog({"11"}));
    ASSERT_TRUE(waitUntil([&] { return !app->busyMessage.value(); }));
    load();
    finishStatus("12");
    finish(logTo(u"12"_s), "", 1);
    ASSERT_TRUE(waitUntil([&] { return app->alert.value().has_value(); }));
    EXPECT_EQ(app->alert.value()->title, u"Incoming Failed"_s);
    EXPECT_EQ(app->busyMessage.value(), std::nullopt);
    EXPECT_EQ(app->incoming.incomingRangeDescription(), u"r10 to r11"_s);
    EXPECT_EQ(revisions(), QList<qint64>{11});
}

TEST_F(IncomingLoads, AnOlderLoadNeitherReplacesANewerOneNorTellsOfItsFailure) {
    load();
    load();
    svn->runs[2].promise->addResult(SVNCommandResult{{}, 0, printedInfo, {}});
    svn->runs[2].promise->finish();
    svn->runs[3].promise->addResult(SVNCommandResult{{}, 0, statusAt("12"), {}});
    svn->runs[3].promise->finish();
    finish(logTo(u"12"_s), printedLog({"12"}));
    ASSERT_TRUE(waitUntil([&] { return !app->busyMessage.value(); }));
    finish(infoRun, printedInfo);
    finish(statusRun, "", 1);
    settle();
    EXPECT_EQ(revisions(), QList<qint64>{12});
    EXPECT_EQ(app->alert.value(), std::nullopt);
}

TEST_F(IncomingLoads, NothingOfAProjectThatWasLeftIsShown) {
    load();
    finishStatus("12");
    ASSERT_TRUE(waitUntil([&] { return svn->vectors().contains(logTo(u"12"_s)); }));
    app->selectedProjectID = app->projects.value()[1].id;
    tasks.push_back(app->projectSelectionChanged());
    finish(logTo(u"12"_s), printedLog({"12"}));
    settle();
    EXPECT_EQ(revisions(), QList<qint64>());
    EXPECT_FALSE(app->incomingLoaded);
    EXPECT_EQ(app->busyMessage.value(), u"Loading changes"_s) << "that of the other project";
}

TEST_F(IncomingLoads, WalkingThroughRevisionsLoadsTheLastOneAndFewOnTheWay) {
    load();
    finishStatus("15");
    finish(logTo(u"15"_s), printedLog({"11", "12", "13", "14", "15"}));
    ASSERT_TRUE(waitUntil([&] { return svn->vectors().contains(diffOf(u"15"_s)); }));
    for (const qint64 revision : {14, 13, 12, 11}) {
        app->selectedIncomingRevision = revision;
        tasks.push_back(app->incoming.selectedIncomingRevisionChanged());
    }
    finish(diffOf(u"14"_s), "+14\n");
    finish(diffOf(u"11"_s), "+11\n");
    ASSERT_TRUE(waitUntil([&] { return app->incomingDiffText.value() == u"+11\n"_s; }));
    finish(diffOf(u"15"_s), "+15\n");
    settle();
    EXPECT_EQ(app->incomingDiffRevision.value(), 11);
    EXPECT_FALSE(svn->vectors().contains(diffOf(u"12"_s)) || svn->vectors().contains(diffOf(u"13"_s)));
}

TEST_F(IncomingLoads, ARefreshAsksAgainForWhatASilentServerHolds) {
    const auto loadAll = [this] {
        load();
        finishStatus("12");
        finish(logTo(u"12"_s), printedLog({"11", "12"}));
    };
    const auto runs = [this](const QStringList &arguments) {
        return svn->vectors().count(arguments);
    };
    loadAll();
    ASSERT_TRUE(waitUntil([&] { return runs(diffOf(u"12"_s)) == 1; }));
    app->selectedIncomingRevision = 11;
    tasks.push_back(app->incoming.selectedIncomingRevisionChanged());
    ASSERT_TRUE(waitUntil([&] { return runs(diffOf(u"11"_s)) == 1; }));
    loadAll();
    ASSERT_TRUE(waitUntil([&] { return runs(diffOf(u"11"_s)) == 2 && runs(summaryTo12) == 2; }));
    loadAll();
    ASSERT_TRUE(waitUntil([&] { return runs(diffOf(u"11"_s)) == 3; }));
    EXPECT_EQ(runs(summaryTo12), 2) << "each reads the whole range";
    for (int i = 0; i < 3; ++i)
        finish(diffOf(u"11"_s), "+eleven\n");
    EXPECT_TRUE(waitUntil([&] { return app->incomingDiffText.value() == u"+eleven\n"_s; }));
    finish(summaryTo12, "Index: a\n@@ -1 +1 @@\n-x\n+y\n+z\n");
    EXPECT_TRUE(waitUntil([&] { return app->incomingLineSummary.value() == LineChangeSummary{2, 1}; }));
    settle();
    EXPECT_EQ(runs(summaryTo12), 2) << "the sum is known";
}

} // namespace
} // namespace kestor

#include "support/app_test.h"

namespace kestor {
namespace {

const QStringList infoRun = u"info|--xml"_list;
const QStringList statusRun = u"status|--xml|-u"_list;
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
    return readableSvnDiff() + QStringList{u"-c"_s, revision, u"."_s};
}

const QStringList summaryTo12 = readableSvnDiff() + u"-r|10:12|file:///r@12"_list;

/// Two Subversion projects and tools that end when told.
class IncomingLoads : public ::testing::Test, public HeldApp {
protected:
    IncomingLoads() : HeldApp(RepositoryKind::svn) {}

    void load() { tasks.push_back(app->incoming.loadIncoming()); }
    void finishStatus(const QByteArray &head) {
        finish(infoRun, printedInfo);
        finish(statusRun, statusAt(head));
    }
    QList<qint64> revisions() const {
        QList<qint64> all;
        for (const LogEntry &entry : app->incomingEntries.value())
            all.append(entry.revision);
        return all;
    }
};

TEST_F(IncomingLoads, AsksBothAtOnceAndShowsTheListBeforeItsSumAndDiff) {
    load();
    EXPECT_EQ(tool->vectors(), (QList<QStringList>{infoRun, statusRun}));
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
    EXPECT_EQ(tool->vectors().count(summaryTo12), 1) << "the same range has the same sum";
    EXPECT_EQ(app->incomingLineSummary.value(), (LineChangeSummary{2, 1}));
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
    finishRun(2, printedInfo);
    finishRun(3, statusAt("12"));
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
    ASSERT_TRUE(waitForRun(logTo(u"12"_s)));
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
    ASSERT_TRUE(waitForRun(diffOf(u"15"_s)));
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
    EXPECT_FALSE(tool->vectors().contains(diffOf(u"12"_s)) || tool->vectors().contains(diffOf(u"13"_s)));
}

TEST_F(IncomingLoads, ARefreshAsksAgainForWhatASilentServerHolds) {
    const auto loadAll = [this] {
        load();
        finishStatus("12");
        finish(logTo(u"12"_s), printedLog({"11", "12"}));
    };
    loadAll();
    ASSERT_TRUE(waitForRun(diffOf(u"12"_s), 1));
    app->selectedIncomingRevision = 11;
    tasks.push_back(app->incoming.selectedIncomingRevisionChanged());
    ASSERT_TRUE(waitForRun(diffOf(u"11"_s), 1));
    loadAll();
    ASSERT_TRUE(waitUntil([&] { return runs(diffOf(u"11"_s)) == 2 && runs(summaryTo12) == 2; }));
    loadAll();
    ASSERT_TRUE(waitForRun(diffOf(u"11"_s), 3));
    EXPECT_EQ(runs(summaryTo12), 2) << "each reads the whole range";
}

} // namespace
} // namespace kestor

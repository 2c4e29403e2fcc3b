#include "incoming_fixture.h"
#include "support/printers.h"
#include "support/svn_server.h"

#include <QDir>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::awaited;
using testing::GitFixture;
using testing::IncomingFixture;
using testing::runTool;
using testing::SharedRepository;
using testing::SvnServer;
using testing::waitUntil;

/// Three revisions: one of a file, one of several, one of a picture.
class BusyColleague : public SharedRepository {
public:
    BusyColleague() {
        theyWrite(u"a.c"_s, "one\ntwo\n");
        theyCommit(u"three"_s);
        theyWrite(u"new.c"_s, "n\n");
        theirSvn({u"delete"_s, u"-q"_s, u"src/b.c"_s});
        theyCommit(u"four"_s);
        theyWrite(u"icon@2x.png"_s, "\x89PNG two");
        theyCommit(u"five"_s);
    }
};

TEST(Incoming, ShowsWhatAnUpdateWouldBring) {
    const BusyColleague repository;
    IncomingFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.range(), u"r2 to r5: [5] 4 3"_s);
    EXPECT_EQ(f.outdated(), (QStringList{u"M ."_s, u"M a.c"_s, u"M icon@2x.png"_s, u"A new.c"_s, u"D src/b.c"_s}));
    EXPECT_EQ(f.app.incomingLineSummary.value(), (LineChangeSummary{3, 2}));
    EXPECT_EQ(f.app.busyMessage.value(), std::nullopt);
    EXPECT_EQ(f.app.incomingDiffRevision.value(), 5);
    EXPECT_EQ(f.app.selectedRevisionToken(), u"5"_s);
    const DiffPreview picture = f.app.incomingDiffPreview;
    EXPECT_EQ(picture.kind, DiffPreviewKind::image);
    EXPECT_EQ(picture.path, u"icon@2x.png"_s);
    EXPECT_EQ(picture.oldData, QByteArray("\x89PNG one"));
    EXPECT_EQ(picture.newData, QByteArray("\x89PNG two"));
    f.select(4);
    EXPECT_EQ(f.diffLines(), (QStringList{u"+n"_s, u"-b"_s}));
    EXPECT_EQ(f.app.incomingDiffPreview.value(), DiffPreview());
    f.select(3);
    EXPECT_EQ(f.diffLines(), QStringList{u"+two"_s});
    awaited(f.app.refreshAll());
    EXPECT_EQ(f.range(), u"r2 to r5: 5 4 [3]"_s) << "what was selected stays";
}

TEST(Incoming, IsTrueAfterAnUpdateWithoutARestart) {
    BusyColleague repository;
    repository.write(u"a.c"_s, "one\nmine\n");
    IncomingFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    awaited(f.app.runSelectedProjectCommand(u"Update"_s, {u"update"_s}, RefreshAfter::yes, ShowOutput::always));
    EXPECT_EQ(f.range(), u"r5 to r5: "_s);
    EXPECT_TRUE(f.app.incomingLoaded);
    EXPECT_EQ(f.outdated(), QStringList());
    EXPECT_EQ(f.app.incomingLineSummary.value(), LineChangeSummary());
    EXPECT_EQ(f.app.incomingDiffText.value(), QString());
    EXPECT_EQ(f.app.incomingDiffRevision.value(), std::nullopt);
    EXPECT_TRUE(f.rows().contains(u"C a.c"_s)) << f.rows().join(u' ').toStdString();
}

TEST(Incoming, CountsNothingThatAnUpdateOnAnotherTabHasBrought) {
    const BusyColleague repository;
    IncomingFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    f.app.selectedTab = WorkflowTab::changes;
    const auto update = [&f](const QString &revision) {
        awaited(f.app.runSelectedProjectCommand(u"Update"_s, {u"update"_s, u"-r"_s, revision}, RefreshAfter::yes,
                                                ShowOutput::always));
    };
    update(u"4"_s);
    EXPECT_EQ(f.range(), u"r2 to r5: [5] 4 3"_s) << "some of it is still to come";
    update(u"5"_s);
    EXPECT_EQ(f.range(), u"-: "_s);
    f.app.selectedTab = WorkflowTab::incoming;
    awaited(f.app.tabChanged());
    EXPECT_EQ(f.range(), u"r5 to r5: "_s);
}

TEST(Incoming, LoadsAgainWhenItIsShownAfterACommandOrHasNothing) {
    SharedRepository repository;
    IncomingFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    EXPECT_EQ(f.range(), u"r2 to r2: "_s);
    repository.theyWrite(u"a.c"_s, "2\n");
    repository.theyCommit(u"three"_s);
    awaited(f.app.tabChanged());
    EXPECT_EQ(f.range(), u"r2 to r3: [3]"_s) << "it was empty";
    repository.theyWrite(u"a.c"_s, "3\n");
    repository.theyCommit(u"four"_s);
    awaited(f.app.tabChanged());
    EXPECT_EQ(f.range(), u"r2 to r3: [3]"_s) << "nothing asked for it";
    f.app.selectedTab = WorkflowTab::changes;
    awaited(f.app.runSelectedProjectCommand(u"Pull"_s, {u"update"_s, u"-r"_s, u"3"_s}, RefreshAfter::yes,
                                            ShowOutput::always));
    f.app.selectedTab = WorkflowTab::incoming;
    awaited(f.app.tabChanged());
    EXPECT_EQ(f.range(), u"r3 to r4: [4]"_s);
    repository.theyWrite(u"a.c"_s, "5\n");
    repository.theyCommit(u"five"_s);
    awaited(f.app.incoming.refreshIncoming());
    EXPECT_EQ(f.range(), u"r3 to r5: 5 [4]"_s);
}

TEST(Incoming, KnowsWorkingCopiesOfEveryShape) {
    struct Row {
        const char *name;
        std::function<void(SharedRepository &)> prepare;
        QString range;
        QStringList outdated;
    };
    const Row rows[] = {
        {"mixed revisions",
         [](SharedRepository &r) {
             r.theyWrite(u"a.c"_s, "2\n");
             r.theyCommit(u"three"_s);
             r.theyWrite(u"src/b.c"_s, "2\n");
             r.theyCommit(u"four"_s);
             r.svn({u"update"_s, u"-q"_s, u"-r"_s, u"3"_s});
             r.svn({u"update"_s, u"-q"_s, u"-r"_s, u"2"_s, u"a.c"_s});
         },
         u"r2 to r4: [4] 3"_s,
         {u"M a.c"_s, u"M src/b.c"_s}},
        {"a switched folder",
         [](SharedRepository &r) {
             r.theirSvn({u"copy"_s, u"-q"_s, u"-m"_s, u"three"_s, r.url(u"trunk/src"_s), r.url(u"branches/src"_s)});
             r.svn({u"update"_s, u"-q"_s});
             r.svn({u"switch"_s, u"-q"_s, r.url(u"branches/src"_s), u"src"_s});
             r.theirSvn({u"switch"_s, u"-q"_s, r.url(u"branches/src"_s), u"src"_s});
             r.theyWrite(u"src/b.c"_s, "branch\n");
             r.theyCommit(u"four"_s);
         },
         u"r3 to r4: "_s,
         {u"M src/b.c"_s}},
        {"an external of another repository",
         [](SharedRepository &r) {
             runTool(u"svnadmin"_s, {u"create"_s, r.tree.path(u"lib"_s)}, r.tree.path());
             const QString library = u"file://"_s + r.tree.path(u"lib"_s);
             r.svn({u"propset"_s, u"-q"_s, u"svn:externals"_s, library + u" lib"_s, u"."_s});
             r.commitAll(u"three"_s);
             runTool(u"svn"_s, {u"mkdir"_s, u"-q"_s, u"-m"_s, u"1"_s, library + u"/d"_s}, r.tree.path());
         },
         u"r3 to r3: "_s,
         {u"M lib"_s, u"A lib/d"_s}},
        {"added on both sides",
         [](SharedRepository &r) {
             r.theyWrite(u"both.c"_s, "theirs\n");
             r.theyCommit(u"three"_s);
             r.write(u"both.c"_s, "mine\n");
             r.svn({u"add"_s, u"-q"_s, u"both.c"_s});
         },
         u"r2 to r3: [3]"_s,
         {u"A both.c"_s}},
        {"revisions that change nothing here",
         [](SharedRepository &r) {
             r.theirSvn({u"mkdir"_s, u"-q"_s, u"-m"_s, u"three"_s, r.url(u"branches/b"_s)});
         },
         u"r2 to r3: "_s,
         {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        SharedRepository repository;
        row.prepare(repository);
        IncomingFixture f;
        f.open(repository.path(), RepositoryKind::svn);
        EXPECT_EQ(f.alertText(), QString());
        EXPECT_EQ(f.range(), row.range);
        // The folder itself counts as changed where names come or go.
        QStringList outdated = f.outdated();
        outdated.removeAll(u"M ."_s);
        EXPECT_EQ(outdated, row.outdated);
        EXPECT_EQ(f.app.incomingDiffText.value().isEmpty(), f.app.incomingEntries.value().isEmpty());
    }
}

TEST(Incoming, OfAGitProjectIsNothing) {
    const BusyColleague repository;
    const GitFixture git;
    IncomingFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    f.open(git.path(), RepositoryKind::git);
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.range(), u"-: "_s);
    EXPECT_FALSE(f.app.incomingLoaded);
    EXPECT_EQ(f.outdated(), QStringList());
    EXPECT_EQ(f.app.incomingLineSummary.value(), LineChangeSummary());
    EXPECT_EQ(f.app.incomingDiffText.value(), QString());
    EXPECT_EQ(f.app.incomingDiffPreview.value(), DiffPreview());
}

TEST(Incoming, ThatCannotBeLoadedKeepsWhatWasShownAndSaysWhy) {
    const BusyColleague repository;
    IncomingFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    f.select(3);
    QDir().rename(repository.tree.path(u"repo"_s), repository.tree.path(u"elsewhere"_s));
    awaited(f.app.incoming.loadIncoming());
    EXPECT_TRUE(f.alertText().startsWith(u"Incoming Failed: svn: E")) << f.alertText().toStdString();
    EXPECT_EQ(f.range(), u"r2 to r5: 5 4 [3]"_s);
    EXPECT_EQ(f.outdated().size(), 5);
    EXPECT_EQ(f.diffLines(), QStringList{u"+two"_s});
    EXPECT_EQ(f.app.busyMessage.value(), std::nullopt);
}

TEST(Incoming, ComesFromAServerAndWaitsForOneThatNeverAnswers) {
    const BusyColleague repository;
    SvnServer server(repository.tree.path());
    const QString copy = repository.tree.path(u"remote"_s);
    runTool(u"svn"_s, {u"checkout"_s, u"-q"_s, u"-r"_s, u"3"_s, server.url(u"repo/trunk"_s), copy},
            repository.tree.path());
    auto f = std::make_unique<IncomingFixture>();
    f->open(copy, RepositoryKind::svn);
    EXPECT_EQ(f->alertText(), QString());
    EXPECT_EQ(f->range(), u"r3 to r5: [5] 4"_s);

    server.stop();
    awaited(f->app.incoming.loadIncoming());
    EXPECT_TRUE(f->alertText().startsWith(u"Incoming Failed: svn: E")) << f->alertText().toStdString();

    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost, server.port()));
    const QCoro::Task<> loading = f->app.incoming.loadIncoming();
    ASSERT_TRUE(waitUntil([&] { return silent.hasPendingConnections(); }));
    EXPECT_EQ(f->app.busyMessage.value(), u"Loading incoming"_s);
    EXPECT_EQ(f->range(), u"r3 to r5: [5] 4"_s);
    f.reset(); // as closing the window does
    const QTcpSocket *connection = silent.nextPendingConnection();
    EXPECT_TRUE(waitUntil([&] { return connection->state() == QAbstractSocket::UnconnectedState; }))
        << "the tool is still there";
}

TEST(Incoming, TellsOfAURLThatIsGoneAndGoesOnWhenItIsMadeAnew) {
    const BusyColleague repository;
    IncomingFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    const QString url = repository.url(u"trunk"_s);
    repository.theirSvn({u"delete"_s, u"-q"_s, u"-m"_s, u"six"_s, url});
    awaited(f.app.incoming.loadIncoming());
    EXPECT_TRUE(
        f.alertText().startsWith(u"Incoming Failed: "_s + url + u" does not exist in the repository any more."_s))
        << f.alertText().toStdString();
    EXPECT_EQ(f.range(), u"r2 to r5: [5] 4 3"_s);
    f.app.alert = std::nullopt;
    repository.theirSvn({u"mkdir"_s, u"-q"_s, u"-m"_s, u"seven"_s, url});
    awaited(f.app.incoming.loadIncoming());
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.range(), u"r2 to r7: [7]"_s);
}

TEST(Incoming, KeepsWhatIsStillToComeBelowAFolderThatIsAtTheHead) {
    SharedRepository repository;
    repository.theyWrite(u"a.c"_s, "2\n");
    repository.theyCommit(u"three"_s);
    repository.svn({u"update"_s, u"-q"_s});
    repository.svn({u"update"_s, u"-q"_s, u"-r"_s, u"2"_s, u"a.c"_s});
    IncomingFixture f;
    f.open(repository.path(), RepositoryKind::svn);
    EXPECT_EQ(f.range(), u"r2 to r3: [3]"_s);
    f.app.selectedTab = WorkflowTab::changes;
    awaited(f.app.refreshAll());
    EXPECT_EQ(f.range(), u"r2 to r3: [3]"_s);
}

TEST(Incoming, ComesFromAURLWithASpaceAndAnAtSign) {
    SharedRepository repository;
    const QString url = repository.url(u"branches/a%20b@2@"_s);
    repository.theirSvn({u"copy"_s, u"-q"_s, u"-m"_s, u"three"_s, repository.url(u"trunk"_s), url});
    runTool(u"svn"_s, {u"checkout"_s, u"-q"_s, url, repository.tree.path(u"line@2"_s)}, repository.tree.path());
    repository.theirSvn({u"switch"_s, u"-q"_s, url});
    repository.theyWrite(u"src/b.c"_s, "b\nc\n");
    repository.theyCommit(u"four"_s);
    repository.theyWrite(u"icon@2x.png"_s, "\x89PNG two");
    repository.theyCommit(u"five"_s);
    IncomingFixture f;
    f.open(repository.tree.path(u"line@2"_s), RepositoryKind::svn);
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.range(), u"r3 to r5: [5] 4"_s);
    EXPECT_EQ(f.app.incomingLineSummary.value(), (LineChangeSummary{2, 1}));
    EXPECT_EQ(f.app.incomingDiffPreview.value().oldData, QByteArray("\x89PNG one"));
    EXPECT_EQ(f.app.incomingDiffPreview.value().newData, QByteArray("\x89PNG two"));
    f.select(4);
    EXPECT_EQ(f.diffLines(), QStringList{u"+c"_s});
}

} // namespace
} // namespace kestor

#include "incoming_fixture.h"
#include "support/svn_server.h"
#include "support/test.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace kestor {
namespace {

/// Three revisions: one of a file, one of several, one of a picture.
class BusyColleague : public SharedRepository {
public:
    BusyColleague() {
        theyWrite(u"a.c"_s, "one\ntwo\n");
        theyCommit(u"three"_s);
        theyWrite(u"new.c"_s, "n\n");
        theirSvn(u"delete|-q|src/b.c"_list);
        theyCommit(u"four"_s);
        theyWrite(u"icon@2x.png"_s, "\x89PNG two");
        theyCommit(u"five"_s);
    }
};

TEST(Incoming, ShowsWhatAnUpdateWouldBring) {
    const BusyColleague repository;
    IncomingFixture f(repository);
    EXPECT_EQ(f.range(), u"r2 to r5: [5] 4 3"_s);
    EXPECT_EQ(f.outdated(), u"M .|M a.c|M icon@2x.png|A new.c|D src/b.c"_list);
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
    EXPECT_EQ(f.diffLines(), u"+n|-b"_list);
    EXPECT_EQ(f.app.incomingDiffPreview.value(), DiffPreview());
    f.select(3);
    EXPECT_EQ(f.diffLines(), u"+two"_list);
    awaited(f.app.refreshAll());
    EXPECT_EQ(f.range(), u"r2 to r5: 5 4 [3]"_s) << "what was selected stays";
}

TEST(Incoming, IsTrueAfterAnUpdateWithoutARestart) {
    BusyColleague repository;
    repository.write(u"a.c"_s, "one\nmine\n");
    IncomingFixture f(repository);
    awaited(f.app.runSelectedProjectCommand(u"Update"_s, u"update"_list, RefreshAfter::yes, ShowOutput::always));
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
    IncomingFixture f(repository);
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
    IncomingFixture f(repository);
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
    awaited(f.app.runSelectedProjectCommand(u"Pull"_s, u"update|-r|3"_list, RefreshAfter::yes, ShowOutput::always));
    f.app.selectedTab = WorkflowTab::incoming;
    awaited(f.app.tabChanged());
    EXPECT_EQ(f.range(), u"r3 to r4: [4]"_s);
    repository.theyWrite(u"a.c"_s, "5\n");
    repository.theyCommit(u"five"_s);
    awaited(f.app.incoming.refreshIncoming());
    EXPECT_EQ(f.range(), u"r3 to r5: 5 [4]"_s);
    const GitFixture other;
    f.app.selectedTab = WorkflowTab::changes;
    f.open(other.path(), RepositoryKind::git);
    EXPECT_EQ(f.range(), u"-: "_s) << "of the project before";
}

TEST(Incoming, KnowsWorkingCopiesOfEveryShape) {
    const Rows<std::function<void(SharedRepository &)>, QString, QStringList> rows{
        {"mixed revisions",
         [](SharedRepository &r) {
             r.theyWrite(u"a.c"_s, "2\n");
             r.theyCommit(u"three"_s);
             r.theyWrite(u"src/b.c"_s, "2\n");
             r.theyCommit(u"four"_s);
             r.svn(u"update|-q|-r|3"_list);
             r.svn(u"update|-q|-r|2|a.c"_list);
         },
         u"r2 to r4: [4] 3"_s, u"M a.c|M src/b.c"_list},
        {"a switched folder",
         [](SharedRepository &r) {
             r.theirSvn({u"copy"_s, u"-q"_s, u"-m"_s, u"three"_s, r.url(u"trunk/src"_s), r.url(u"branches/src"_s)});
             r.svn(u"update|-q"_list);
             r.svn({u"switch"_s, u"-q"_s, r.url(u"branches/src"_s), u"src"_s});
             r.theirSvn({u"switch"_s, u"-q"_s, r.url(u"branches/src"_s), u"src"_s});
             r.theyWrite(u"src/b.c"_s, "branch\n");
             r.theyCommit(u"four"_s);
         },
         u"r3 to r4: "_s, u"M src/b.c"_list},
        {"an external of another repository",
         [](SharedRepository &r) {
             runTool(u"svnadmin"_s, {u"create"_s, r.tree.path(u"lib"_s)}, r.tree.path());
             const QString library = u"file://"_s + r.tree.path(u"lib"_s);
             r.svn({u"propset"_s, u"-q"_s, u"svn:externals"_s, library + u" lib"_s, u"."_s});
             r.commitAll(u"three"_s);
             runTool(u"svn"_s, {u"mkdir"_s, u"-q"_s, u"-m"_s, u"1"_s, library + u"/d"_s}, r.tree.path());
         },
         u"r3 to r3: "_s, u"M lib|A lib/d"_list},
        {"added on both sides",
         [](SharedRepository &r) {
             r.theyWrite(u"both.c"_s, "theirs\n");
             r.theyCommit(u"three"_s);
             r.write(u"both.c"_s, "mine\n");
             r.svn(u"add|-q|both.c"_list);
         },
         u"r2 to r3: [3]"_s, u"A both.c"_list},
        {"revisions that change nothing here",
         [](SharedRepository &r) {
             r.theirSvn({u"mkdir"_s, u"-q"_s, u"-m"_s, u"three"_s, r.url(u"branches/b"_s)});
         },
         u"r2 to r3: "_s,
         {}},
    };
    for (const auto &[name, prepare, range, wantedOutdated] : rows) {
        SharedRepository repository;
        prepare(repository);
        IncomingFixture f(repository);
        EXPECT_EQ(f.range(), range);
        // The folder itself counts as changed where names come or go.
        QStringList outdated = f.outdated();
        outdated.removeAll(u"M ."_s);
        EXPECT_EQ(outdated, wantedOutdated);
        EXPECT_EQ(f.app.incomingDiffText.value().isEmpty(), f.app.incomingEntries.value().isEmpty());
    }
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
    EXPECT_TRUE(startsWith(f->alertText(), u"Incoming Failed: svn: E"_s));

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
    IncomingFixture f(repository);
    const QString url = repository.url(u"trunk"_s);
    repository.theirSvn({u"delete"_s, u"-q"_s, u"-m"_s, u"six"_s, url});
    awaited(f.app.incoming.loadIncoming());
    EXPECT_TRUE(
        startsWith(f.alertText(), u"Incoming Failed: "_s + url + u" does not exist in the repository any more."_s));
    EXPECT_EQ(f.range(), u"r2 to r5: [5] 4 3"_s);
    f.app.alert = std::nullopt;
    repository.theirSvn({u"mkdir"_s, u"-q"_s, u"-m"_s, u"seven"_s, url});
    awaited(f.app.incoming.loadIncoming());
    EXPECT_EQ(f.range(), u"r2 to r7: [7]"_s);
}

TEST(Incoming, KeepsWhatIsStillToComeBelowAFolderThatIsAtTheHead) {
    SharedRepository repository;
    repository.theyWrite(u"a.c"_s, "2\n");
    repository.theyCommit(u"three"_s);
    repository.svn(u"update|-q"_list);
    repository.svn(u"update|-q|-r|2|a.c"_list);
    IncomingFixture f(repository);
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
    EXPECT_EQ(f.range(), u"r3 to r5: [5] 4"_s);
    EXPECT_EQ(f.app.incomingLineSummary.value(), (LineChangeSummary{2, 1}));
    EXPECT_EQ(f.app.incomingDiffPreview.value().oldData, QByteArray("\x89PNG one"));
    EXPECT_EQ(f.app.incomingDiffPreview.value().newData, QByteArray("\x89PNG two"));
    f.select(4);
    EXPECT_EQ(f.diffLines(), u"+c"_list);
}

} // namespace
} // namespace kestor

#include "support/app_test.h"
#include "support/svn_server.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace kestor {
namespace {

/// A repository with a working copy of its trunk, at revision 2, and a second one ("theirs") of somebody who commits on
/// the side.
class SharedRepository : public SvnFixture {
public:
    /// The trunk holds "a.c", "src/b.c" and "icon@2x.png".
    SharedRepository() {
        commit({{u"a.c"_s, "one\n"}, {u"src/b.c"_s, "b\n"}, {u"icon@2x.png"_s, "\x89PNG one"}});
        runTool(u"svn"_s, {u"checkout"_s, u"-q"_s, url(u"trunk"_s), tree.path(u"theirs"_s)}, tree.path());
    }

    QByteArray theirSvn(const QStringList &arguments) const {
        return runTool(u"svn"_s, arguments, tree.path(u"theirs"_s));
    }
    /// Adds everything and commits it, a file with new content, too.
    void theyCommit(const QString &relative, const QByteArray &content) {
        tree.write(u"theirs/"_s + relative, content);
        theirSvn(u"add|-q|--force|."_list);
        theirSvn(u"commit|-q|-m|theirs"_list);
        theirSvn(u"update|-q"_list);
    }
};

/// A controller on its Incoming tab.
class IncomingFixture : public AppFixture {
public:
    IncomingFixture() { app.selectedTab = WorkflowTab::incoming; }
    explicit IncomingFixture(const SvnFixture &project) : IncomingFixture() { open(project); }

    /// "r2 to r5: 5 4 3", the selected revision in brackets.
    QString range() const {
        QStringList revisions;
        for (const LogEntry &entry : app.incomingEntries.value()) {
            const QString number = QString::number(entry.revision);
            const bool selected = app.selectedIncomingRevision.value() == entry.revision;
            revisions.append(selected ? u'[' + number + u']' : number);
        }
        return app.incoming.incomingRangeDescription().value_or(u"-"_s) + u": "_s + revisions.join(u' ');
    }
    /// The items that are out of date as "LETTER path".
    QStringList outdated() const {
        QStringList all;
        for (const WorkingCopyItem &item : app.incomingOutdatedItems.value())
            all.append(shortName(item.kind) + u' ' + item.path);
        return all;
    }
    void select(qint64 revision) {
        app.selectedIncomingRevision = revision;
        awaited(app.incoming.selectedIncomingRevisionChanged());
    }
    /// The added and removed lines of the published diff, without their heads.
    QStringList diffLines() const { return changedLines(app.incomingDiffText); }
};

/// Three revisions: one of a file, one of several, one of a picture.
class BusyColleague : public SharedRepository {
public:
    BusyColleague() {
        theyCommit(u"a.c"_s, "one\ntwo\n");
        theirSvn(u"delete|-q|src/b.c"_list);
        theyCommit(u"new.c"_s, "n\n");
        theyCommit(u"icon@2x.png"_s, "\x89PNG two");
    }
};

TEST(Incoming, ShowsWhatAnUpdateWouldBring) {
    const BusyColleague repository;
    IncomingFixture f(repository);
    EXPECT_EQ(f.range(), u"r2 to r5: [5] 4 3"_s);
    EXPECT_EQ(f.outdated(), u"M .|M a.c|M icon@2x.png|A new.c|D src/b.c"_list);
    EXPECT_EQ(f.app.incomingLineSummary.value(), (LineChangeSummary{3, 2}));
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
    f.run(u"Update"_s, u"update"_list);
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
    f.run(u"Update"_s, u"update|-r|4"_list);
    EXPECT_EQ(f.range(), u"r2 to r5: [5] 4 3"_s) << "some of it is still to come";
    f.run(u"Update"_s, u"update"_list);
    EXPECT_EQ(f.range(), u"-: "_s);
    f.showTab(WorkflowTab::incoming);
    EXPECT_EQ(f.range(), u"r5 to r5: "_s);
}

TEST(Incoming, LoadsAgainWhenItIsShownAfterACommandOrHasNothing) {
    SharedRepository repository;
    IncomingFixture f(repository);
    EXPECT_EQ(f.range(), u"r2 to r2: "_s);
    repository.theyCommit(u"a.c"_s, "2\n");
    awaited(f.app.tabChanged());
    EXPECT_EQ(f.range(), u"r2 to r3: [3]"_s) << "it was empty";
    repository.theyCommit(u"a.c"_s, "3\n");
    awaited(f.app.tabChanged());
    EXPECT_EQ(f.range(), u"r2 to r3: [3]"_s) << "nothing asked for it";
    f.app.selectedTab = WorkflowTab::changes;
    f.run(u"Pull"_s, u"update|-r|3"_list);
    f.showTab(WorkflowTab::incoming);
    EXPECT_EQ(f.range(), u"r3 to r4: [4]"_s);
    repository.theyCommit(u"a.c"_s, "5\n");
    awaited(f.app.incoming.refreshIncoming());
    EXPECT_EQ(f.range(), u"r3 to r5: 5 [4]"_s);
    const GitFixture other;
    f.app.selectedTab = WorkflowTab::changes;
    f.open(other.path(), RepositoryKind::git);
    EXPECT_EQ(f.range(), u"-: "_s) << "of the project before";
}

TEST(Incoming, KnowsASwitchedFolder) {
    SharedRepository r;
    const QString branch = r.url(u"branches/src"_s);
    r.theirSvn({u"copy"_s, u"-q"_s, u"-m"_s, u"three"_s, r.url(u"trunk/src"_s), branch});
    r.svn(u"update|-q"_list);
    r.svn({u"switch"_s, u"-q"_s, branch, u"src"_s});
    r.theirSvn({u"switch"_s, u"-q"_s, branch, u"src"_s});
    r.theyCommit(u"src/b.c"_s, "branch\n");
    const IncomingFixture f(r);
    EXPECT_EQ(f.range(), u"r3 to r4: "_s);
    EXPECT_TRUE(f.outdated().contains(u"M src/b.c"_s));
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
    repository.theyCommit(u"a.c"_s, "2\n");
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
    repository.theyCommit(u"src/b.c"_s, "b\nc\n");
    repository.theyCommit(u"icon@2x.png"_s, "\x89PNG two");
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

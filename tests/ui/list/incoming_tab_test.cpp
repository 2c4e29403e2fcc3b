#include "support/app_test.h"
#include "support/window_test.h"
#include "ui/diff/diff_pane.h"
#include "ui/list/row_list_view.h"
#include "ui/tabs/incoming_tab.h"

#include <algorithm>

namespace kestor {
namespace {

/// The tab over a project, with an action to update that nothing is connected to.
class ShownIncoming {
public:
    ShownIncoming() {
        fixture.app.selectedTab = WorkflowTab::incoming;
        tab.resize(1000, 600);
        activate(tab);
    }

    RowListView &revisions() { return *qobject_cast<RowListView *>(tab.focusPanes().at(0)); }
    RowListView &outdated() { return *qobject_cast<RowListView *>(tab.focusPanes().at(1)); }
    QString spoken() { return revisions().currentIndex().data(Qt::AccessibleTextRole).toString(); }
    const QString &printed() const { return tab.diffPane()->diffView().document().printed; }
    bool shows(const QString &text) const {
        return waitUntil([&] { return printed().contains(text); });
    }
    bool says(const QString &text) const { return testing::says(tab, text); }

    AppFixture fixture{};
    QAction update{u"update"_s};
    IncomingTab tab{fixture.app, &update};
};

/// A working copy at revision 2 of a trunk at revision 4.
class OldWorkingCopy : public SvnFixture {
public:
    OldWorkingCopy() {
        writeAll({{u"a.txt"_s, "one\n"}, {u"b.txt"_s, "b\n"}});
        commitAll(u"two"_s);
        write(u"a.txt"_s, "three\n");
        commitAll(u"Change a"_s);
        writeAll({{u"a.txt"_s, "four\n"}, {u"b.txt"_s, "bee\n"}});
        commitAll(u"Change both\n\nin one go"_s);
        svn(u"update|-q|-r|2"_list);
    }
};

TEST(IncomingTab, RevisionsLeadToTheirDiffs) {
    const OldWorkingCopy repository;
    ShownIncoming shown;
    shown.fixture.open(repository.path(), RepositoryKind::svn);
    ASSERT_TRUE(shown.shows(u"+bee"_s));
    EXPECT_TRUE(shown.printed().contains(u"+four"_s)) << "all files of the revision";
    EXPECT_TRUE(startsWith(shown.spoken(), u"Change both, r4, "_s));
    for (const char *text : {"r2 to r4", "2 revisions", "Out of date", "2 items"})
        EXPECT_TRUE(shown.says(QString::fromLatin1(text))) << text;
    QTest::keyClick(&shown.revisions(), Qt::Key_Down);
    EXPECT_EQ(shown.fixture.app.selectedIncomingRevision.value(), 3);
    EXPECT_TRUE(shown.shows(u"+three"_s));
    shown.fixture.app.selectedIncomingRevision = 4; // as a load does: nothing is called, the old diff stays
    EXPECT_TRUE(shown.spoken().startsWith(u"Change both"_s));
    QTest::qWait(50);
    EXPECT_TRUE(shown.printed().contains(u"+three"_s));
    EXPECT_EQ(shown.outdated().model()->index(1, 0).data(Qt::AccessibleTextRole).toString(), u"b.txt, Modified"_s);
}

TEST(IncomingTab, OneKeyWalksThroughTheHunksOfAllRevisions) {
    const OldWorkingCopy repository;
    ShownIncoming shown;
    shown.fixture.open(repository.path(), RepositoryKind::svn);
    shown.revisions().setFocus();
    ASSERT_TRUE(shown.shows(u"+bee"_s));
    QTest::keyClick(&shown.revisions(), Qt::Key_F7);
    EXPECT_EQ(shown.fixture.app.selectedIncomingRevision.value(), 4) << "the second file";
    QTest::keyClick(&shown.revisions(), Qt::Key_F7);
    EXPECT_EQ(shown.fixture.app.selectedIncomingRevision.value(), 3);
    EXPECT_TRUE(shown.shows(u"+three"_s));
}

TEST(IncomingTab, SaysWhyItIsEmpty) {
    OldWorkingCopy repository;
    ShownIncoming shown;
    EXPECT_TRUE(shown.says(u"(select an incoming revision)"_s));
    EXPECT_FALSE(shown.says(u"No Incoming Changes"_s)) << "nothing was loaded";
    shown.fixture.open(repository.path(), RepositoryKind::svn);
    shown.outdated().setFocus();
    awaited(
        shown.fixture.app.runSelectedProjectCommand(u"Update"_s, {u"update"_s}, RefreshAfter::yes, ShowOutput::always));
    EXPECT_TRUE(shown.says(u"No Incoming Changes"_s));
    EXPECT_TRUE(shown.says(u"r4 to r4"_s));
    EXPECT_FALSE(shown.outdated().isVisible());
    EXPECT_TRUE(shown.revisions().hasFocus()) << "the list of items left with the focus";
    const GitFixture git;
    shown.fixture.open(git.path(), RepositoryKind::git);
    EXPECT_TRUE(shown.says(u"SVN Incoming Only"_s));
    EXPECT_TRUE(shown.says(u"Pull brings the commits of a Git project."_s));
    EXPECT_FALSE(shown.says(u"r4 to r4"_s));
    int pulls = 0;
    QObject::connect(&shown.update, &QAction::triggered, [&pulls] { ++pulls; });
    clickButton(shown.tab, u"Pull"_s);
    EXPECT_EQ(pulls, 1);
}

TEST(IncomingTab, TheRowMenuUpdatesRefreshesAndCopies) {
    OldWorkingCopy repository;
    ShownIncoming shown;
    shown.fixture.open(repository.path(), RepositoryKind::svn);
    ASSERT_TRUE(shown.shows(u"+bee"_s));
    emit shown.revisions().rowMenuRequested(0, QPoint());
    QMenu *menu = openMenu();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(itemTexts(*menu), u"update|Refresh Incoming Changes|-|Copy Revision|Copy Message"_list);
    menu->actions().at(3)->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"r4"_s);
    menu->actions().at(4)->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Change both\n\nin one go"_s);
    repository.svn(u"update|-q|-r|3"_list);
    menu->actions().at(1)->trigger();
    EXPECT_TRUE(waitUntil([&] { return shown.says(u"r3 to r4"_s); }));
    menu->close();
}

TEST(IncomingTab, SeveralBinaryFilesAreNamedOneByOne) {
    OldWorkingCopy repository;
    repository.svn(u"update|-q"_list);
    repository.write(u"a.bin"_s, QByteArray("\0\1", 2));
    repository.commitAll(u"five"_s);
    repository.writeAll({{u"b.bin"_s, QByteArray("\0\1", 2)}, {u"c.bin"_s, QByteArray("\0\1", 2)}});
    repository.commitAll(u"six"_s);
    repository.svn(u"update|-q|-r|4"_list);
    ShownIncoming shown;
    shown.fixture.open(repository.path(), RepositoryKind::svn);
    EXPECT_TRUE(shown.shows(u"Index: c.bin"_s));
    EXPECT_FALSE(shown.says(u"Unknown file type."_s));
    QTest::keyClick(&shown.revisions(), Qt::Key_Down);
    EXPECT_TRUE(waitUntil([&] { return shown.says(u"Unknown file type."_s); })) << "of one file there is a notice";
}

} // namespace
} // namespace kestor

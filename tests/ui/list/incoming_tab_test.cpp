#include "support/app_test.h"
#include "support/window_test.h"
#include "ui/diff/diff_pane.h"
#include "ui/list/row_list_view.h"
#include "ui/tabs/incoming_tab.h"

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
        commit({{u"a.txt"_s, "one\n"}, {u"b.txt"_s, "b\n"}});
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
    shown.fixture.open(repository);
    ASSERT_TRUE(shown.shows(u"+bee"_s));
    EXPECT_TRUE(shown.printed().contains(u"+four"_s)) << "all files of the revision";
    EXPECT_TRUE(startsWith(shown.spoken(), u"Change both, r4, "_s));
    for (const QString &text : u"r2 to r4|2 revisions|Out of date|2 items"_list)
        EXPECT_TRUE(shown.says(text)) << text.toStdString();
    QTest::keyClick(&shown.revisions(), Qt::Key_Down);
    EXPECT_EQ(shown.fixture.app.selectedIncomingRevision.value(), 3);
    EXPECT_TRUE(shown.shows(u"+three"_s));
    shown.fixture.app.selectedIncomingRevision = 4; // as a load does: nothing is called, the old diff stays
    EXPECT_TRUE(shown.spoken().startsWith(u"Change both"_s));
    HeldApp::settle();
    EXPECT_TRUE(shown.printed().contains(u"+three"_s));
    EXPECT_EQ(shown.outdated().model()->index(1, 0).data(Qt::AccessibleTextRole).toString(), u"b.txt, Modified"_s);
}

TEST(IncomingTab, SaysWhyItIsEmpty) {
    OldWorkingCopy repository;
    ShownIncoming shown;
    EXPECT_TRUE(shown.says(u"(select an incoming revision)"_s));
    EXPECT_FALSE(shown.says(u"No Incoming Changes"_s)) << "nothing was loaded";
    shown.fixture.open(repository);
    shown.outdated().setFocus();
    shown.fixture.run(u"Update"_s, u"update"_list);
    EXPECT_TRUE(shown.says(u"No Incoming Changes"_s));
    EXPECT_TRUE(shown.says(u"r4 to r4"_s));
    EXPECT_FALSE(shown.outdated().isVisible());
    EXPECT_TRUE(shown.revisions().hasFocus()) << "the list of items left with the focus";
    const GitFixture git;
    shown.fixture.open(git);
    EXPECT_TRUE(shown.says(u"SVN Incoming Only"_s));
    EXPECT_FALSE(shown.says(u"r4 to r4"_s));
    const QSignalSpy pulls(&shown.update, &QAction::triggered);
    clickButton(shown.tab, u"Pull"_s);
    EXPECT_EQ(pulls.size(), 1);
}

TEST(IncomingTab, TheRowMenuUpdatesRefreshesAndCopies) {
    OldWorkingCopy repository;
    ShownIncoming shown;
    shown.fixture.open(repository);
    ASSERT_TRUE(shown.shows(u"+bee"_s));
    emit shown.revisions().rowMenuRequested(0, QPoint());
    QMenu *menu = openMenu();
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->actions().contains(&shown.update));
    clickItem(*menu, u"Copy Message"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Change both\n\nin one go"_s);
    repository.svn(u"update|-q|-r|3"_list);
    clickItem(*menu, u"Refresh Incoming Changes"_s);
    EXPECT_TRUE(waitUntil([&] { return shown.says(u"r3 to r4"_s); }));
    menu->close();
}

} // namespace
} // namespace kestor

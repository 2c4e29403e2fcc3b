#include "support/app_fixture.h"
#include "support/printers.h"
#include "support/repositories.h"
#include "ui/diff/diff_pane.h"
#include "ui/list/row_list_view.h"
#include "ui/tabs/incoming_tab.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::AppFixture;
using testing::awaited;
using testing::GitFixture;
using testing::SvnFixture;
using testing::waitUntil;

/// The tab over a project, with an action to update that nothing is connected to.
class ShownIncoming {
public:
    ShownIncoming() {
        fixture.app.selectedTab = WorkflowTab::incoming;
        tab.resize(1000, 600);
        tab.show();
        tab.activateWindow();
    }

    RowListView &revisions() { return *qobject_cast<RowListView *>(tab.focusPanes().at(0)); }
    RowListView &outdated() { return *qobject_cast<RowListView *>(tab.focusPanes().at(1)); }
    QString spoken() { return revisions().currentIndex().data(Qt::AccessibleTextRole).toString(); }
    const QString &printed() const { return tab.diffPane()->diffView().document().printed; }
    bool shows(const QString &text) const {
        return waitUntil([&] { return printed().contains(text); });
    }
    bool says(const QString &text) const {
        const QList<QLabel *> labels = tab.findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(),
                           [&](const QLabel *label) { return label->isVisible() && label->text() == text; });
    }

    AppFixture fixture{};
    QAction update{u"update"_s};
    IncomingTab tab{fixture.app, &update};
};

/// A working copy at revision 2 of a trunk at revision 4.
class OldWorkingCopy : public SvnFixture {
public:
    OldWorkingCopy() {
        write(u"a.txt"_s, "one\n");
        write(u"b.txt"_s, "b\n");
        commitAll(u"two"_s);
        write(u"a.txt"_s, "three\n");
        commitAll(u"Change a"_s);
        write(u"a.txt"_s, "four\n");
        write(u"b.txt"_s, "bee\n");
        commitAll(u"Change both\n\nin one go"_s);
        svn({u"update"_s, u"-q"_s, u"-r"_s, u"2"_s});
    }
};

TEST(IncomingTab, RevisionsLeadToTheirDiffs) {
    const OldWorkingCopy repository;
    ShownIncoming shown;
    shown.fixture.open(repository.path(), RepositoryKind::svn);
    ASSERT_TRUE(shown.shows(u"+bee"_s));
    EXPECT_TRUE(shown.printed().contains(u"+four"_s)) << "all files of the revision";
    EXPECT_TRUE(shown.spoken().startsWith(u"Change both, r4, "_s)) << qPrintable(shown.spoken());
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
    for (QPushButton *button : shown.tab.findChildren<QPushButton *>()) {
        if (button->text() == u"Pull"_s)
            QTest::mouseClick(button, Qt::LeftButton);
    }
    EXPECT_EQ(pulls, 1);
}

TEST(IncomingTab, TheRevisionsTakeWhatTheyNeedAndTheItemsTheRest) {
    OldWorkingCopy repository;
    ShownIncoming shown;
    shown.fixture.open(repository.path(), RepositoryKind::svn);
    QCoreApplication::processEvents();
    const int few = shown.revisions().height();
    EXPECT_GE(few, 2 * 44);
    EXPECT_LE(few, 3 * 44);
    EXPECT_GT(shown.outdated().height(), 300);
    repository.svn({u"update"_s, u"-q"_s});
    for (int number = 5; number <= 24; ++number) {
        repository.write(u"a.txt"_s, QByteArray::number(number) + '\n');
        repository.svn({u"commit"_s, u"-q"_s, u"-m"_s, QString::number(number)});
    }
    repository.svn({u"update"_s, u"-q"_s, u"-r"_s, u"4"_s});
    awaited(shown.fixture.app.incoming.refreshIncoming());
    QCoreApplication::processEvents();
    EXPECT_GT(shown.revisions().height(), 200);
    EXPECT_GT(shown.outdated().height(), 150) << "many revisions leave room for the items";
}

TEST(IncomingTab, TheRowMenuUpdatesRefreshesAndCopies) {
    OldWorkingCopy repository;
    ShownIncoming shown;
    shown.fixture.open(repository.path(), RepositoryKind::svn);
    ASSERT_TRUE(shown.shows(u"+bee"_s));
    emit shown.revisions().rowMenuRequested(0, QPoint());
    const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QStringList texts;
    for (const QAction *action : menu->actions())
        texts.append(action->text());
    EXPECT_EQ(texts,
              (QStringList{u"update"_s, u"Refresh Incoming Changes"_s, {}, u"Copy Revision"_s, u"Copy Message"_s}));
    menu->actions().at(3)->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"r4"_s);
    menu->actions().at(4)->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Change both\n\nin one go"_s);
    repository.svn({u"update"_s, u"-q"_s, u"-r"_s, u"3"_s});
    menu->actions().at(1)->trigger();
    EXPECT_TRUE(waitUntil([&] { return shown.says(u"r3 to r4"_s); }));
    QApplication::activePopupWidget()->close();
}

TEST(IncomingTab, SeveralBinaryFilesAreNamedOneByOne) {
    OldWorkingCopy repository;
    repository.svn({u"update"_s, u"-q"_s});
    repository.write(u"a.bin"_s, QByteArray("\0\1", 2));
    repository.commitAll(u"five"_s);
    repository.write(u"b.bin"_s, QByteArray("\0\1", 2));
    repository.write(u"c.bin"_s, QByteArray("\0\1", 2));
    repository.commitAll(u"six"_s);
    repository.svn({u"update"_s, u"-q"_s, u"-r"_s, u"4"_s});
    ShownIncoming shown;
    shown.fixture.open(repository.path(), RepositoryKind::svn);
    EXPECT_TRUE(shown.shows(u"Index: c.bin"_s));
    EXPECT_FALSE(shown.says(u"Unknown file type."_s));
    QTest::keyClick(&shown.revisions(), Qt::Key_Down);
    EXPECT_TRUE(waitUntil([&] { return shown.says(u"Unknown file type."_s); })) << "of one file there is a notice";
}

} // namespace
} // namespace kestor

#include "support/app_test.h"
#include "support/window_test.h"
#include "ui/diff/diff_pane.h"
#include "ui/list/row_list_view.h"
#include "ui/tabs/history_tab.h"
#include "ui/tabs/revision_head.h"

#include <QTextEdit>

namespace kestor {
namespace {

/// Forty lines, of which some say something else.
QByteArray lines(const QList<int> &changed) {
    QByteArray text;
    for (int line = 1; line <= 40; ++line)
        text += (changed.contains(line) ? "changed " : "line ") + QByteArray::number(line) + '\n';
    return text;
}

/// The tab over the history of a project, with actions that nothing is connected to.
class ShownHistory {
public:
    ShownHistory() {
        fixture.app.selectedTab = WorkflowTab::history;
        tab.resize(1000, 600);
        activate(tab);
    }

    void open(const RepositoryFixture &repository) {
        fixture.open(repository);
        awaited(fixture.app.loadHistory());
    }
    RowListView &files() { return *qobject_cast<RowListView *>(tab.focusPanes().at(0)); }
    RowListView &revisions() { return *qobject_cast<RowListView *>(tab.focusPanes().at(1)); }
    const DiffView &diff() const { return tab.diffPane()->diffView(); }
    QString spoken(const RowListView &list) const {
        return list.currentIndex().data(Qt::AccessibleTextRole).toString();
    }
    bool shows(const QString &text) const {
        return waitUntil([&] { return diff().document().printed.contains(text); });
    }
    bool says(const QString &text) const { return testing::says(tab, text); }

    AppFixture fixture{};
    QAction pull{u"pull"_s}, against{u"against"_s}, blame{u"blame"_s}, zip{u"zip"_s}, rollback{u"rollback"_s},
        exporting{u"export"_s};
    HistoryTab tab{fixture.app,
                   {.pullFile = &pull,
                    .diffAgainst = &against,
                    .blame = &blame,
                    .createZip = &zip,
                    .rollback = &rollback,
                    .exportFile = &exporting}};
};

TEST(HistoryTab, FilesLeadToTheirRevisionsAndThoseToTheirDiffs) {
    SvnFixture repository;
    repository.write(u"src/a.txt"_s, "one\n");
    repository.commitAll(u"Add a"_s);
    repository.writeAll({{u"src/a.txt"_s, "two\n"}, {u"b.txt"_s, "b\n"}});
    repository.commitAll(u"Change a\n\nand add b"_s);
    ShownHistory shown;
    shown.open(repository);
    ASSERT_TRUE(shown.shows(u"+b"_s));
    EXPECT_EQ(shown.spoken(shown.files()), u"b.txt, Added, r3"_s);
    shown.files().setFocus();
    QTest::keyClick(&shown.files(), Qt::Key_Down);
    EXPECT_EQ(shown.spoken(shown.files()), u"src/a.txt, Modified, r3"_s);
    EXPECT_TRUE(shown.shows(u"+two"_s));
    EXPECT_TRUE(shown.says(u"2 revisions"_s));
    for (const bool isWhole : {false, true}) {
        shown.fixture.app.historyLoaded = isWhole;
        EXPECT_EQ(shown.says(u"2 revisions so far"_s), !isWhole);
    }
    QTest::keyClick(&shown.revisions(), Qt::Key_Down);
    EXPECT_EQ(shown.fixture.app.selectedRevision.value(), 2);
    EXPECT_TRUE(shown.shows(u"+one"_s));
    EXPECT_TRUE(shown.spoken(shown.revisions()).startsWith(u"Add a, r2, "_s));
    EXPECT_TRUE(shown.spoken(shown.revisions()).endsWith(u", Added"_s));
    shown.revisions().setFocus();
    shown.tab.diffPane()->takeFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(shown.revisions().hasFocus()) << "the list that had the focus last";
    shown.fixture.app.selectedRevision = 3; // as a load does: nothing is called, the old diff stays
    EXPECT_EQ(shown.revisions().currentIndex().row(), 0);
    HeldApp::settle();
    EXPECT_TRUE(shown.diff().document().printed.contains(u"+one"_s));
    EXPECT_EQ(shown.tab.findChild<QTextEdit *>()->toPlainText(), u"Change a\nand add b"_s);
}

TEST(HistoryTab, OneKeyWalksThroughAllHunksAndBack) {
    GitFixture repository;
    repository.commit({{u"b"_s, lines({})}});
    repository.commit({{u"b"_s, lines({3, 30})}});
    repository.commit({{u"a"_s, "new\n"}});
    ShownHistory shown;
    shown.open(repository);
    const auto isAt = [&](const QString &text, qint64 hunk) {
        return waitUntil([&] { return shown.shows(text) && shown.diff().currentHunk() == hunk; });
    };
    shown.files().setFocus();
    ASSERT_TRUE(isAt(u"+new"_s, 0));
    const Rows<Qt::KeyboardModifiers, QString, qint64> steps{
        {"to the next file", {}, u"+changed 3\n"_s, 0},
        {"to its second hunk", {}, u"+changed 30"_s, 1},
        {"to its older revision", {}, u"+line 3\n"_s, 0},
        {"back to the last hunk", Qt::ShiftModifier, u"+changed 30"_s, 1},
        {"back to the first", Qt::ShiftModifier, u"+changed 3\n"_s, 0},
        {"back to the first file", Qt::ShiftModifier, u"+new"_s, 0},
    };
    for (const auto &[name, modifiers, text, hunk] : steps) {
        QTest::keyClick(&shown.files(), Qt::Key_F7, modifiers);
        ASSERT_TRUE(isAt(text, hunk));
    }
}

TEST(HistoryTab, SaysWhyItIsEmpty) {
    const GitFixture empty;
    ShownHistory shown;
    EXPECT_FALSE(shown.says(u"No Revisions"_s)) << "nothing was loaded";
    EXPECT_TRUE(shown.says(u"(select a file and a revision)"_s));
    shown.open(empty);
    EXPECT_TRUE(shown.says(u"No Revisions"_s));
    EXPECT_TRUE(shown.says(u"The log of this project is empty."_s));
    const SvnFixture foldersOnly;
    shown.open(foldersOnly);
    EXPECT_TRUE(shown.says(u"No Files"_s));
}

TEST(HistoryTab, TheRowMenuAndTheHeadShareTheActions) {
    GitFixture repository;
    repository.commit({{u"src/a"_s}});
    ShownHistory shown;
    shown.open(repository);
    emit shown.revisions().rowMenuRequested(0, QPoint());
    QMenu *menu = openMenu();
    ASSERT_NE(menu, nullptr);
    clickItem(*menu, u"Copy Revision"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              QString::fromLatin1(repository.git(u"rev-parse|HEAD"_list).trimmed()));
    for (QAction *action : {&shown.pull, &shown.against, &shown.blame, &shown.zip, &shown.rollback, &shown.exporting})
        EXPECT_TRUE(menu->actions().contains(action)) << qPrintable(action->text());
    menu->close();
    QStringList triggered;
    for (QAction *action : {&shown.rollback, &shown.exporting})
        QObject::connect(action, &QAction::triggered, [&triggered, action] { triggered += action->text(); });
    const QList<QPushButton *> buttons = shown.tab.findChild<RevisionHead *>()->findChildren<QPushButton *>();
    for (QPushButton *button : buttons)
        QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(triggered, u"rollback|export"_list);
}

} // namespace
} // namespace kestor

#include "support/app_test.h"
#include "support/window_test.h"
#include "ui/diff/diff_pane.h"
#include "ui/list/filter_field.h"
#include "ui/list/row_list_view.h"
#include "ui/tabs/history_tab.h"
#include "ui/tabs/revision_head.h"

#include <QTextEdit>

#include <algorithm>

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

    void open(const QString &path, RepositoryKind kind) {
        fixture.open(path, kind);
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
    shown.open(repository.path(), RepositoryKind::svn);
    ASSERT_TRUE(shown.shows(u"+b"_s));
    EXPECT_EQ(shown.spoken(shown.files()), u"b.txt, Added, r3"_s);
    shown.files().setFocus();
    QTest::keyClick(&shown.files(), Qt::Key_Down);
    EXPECT_EQ(shown.spoken(shown.files()), u"src/a.txt, Modified, r3"_s);
    EXPECT_TRUE(shown.shows(u"+two"_s));
    EXPECT_TRUE(shown.says(u"2 revisions"_s));
    QTest::keyClick(&shown.revisions(), Qt::Key_Down);
    EXPECT_EQ(shown.fixture.app.selectedRevision.value(), 2);
    EXPECT_TRUE(shown.shows(u"+one"_s));
    EXPECT_TRUE(shown.spoken(shown.revisions()).startsWith(u"Add a, r2, "_s));
    EXPECT_TRUE(shown.spoken(shown.revisions()).endsWith(u", Added"_s));
    shown.fixture.app.selectedRevision = 3; // as a load does: nothing is called, the old diff stays
    EXPECT_EQ(shown.revisions().currentIndex().row(), 0);
    QTest::qWait(50);
    EXPECT_TRUE(shown.diff().document().printed.contains(u"+one"_s));
    EXPECT_EQ(shown.tab.findChild<QTextEdit *>()->toPlainText(), u"Change a\n\nand add b"_s);
}

TEST(HistoryTab, OneKeyWalksThroughAllHunksAndBack) {
    GitFixture repository;
    repository.write(u"b"_s, lines({}));
    repository.commitAll(u"first"_s);
    repository.write(u"b"_s, lines({3, 30}));
    repository.commitAll(u"second"_s);
    repository.write(u"a"_s, "new\n");
    repository.commitAll(u"third"_s);
    ShownHistory shown;
    shown.open(repository.path(), RepositoryKind::git);
    struct Stop {
        QString path, text;
        qint64 hunk;
    };
    const QList<Stop> stops{{u"a"_s, u"+new"_s, 0},
                            {u"b"_s, u"+changed 3\n"_s, 0},
                            {u"b"_s, u"+changed 30"_s, 1},
                            {u"b"_s, u"+line 3\n"_s, 0}};
    const auto isAt = [&](const Stop &stop) {
        return waitUntil([&] {
            return shown.diff().document().printed.contains(stop.text) && shown.diff().currentHunk() == stop.hunk &&
                   shown.fixture.app.selectedHistoryPath.value() == stop.path;
        });
    };
    shown.files().setFocus();
    ASSERT_TRUE(isAt(stops.first()));
    for (qsizetype stop = 1; stop < stops.size(); ++stop) {
        QTest::keyClick(&shown.files(), Qt::Key_F7);
        ASSERT_TRUE(isAt(stops.at(stop))) << stop;
    }
    for (qsizetype stop = 2; stop >= 0; --stop) {
        QTest::keyClick(&shown.files(), Qt::Key_F7, Qt::ShiftModifier);
        ASSERT_TRUE(isAt(stops.at(stop))) << "back to " << stop;
    }
}

TEST(HistoryTab, SaysWhyItIsEmpty) {
    const GitFixture empty;
    ShownHistory shown;
    EXPECT_FALSE(shown.says(u"No Revisions"_s)) << "nothing was loaded";
    EXPECT_TRUE(shown.says(u"(select a file and a revision)"_s));
    shown.open(empty.path(), RepositoryKind::git);
    EXPECT_TRUE(shown.says(u"No Revisions"_s));
    EXPECT_TRUE(shown.says(u"The log of this project is empty."_s));
    const SvnFixture foldersOnly;
    shown.open(foldersOnly.path(), RepositoryKind::svn);
    EXPECT_TRUE(shown.says(u"No Files"_s));
}

TEST(HistoryTab, TheRowMenuAndTheHeadShareTheActions) {
    GitFixture repository;
    repository.write(u"src/a"_s);
    repository.commitAll(u"first"_s);
    ShownHistory shown;
    shown.open(repository.path(), RepositoryKind::git);
    emit shown.revisions().rowMenuRequested(0, QPoint());
    QMenu *menu = openMenu();
    ASSERT_NE(menu, nullptr);
    const auto trigger = [&](const QString &text) {
        for (QAction *action : menu->actions()) {
            if (action->text() == text)
                action->trigger();
        }
        return QGuiApplication::clipboard()->text();
    };
    EXPECT_TRUE(waitUntil([&] { return trigger(u"Copy Message"_s) == u"first"_s; }));
    EXPECT_EQ(trigger(u"Copy Revision"_s), QString::fromLatin1(repository.git(u"rev-parse|HEAD"_list).trimmed()));
    EXPECT_EQ(trigger(u"Copy Path"_s), u"src/a"_s);
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

#include "support/app_test.h"
#include "support/window_test.h"
#include "ui/frame/main_window.h"
#include "ui/list/filter_field.h"
#include "ui/list/row_list_view.h"
#include "ui/look/accent_button.h"
#include "ui/tabs/commit_panel.h"

#include <QPlainTextEdit>
#include <QProcess>
#include <QTimer>

namespace kestor {
namespace {

/// The real window with three changed paths, whose folder is plain.
class CommitWindow : public ::testing::Test {
protected:
    void SetUp() override {
        const Project project{QUuid::createUuid(), u"a"_s, tree.path(), RepositoryKind::git};
        app.projects = QList<Project>{project};
        app.selectedProjectID = project.id;
        app.changes = QList<WorkingCopyItem>{{.path = u"a.c"_s, .kind = SVNStatusKind::modified},
                                             {.path = u"b&c"_s, .kind = SVNStatusKind::modified},
                                             {.path = u"d"_s, .kind = SVNStatusKind::external}};
        activate(window);
    }
    CommitPanel &panel() const { return *window.findChild<CommitPanel *>(); }
    QPlainTextEdit &editor() const { return *panel().findChild<QPlainTextEdit *>(); }
    AccentButton &button() const { return *static_cast<AccentButton *>(panel().findChild<QPushButton *>()); }
    QString countText() const { return panel().findChild<QLabel *>()->text(); }
    RowListView &list() const { return *window.findChild<RowListView *>(); }
    void tick(const QStringList &paths) { app.selectedCommitPaths = marked(paths); }
    QMenu *openRowMenu() {
        list().setCurrentId(u"b&c"_s);
        emit list().rowMenuRequested(1, list().mapToGlobal(QPoint(50, 30)));
        return openMenu();
    }

    TempTree tree{};
    AppFixture fixture{};
    AppState &app = fixture.app;
    MainWindow window{app, fixture.settings};
};

TEST_F(CommitWindow, MessageAndStateFollowEachOther) {
    QTest::keyClick(&window, Qt::Key_L, Qt::ControlModifier);
    ASSERT_EQ(window.focusWidget(), &editor());
    QTest::keyClicks(&editor(), u"one"_s);
    QTest::keyClick(&editor(), Qt::Key_Return);
    editor().insertPlainText(u"a\u00A0b \U0001F980"_s);
    EXPECT_EQ(app.commitMessage.value(), u"one\na\u00A0b \U0001F980"_s);
    app.commitMessage = QString();
    EXPECT_EQ(editor().toPlainText(), QString());
    app.commitMessage = u"from elsewhere"_s;
    EXPECT_EQ(editor().toPlainText(), u"from elsewhere"_s);
    QTest::keyClick(&editor(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &button());
    EXPECT_EQ(app.commitMessage.value(), u"from elsewhere"_s);
}

TEST_F(CommitWindow, CommitsFromAnywhereUnlessBusy) {
    const Rows<QWidget *, Qt::Key, Qt::KeyboardModifiers> rows{
        {"the button", &button(), Qt::Key_Space, {}},
        {"return in the list", &list(), Qt::Key_Return, Qt::ControlModifier},
        {"return in the message", &editor(), Qt::Key_Return, Qt::ControlModifier},
        {"enter of the key pad", &editor(), Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier},
    };
    for (const auto &[name, place, key, modifiers] : rows) {
        place->setFocus();
        app.busyMessage = u"Working"_s;
        QTest::keyClick(place, key, modifiers);
        EXPECT_EQ(fixture.alertText(), QString());
        app.busyMessage = std::nullopt;
        QTest::keyClick(place, key, modifiers);
        EXPECT_EQ(fixture.alertText(), u"Nothing To Commit: Select at least one changed path."_s);
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        activate(window);
    }
    EXPECT_EQ(app.commitMessage.value(), QString()) << "no key left a line end behind";
}

TEST_F(CommitWindow, TheMessageIsReadOnlyWhileBusyAndKeepsTheFocus) {
    editor().setFocus();
    app.commitMessage = u"kept"_s;
    app.busyMessage = u"Committing"_s;
    QTest::keyClicks(&editor(), u"typed"_s);
    EXPECT_EQ(app.commitMessage.value(), u"kept"_s);
    const QColor before = editor().palette().color(QPalette::Text);
    EXPECT_TRUE(waitUntil([&] { return editor().palette().color(QPalette::Text) != before; }));
    EXPECT_EQ(window.focusWidget(), &editor());
    app.busyMessage = std::nullopt;
    EXPECT_EQ(editor().palette().color(QPalette::Text), before);
    QTest::keyClick(&editor(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &button());
}

TEST_F(CommitWindow, TheRowMenuNamesThePathsItActsOn) {
    tick({u"a.c"_s, u"b&c"_s});
    QMenu *menu = openRowMenu();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(itemTexts(*menu),
              u"Acts on 2 ticked paths|Add Selected|Delete Selected|Revert Selected|Ignore Selected|-|"
              "b&&c|Revert This Path...|Blame Path...|Copy Path|-|Revert All..."_list)
        << "nothing to open: the file is gone";
    app.busyMessage = u"Working"_s;
    for (const int held : {1, 4, 7, 8, 11})
        EXPECT_FALSE(menu->actions().at(held)->isEnabled()) << held;
    EXPECT_TRUE(menu->actions().at(9)->isEnabled());
    app.busyMessage = std::nullopt;
    menu->close();
}

TEST_F(CommitWindow, RevertsTheRowOfTheMenuWhateverIsTicked) {
    tick({u"a.c"_s});
    ASSERT_EQ(QProcess::execute(u"git"_s, {u"init"_s, u"-q"_s, tree.path()}), 0);
    fixture.user.confirms = false;
    openRowMenu()->actions().at(7)->trigger();
    const QStringList question = u"confirm Revert: Revert this path? Local changes will be discarded."_list;
    EXPECT_TRUE(waitUntil([&] { return fixture.user.asked == question; }));
}

TEST_F(CommitWindow, ClosingLetsARunningCommandFinish) {
    app.busyMessage = u"Committing"_s;
    EXPECT_FALSE(window.close());
    EXPECT_FALSE(window.isVisible());
    bool finished = false;
    QTimer::singleShot(100, &window, [&] {
        finished = true;
        app.busyMessage = std::nullopt;
    });
    QTimer::singleShot(10'000, &window, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_TRUE(finished);
}

TEST_F(CommitWindow, AnotherStartBringsBackAWindowThatWaitsForItsCommand) {
    app.busyMessage = u"Committing"_s;
    window.close();
    EXPECT_FALSE(window.isClosed());
    window.bringForward();
    QTimer::singleShot(0, &window, [&] { app.busyMessage = std::nullopt; });
    QTimer::singleShot(200, &window, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 1) << "the window stays";
    EXPECT_TRUE(window.isVisible());
    window.close();
    EXPECT_TRUE(window.isClosed());
}

TEST_F(CommitWindow, ClosingAgainStopsACommandThatDoesNotEnd) {
    app.busyMessage = u"Committing"_s;
    EXPECT_FALSE(window.close());
    window.findChild<QTimer *>(u"patience"_s)->start(0);
    EXPECT_TRUE(waitUntil([this] { return window.isVisible() && QApplication::activeModalWidget() != nullptr; }));
    EXPECT_EQ(app.alert.value()->message, u"\"Committing\" has not ended yet. Close the window again to stop it."_s);
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    EXPECT_TRUE(window.close());
}

TEST_F(CommitWindow, AFailureAfterClosingBringsTheWindowBack) {
    app.busyMessage = u"Committing"_s;
    window.close();
    app.busyMessage = std::nullopt;
    app.alert = AppAlert{QUuid::createUuid(), u"Commit Failed"_s, u"locked"_s};
    EXPECT_TRUE(waitUntil([this] { return window.isVisible(); }));
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    for (const BusyKind kind : {BusyKind::load, BusyKind::interruptible}) {
        window.show();
        app.busyKind = kind;
        app.busyMessage = u"Working"_s;
        EXPECT_TRUE(window.close()) << "reading a list keeps nobody waiting";
        app.busyMessage = std::nullopt;
    }
}

} // namespace
} // namespace kestor

#include "support/app_fixture.h"
#include "support/printers.h"
#include "ui/frame/main_window.h"
#include "ui/list/filter_field.h"
#include "ui/list/row_list_view.h"
#include "ui/look/accent_button.h"
#include "ui/tabs/change_row_menu.h"
#include "ui/tabs/commit_panel.h"

#include <QApplication>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::AppFixture;
using testing::TempTree;
using testing::waitUntil;

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
        window.show();
        activate();
    }
    /// Shortcuts work in the active window only.
    void activate() {
        window.activateWindow();
        ASSERT_TRUE(waitUntil([this] { return QApplication::activeWindow() == &window; }));
    }
    CommitPanel &panel() const { return *window.findChild<CommitPanel *>(); }
    QPlainTextEdit &editor() const { return *panel().findChild<QPlainTextEdit *>(); }
    AccentButton &button() const { return *static_cast<AccentButton *>(panel().findChild<QPushButton *>()); }
    QString countText() const { return panel().findChild<QLabel *>()->text(); }
    RowListView &list() const { return *window.findChild<RowListView *>(); }
    void tick(const QSet<QString> &paths) { app.selectedCommitPaths = paths; }
    QMenu *openRowMenu() {
        list().setCurrentId(u"b&c"_s);
        emit list().rowMenuRequested(1, list().mapToGlobal(QPoint(50, 30)));
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
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
    editor().moveCursor(QTextCursor::Start);
    QTest::keyClick(&editor(), Qt::Key_X);
    EXPECT_EQ(app.commitMessage.value().first(4), u"xone"_s);
    EXPECT_EQ(editor().textCursor().position(), 1);
    app.commitMessage = QString();
    EXPECT_EQ(editor().toPlainText(), QString());
    app.commitMessage = u"from elsewhere"_s;
    EXPECT_EQ(editor().toPlainText(), u"from elsewhere"_s);
    QTest::keyClick(&editor(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &button());
    EXPECT_EQ(app.commitMessage.value(), u"from elsewhere"_s);
}

TEST_F(CommitWindow, SaysWhatACommitTakes) {
    struct Row {
        const char *name;
        QSet<QString> ticked;
        QString filter;
        QString count;
        QString button;
    };
    const Row rows[] = {
        {"none", {}, {}, u"0 of 2 ticked"_s, u"Commit"_s},
        {"one", {u"a.c"_s}, {}, u"1 of 2 ticked"_s, u"Commit 1 Change"_s},
        {"all", {u"a.c"_s, u"b&c"_s}, {}, u"2 of 2 ticked"_s, u"Commit 2 Changes"_s},
        {"hidden ones too", {u"a.c"_s, u"b&c"_s}, u"a.c"_s, u"2 of 2 ticked, 1 not shown"_s, u"Commit 2 Changes"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        tick(row.ticked);
        window.findChild<FilterField *>()->setText(row.filter);
        EXPECT_EQ(countText(), row.count);
        EXPECT_EQ(button().text(), row.button);
    }
}

TEST_F(CommitWindow, CommitsFromAnywhereUnlessBusy) {
    struct Row {
        const char *name;
        std::function<void()> commit;
    };
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers others) {
        QTest::keyClick(window.focusWidget(), key, Qt::ControlModifier | others);
    };
    const Row rows[] = {
        {"the button",
         [&] {
             QTest::mouseClick(&button(), Qt::LeftButton);
         }},
        {"return in the list",
         [&] {
             list().setFocus(), press(Qt::Key_Return, {});
         }},
        {"return in the message",
         [&] {
             editor().setFocus(), press(Qt::Key_Return, {});
         }},
        {"enter of the key pad",
         [&] {
             press(Qt::Key_Enter, Qt::KeypadModifier);
         }},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        app.busyMessage = u"Working"_s;
        row.commit();
        EXPECT_EQ(fixture.alertText(), QString());
        app.busyMessage = std::nullopt;
        row.commit();
        EXPECT_EQ(fixture.alertText(), u"Nothing To Commit: Select at least one changed path."_s);
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        activate();
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
    QStringList texts;
    for (const QAction *item : menu->actions())
        texts.append(item->isSeparator() ? u"-"_s : item->text() + (item->isEnabled() ? u""_s : u" (off)"_s));
    const QStringList expected{u"Acts on 2 ticked paths (off)"_s,
                               u"Add Selected"_s,
                               u"Delete Selected"_s,
                               u"Revert Selected"_s,
                               u"Ignore Selected"_s,
                               u"-"_s,
                               u"b&&c (off)"_s,
                               u"Revert This Path..."_s,
                               u"Blame Path..."_s,
                               u"Copy Path"_s,
                               u"-"_s,
                               u"Revert All..."_s};
    EXPECT_EQ(texts, expected) << "nothing to open: the file is gone";
    EXPECT_EQ(menu->actions().at(1), window.menuBar()->actions().at(1)->menu()->actions().first());
    app.busyMessage = u"Working"_s;
    for (const int held : {1, 4, 7, 8, 11})
        EXPECT_FALSE(menu->actions().at(held)->isEnabled()) << held;
    EXPECT_TRUE(menu->actions().at(9)->isEnabled());
    app.busyMessage = std::nullopt;
    menu->close();
    EXPECT_EQ(actionPathsText(1, QLocale::c()), u"Acts on 1 ticked path"_s);
    EXPECT_EQ(actionPathsText(0, QLocale::c()), u"Acts on the selected path"_s);
}

TEST_F(CommitWindow, RevertsTheRowOfTheMenuWhateverIsTicked) {
    tick({u"a.c"_s});
    fixture.user.confirms = false;
    openRowMenu()->actions().at(7)->trigger();
    const QStringList question{u"confirm Revert: Revert this path? Local changes will be discarded."_s};
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

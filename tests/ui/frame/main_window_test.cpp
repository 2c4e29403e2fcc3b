#include "support/app_test.h"
#include "support/window_test.h"
#include "tools/svn_preference.h"
#include "ui/frame/arriving_folders.h"
#include "ui/frame/branch_button.h"
#include "ui/frame/busy_card.h"
#include "ui/frame/command_table.h"
#include "ui/frame/first_run.h"
#include "ui/frame/main_window.h"
#include "ui/frame/message_dialog.h"
#include "ui/frame/output_sheet.h"
#include "ui/frame/project_header.h"
#include "ui/frame/project_list.h"
#include "ui/frame/tab_pages.h"
#include "ui/frame/tab_strip.h"
#include "ui/list/row_list_view.h"
#include "ui/look/metrics.h"
#include "ui/tabs/changes_tab.h"

#include <QAccessible>
#include <QDropEvent>
#include <QFileOpenEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QScopeGuard>
#include <QSplitter>
#include <QTextEdit>
#include <QWindow>

#include <algorithm>

namespace kestor {
namespace {

/// The real window over two projects whose folders are plain, so that loading them fails at once.
class Window : public ::testing::Test {
protected:
    void show(const QStringList &names) {
        QList<Project> projects;
        for (const QString &name : names) {
            tree.makeDirectory(name);
            projects.append({QUuid::createUuid(), name, tree.path(name), RepositoryKind::git});
        }
        app.projects = projects;
        if (!projects.isEmpty())
            app.selectedProjectID = projects.first().id;
        window = std::make_unique<MainWindow>(app, fixture.settings);
        activate(*window);
    }
    template <typename Part>
    Part *part() const {
        return window->findChild<Part *>();
    }
    QString selectedName() const { return app.selectedProject() ? app.selectedProject()->name : QString(); }
    /// Waits for the alert of a load that failed and dismisses it.
    void dismissAlert() {
        ASSERT_TRUE(waitUntil([this] { return part<MessageDialog>() != nullptr; }));
        QTest::keyClick(part<MessageDialog>(), Qt::Key_Escape);
        ASSERT_TRUE(waitUntil([this] { return part<MessageDialog>() == nullptr; }));
        activate(*window);
    }

    TempTree tree{};
    AppFixture fixture{};
    AppState &app = fixture.app;
    std::unique_ptr<MainWindow> window{};
};

/// What an item of the menus asks, runs first or alerts, and the tab that it shows.
QString effectOf(const CommandRow &row, const QString &folder) {
    QSettings settings(folder + u"/test.conf"_s, QSettings::IniFormat);
    settings.clear();
    settings.setValue(svnExecutablePathKey, u"/chosen/svn"_s);
    ProjectStore(settings).save({Project{QUuid::createUuid(), u"p"_s, folder, RepositoryKind::svn}});
    ScriptedUser user;
    user.confirms = false;
    const auto tool = std::make_shared<HeldTool>();
    AppState state(settings, user, {tool, tool, tool});
    state.changes = QList<WorkingCopyItem>{{.path = u"a.c"_s, .kind = SVNStatusKind::conflicted}};
    state.selectedChangeID = u"a.c"_s;
    const QCoro::Task<> task = row.operation(&state);
    waitUntil([&] {
        return !user.asked.isEmpty() || !tool->runs.isEmpty() || state.alert.value() ||
               state.svnExecutablePath.value().isEmpty();
    });
    QStringList effects;
    for (const QString &asked : std::as_const(user.asked))
        effects.append(asked.section(u':', 0, 0).replace(folder, u"FOLDER"_s));
    if (!tool->runs.isEmpty())
        effects.append(tool->vectors().first().join(u' '));
    if (state.alert.value())
        effects.append(u"alert "_s + state.alert.value()->title);
    if (state.selectedTab.value() != WorkflowTab::changes)
        effects.append(u"tab "_s + rawValue(state.selectedTab).toString());
    if (state.svnExecutablePath.value().isEmpty())
        effects.append(u"no chosen svn"_s);
    return effects.join(u", "_s);
}

/// A line for each menu, its items indented beneath it.
QString menuTexts(const QMenuBar &bar, const QHash<QString, QString> &effects) {
    QString texts;
    for (const QAction *menu : bar.actions()) {
        texts += menu->text() + u'\n';
        for (const QAction *item : menu->menu()->actions()) {
            const QString keys = item->shortcut().toString(QKeySequence::PortableText);
            texts += u"    "_s + (item->isSeparator() ? u"-"_s : item->text()) +
                     (keys.isEmpty() ? QString() : u" | "_s + keys) +
                     (item->isSeparator() ? QString() : u" > "_s + effects.value(item->text())) + u'\n';
        }
    }
    return texts;
}

const QString wantedMenus = uR"(&Repository
    Add Existing Working Copy... | Ctrl+O > directory Add Working Copy
    Create SVN Repository... | Ctrl+N > new folder Create SVN Repository [Create]
    Checkout... > prompt Checkout
    Remove Project > confirm Remove Project
    -
    Open Terminal Here > terminal FOLDER
    Open Finder Here > file manager FOLDER
    Open Both Here > terminal FOLDER, file manager FOLDER
    -
    Refresh Status | Ctrl+R > status --xml --no-ignore
    Update | Ctrl+U > update
    Commit | Ctrl+Return > alert Nothing To Commit
    -
    Info > info --xml
    Cleanup > cleanup
    Upgrade Working Copy > upgrade
    -
    Switch URL Or Branch... > prompt Switch
    Relocate URL... > prompt Relocate
&Working Copy
    Add Selected > alert Add Failed
    Delete Selected > delete a.c
    Revert Selected > confirm Revert
    Ignore Selected > alert Ignore Failed
    Include Ignored Path... > prompt Include Ignored Path
    -
    Resolve Selected Using Working > resolve --accept working a.c
    Resolve Selected Using Mine Full > confirm Resolve
    Resolve Selected Using Theirs Full > confirm Resolve
    -
    Lock Selected > lock a.c
    Unlock Selected > unlock a.c
    Create Changelist... > prompt Changelist
    Remove From Changelist > changelist --remove a.c
    -
    Apply Patch... > file Choose Patch File
    Make Directory... > prompt Make Directory
    Copy... > prompt Copy
    Move... > prompt Move
&History
    Show Log > info --xml, tab History
    Show Incoming Changes > info --xml, tab Incoming
    Show Archives > log --xml --verbose, tab Archives
    -
    Blame Path... > prompt Blame
    Diff Against Revision... > prompt Diff
    Pull File At Revision... > prompt Pull File
    Export File At Revision... > prompt Export File
    Create Archive Zip... > alert No Archive Selected
    -
    Rollback Selected Revision > alert No Revision Selected
    Merge... > prompt Merge
Re&mote
    List URL Or Path... > prompt List
    Cat URL Or Path... > prompt Cat
    -
    Make Remote Directory... > prompt Remote Directory
    Import Directory... > directory Choose Directory To Import
    Export URL Or Path... > prompt Export
&Properties
    List Properties... > prompt Properties
    Get Property... > prompt Get Property
    Set Property... > prompt Set Property
    Delete Property... > prompt Delete Property
&SVN
    Run svn Command... > prompt Run svn Command
    -
    Show svn Version > --version
    Show svn Help > help
    -
    Set svn Executable... > file Choose svn Executable
    Use svn From PATH > no chosen svn
)"_s;

TEST_F(Window, HasTheMenusAndHoldsThemWhileBusy) {
    show({});
    tree.makeDirectory(u"p"_s);
    QHash<QString, QString> effects;
    for (const CommandRow &row : commandTable())
        effects.insert(row.label.toString(), effectOf(row, tree.path(u"p"_s)));
    EXPECT_EQ(menuTexts(*window->menuBar(), effects), wantedMenus);
    app.busyMessage = u"Working"_s;
    for (const QAction *menu : window->menuBar()->actions()) {
        for (const QAction *item : menu->menu()->actions())
            EXPECT_TRUE(item->isSeparator() || !item->isEnabled()) << qPrintable(item->text());
    }
}

TEST_F(Window, OffersTheFirstProjectAndThenShowsIt) {
    show({});
    window->resize(1280, 800);
    EXPECT_EQ(window->windowTitle(), u"KestorSVN"_s);
    EXPECT_FALSE(part<TabStrip>()->isVisible());
    auto *way = part<FirstRun>()->findChild<QPushButton *>();
    ASSERT_EQ(window->focusWidget(), way);
    QTest::keyClick(way, Qt::Key_Space);
    EXPECT_EQ(fixture.user.asked, u"directory Add Working Copy"_list);
    for (QPushButton *other : part<FirstRun>()->findChildren<QPushButton *>().mid(1))
        other->click();
    EXPECT_EQ(fixture.user.asked.mid(1),
              u"prompt Checkout: Repository URL=|"
              "new folder Create SVN Repository [Create]: Repository Name:NewRepository"_list);
    const Project project{QUuid::createUuid(), u"a"_s, tree.path(), RepositoryKind::git};
    app.projects = QList<Project>{project};
    app.selectedProjectID = project.id;
    EXPECT_TRUE(part<TabStrip>()->isVisible());
    EXPECT_EQ(window->windowTitle(), u"a"_s);
    EXPECT_EQ(window->tabPages().changes().findChild<QSplitter *>()->sizes().first(), 400);
}

TEST_F(Window, ARowChosenByTheUserSelectsItsProject) {
    show({u"a"_s, u"b"_s, u"c"_s});
    auto *list = part<ProjectListView>();
    QSignalSpy chosen(list, &ProjectListView::projectChosen);
    app.selectedProjectID = app.projects.value().at(1).id;
    EXPECT_EQ(list->currentIndex().row(), 1);
    EXPECT_EQ(chosen.count(), 0) << "a published selection is not the user's";
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->rows().index(2, 0)).center());
    EXPECT_EQ(selectedName(), u"c"_s);
    dismissAlert();
    QTest::keyClick(window.get(), Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(selectedName(), u"b"_s);
    dismissAlert();
    app.busyMessage = u"Working"_s;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->rows().index(0, 0)).center());
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(selectedName(), u"b"_s) << "held while a command runs";
    app.busyMessage = std::nullopt;
}

TEST_F(Window, FindsAProjectByItsName) {
    show({u"alpha"_s, u"beta"_s});
    QTest::keyClick(window.get(), Qt::Key_P, Qt::ControlModifier);
    auto *field = qobject_cast<QLineEdit *>(window->focusWidget());
    ASSERT_NE(field, nullptr);
    QTest::keyClicks(field, u"BE"_s);
    EXPECT_EQ(part<ProjectListView>()->rows().rowCount(), 1);
    EXPECT_EQ(selectedName(), u"alpha"_s);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(selectedName(), u"beta"_s);
    EXPECT_FALSE(field->isVisible());
    EXPECT_EQ(part<ProjectListView>()->rows().rowCount(), 2);
    dismissAlert();
    QTest::keyClick(window.get(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(field->isVisible());
    part<ProjectListView>()->setFocus();
    EXPECT_FALSE(field->isVisible()) << "left empty";
}

TEST_F(Window, SwitchesTabsAlsoWhileBusy) {
    show({u"a"_s});
    auto *tabs = part<TabStrip>();
    app.busyMessage = u"Working"_s;
    QTest::keyClick(window.get(), Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(app.selectedTab.value(), WorkflowTab::history);
    QTest::keyClick(window.get(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(app.selectedTab.value(), WorkflowTab::archives);
    app.busyMessage = std::nullopt;
    app.selectedTab = WorkflowTab::changes;
    EXPECT_EQ(tabs->currentIndex(), 0);
    app.changes = QList<WorkingCopyItem>{{.path = u"a.c"_s, .kind = SVNStatusKind::modified}};
    EXPECT_NE(tabs->tabButton(0, QTabBar::RightSide), nullptr);
    app.changes = QList<WorkingCopyItem>();
    EXPECT_EQ(tabs->tabButton(0, QTabBar::RightSide), nullptr);
}

CommandOutput output(const QString &title, qint32 status) {
    return {QUuid::createUuid(), title, u"svn update"_s, status, u"out\n"_s, u"err\n"_s, std::nullopt};
}

TEST_F(Window, OutputTakesNoFocusAndEscDismissesIt) {
    show({u"a"_s});
    auto *list = part<ProjectListView>();
    list->setFocus();
    app.commandOutput = output(u"Update"_s, 0);
    ASSERT_NE(part<OutputSheet>(), nullptr);
    EXPECT_GE(part<OutputSheet>()->height(), OutputSheet::leastHeight);
    EXPECT_EQ(window->focusWidget(), list);
    app.commandOutput = output(u"Cleanup"_s, 1);
    EXPECT_EQ(part<OutputSheet>()->accessibleName(), u"Cleanup, Exit status 1"_s);
    CommandOutput mixed = output(u"Info"_s, 0);
    mixed.stdoutText = u"out"_s;
    mixed.stderrText = u"err\n"_s;
    app.commandOutput = mixed;
    clickButton(*part<OutputSheet>(), u"Copy the output"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"out\nerr\n"_s);
    QTest::keyClick(list, Qt::Key_Escape);
    EXPECT_FALSE(app.commandOutput.value().has_value());
    EXPECT_FALSE(part<OutputSheet>()->isVisible());
    EXPECT_EQ(window->focusWidget(), list);
}

TEST_F(Window, F6ReachesTheDetailAndTheSheetWhichGivesTheFocusBack) {
    show({u"a"_s});
    const ChangesTab &changes = window->tabPages().changes();
    app.commandOutput = output(u"Info"_s, 0);
    QWidget *list = changes.focusPanes().first();
    list->setFocus();
    QTest::keyClick(list, Qt::Key_F6);
    ASSERT_NE(window->focusWidget(), nullptr);
    EXPECT_TRUE(changes.diffPane()->isAncestorOf(window->focusWidget()));
    QTest::keyClick(window.get(), Qt::Key_F6);
    QWidget *message = window->focusWidget();
    QTest::keyClick(message, Qt::Key_F6);
    ASSERT_TRUE(part<OutputSheet>()->isAncestorOf(window->focusWidget()));
    QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(part<OutputSheet>()->isVisible());
    EXPECT_EQ(window->focusWidget(), message);
}

TEST_F(Window, AlertsComeOneAfterAnother) {
    show({u"a"_s});
    const auto publish = [this](const QString &message) {
        app.alert = AppAlert{QUuid::createUuid(), u"Commit Failed"_s, message};
    };
    publish(u"first <b>text</b>"_s);
    publish(u"second"_s);
    publish(u"second"_s);
    QStringList messages;
    while (MessageDialog *dialog = part<MessageDialog>()) {
        messages.append(dialog->findChild<QTextEdit *>()->toPlainText());
        EXPECT_LT(dialog->findChild<QTextEdit *>()->height(), 2 * dialog->fontMetrics().lineSpacing());
        EXPECT_TRUE(app.alert.value().has_value());
        QTest::keyClick(dialog, Qt::Key_Return);
        ASSERT_TRUE(waitUntil([&] { return part<MessageDialog>() != dialog; }));
    }
    EXPECT_EQ(messages, u"first <b>text</b>|second"_list);
    EXPECT_FALSE(app.alert.value().has_value());
}

TEST_F(Window, ShortWorkShowsNothingAndLongWorkHoldsParts) {
    show({u"a"_s, u"b"_s});
    auto *list = part<ProjectListView>();
    list->setFocus();
    app.busyMessage = u"Committing"_s;
    QTest::qWait(50);
    app.busyMessage = std::nullopt;
    QTest::qWait(200);
    EXPECT_EQ(part<BusyCard>(), nullptr);
    app.busyMessage = u"Committing"_s;
    ASSERT_TRUE(waitUntil([this] { return part<BusyCard>() != nullptr; }));
    EXPECT_TRUE(list->isEnabled());
    ASSERT_TRUE(waitUntil([list] { return !list->isEnabled(); }));
    app.busyMessage = std::nullopt;
    EXPECT_TRUE(list->isEnabled());
    EXPECT_FALSE(part<BusyCard>()->isVisible());
    EXPECT_EQ(window->focusWidget(), list) << "the focus is back where it was";
}

TEST_F(Window, TakesDroppedFoldersOnlyWhenItCan) {
    show({u"a"_s});
    tree.write(u"file"_s);
    const QUrl folder = QUrl::fromLocalFile(tree.path(u"a"_s));
    const QUrl file = QUrl::fromLocalFile(tree.path(u"file"_s));
    const Rows<QList<QUrl>, std::optional<QString>, bool> rows{
        {"a folder", {folder}, std::nullopt, true},
        {"a file among folders", {folder, file}, std::nullopt, false},
        {"a folder of another machine", {QUrl(u"sftp://host/a"_s)}, std::nullopt, false},
        {"while busy", {folder}, u"Working"_s, false},
    };
    for (const auto &[name, urls, busy, taken] : rows) {
        app.busyMessage = busy;
        QMimeData dragged;
        dragged.setUrls(urls);
        QDragEnterEvent enter(QPoint(600, 300), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(window->windowHandle(), &enter);
        EXPECT_EQ(enter.isAccepted(), taken);
    }
    app.busyMessage = std::nullopt;
}

TEST_F(Window, AddsFoldersOfTheDesktopAsSoonAsItCan) {
    show({});
    tree.makeDirectory(u"repo"_s);
    runTool(u"git"_s, u"init|-q"_list, tree.path(u"repo"_s));
    ArrivingFolders folders(app);
    app.busyMessage = u"Committing"_s;
    folders.add({tree.path(u"repo"_s), tree.path(u"gone"_s), tree.path(u"gone"_s)});
    const QDeadlineTimer held(300);
    EXPECT_TRUE(waitUntil([&] { return held.hasExpired(); }));
    EXPECT_TRUE(app.projects.value().isEmpty() && !app.alert.value());
    app.busyMessage = std::nullopt;
    EXPECT_TRUE(waitUntil([this] { return app.selectedProject().has_value(); }));
    EXPECT_EQ(fixture.alertText(), u"Could Not Add Project: There is no folder at "_s + tree.path(u"gone"_s) + u'.');
    dismissAlert();
    QFileOpenEvent opened(QUrl::fromLocalFile(tree.path(u"file"_s)));
    QApplication::sendEvent(qApp, &opened);
    EXPECT_EQ(fixture.alertText(), u"Could Not Add Project: There is no folder at "_s + tree.path(u"file"_s) + u'.');
}

TEST_F(Window, ACommandDropsTheProjectThatARepeatedKeyReached) {
    show({u"a"_s, u"b"_s});
    auto *list = part<ProjectListView>();
    list->setFocus();
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(list, &repeated);
    EXPECT_EQ(list->currentIndex().row(), 1);
    app.busyMessage = u"Committing"_s;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->rows().index(1)).center());
    QTest::qWait(100);
    EXPECT_EQ(selectedName(), u"a"_s);
    EXPECT_EQ(list->currentIndex().row(), 0);
    app.busyMessage = std::nullopt;
}

TEST_F(Window, TheMenuOfARowInConflictResolvesThatRowThoughOthersAreTicked) {
    show({u"a"_s});
    QList<Project> projects = app.projects;
    projects.first().kind = RepositoryKind::svn;
    app.projects = projects;
    app.changes = QList<WorkingCopyItem>{{.path = u"c.c"_s, .kind = SVNStatusKind::conflicted},
                                         {.path = u"m.c"_s, .kind = SVNStatusKind::modified}};
    app.selectedCommitPaths = marked({u"m.c"_s});
    for (const QString &path : u"c.c|m.c"_list) {
        SCOPED_TRACE(qPrintable(path));
        app.selectedChangeID = path;
        emit window->tabPages().changes().findChild<RowListView *>()->rowMenuRequested(path == u"c.c"_s ? 0 : 1,
                                                                                       QPoint());
        QMenu *menu = openMenu();
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(itemTexts(*menu).filter(u"Resolve Selected"_s).size(), path == u"c.c"_s ? 3 : 0);
        menu->close();
    }
}

/// The names of the parts that Tab reaches from the list of projects until it is there again.
QStringList focusOrder(QWidget &window, QWidget *start) {
    QStringList names;
    start->setFocus(Qt::TabFocusReason);
    do {
        QWidget *focused = window.focusWidget();
        const QString name = QAccessible::queryAccessibleInterface(focused)->text(QAccessible::Name);
        names.append(name.isEmpty() ? u"unnamed "_s + QLatin1StringView(focused->metaObject()->className()) : name);
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    } while (window.focusWidget() != start && names.size() < 60);
    return names;
}

TEST_F(Window, TabReachesEveryPartInTheOrderOfTheScreen) {
    show({u"a"_s});
    app.changes = QList<WorkingCopyItem>{{.path = u"a.c"_s, .kind = SVNStatusKind::modified}};
    const QStringList header = u"Projects|Add a project|Remove the project|Hide the sidebar (Ctrl+B)|"
                               "Switch URL Or Branch...|Refresh (F5)|Pull (Ctrl+U)"_list;
    // Among others.
    const std::pair<WorkflowTab, QStringList> rows[] = {
        {WorkflowTab::changes, header + u"Filter changes"_list},
        {WorkflowTab::history, header + u"Filter files|Files|Revisions"_list},
        {WorkflowTab::incoming, header + u"Filter revisions|Incoming revisions"_list},
        {WorkflowTab::archives, header + u"Filter revisions|Revisions"_list},
        {WorkflowTab::configuration, header + u"More commands for the languages|Languages|Custom language rules"_list},
    };
    for (const auto &[tab, inOrder] : rows) {
        SCOPED_TRACE(rawValue(tab).toUtf8().constData());
        app.selectedTab = tab;
        QStringList reached = focusOrder(*window, part<ProjectListView>());
        EXPECT_EQ(reached.filter(u"unnamed"_s), QStringList());
        reached.removeIf([&wanted = inOrder](const QString &name) { return !wanted.contains(name); });
        EXPECT_EQ(reached, inOrder);
    }
}

TEST_F(Window, CutsNoTextWhenTheFontBecomesTwiceAsLarge) {
    const QFont standard = QApplication::font();
    const auto back = qScopeGuard([&standard] { QApplication::setFont(standard); });
    show({u"a"_s});
    app.changes = QList<WorkingCopyItem>{{.path = u"a.c"_s, .kind = SVNStatusKind::modified}};
    for (const WorkflowTab tab : allWorkflowTabs)
        app.selectedTab = tab;
    QApplication::setFont(resizedFont(standard, QFontInfo(standard).pixelSize()));
    const auto cutTexts = [&] {
        QStringList texts;
        for (const QWidget *part : window->findChildren<QWidget *>()) {
            const bool isLarge = QFontInfo(part->font()).pixelSize() > QFontInfo(standard).pixelSize() + 2;
            const QString text = part->isVisible() ? part->property("text").toString() : QString();
            if (!text.isEmpty() && !(isLarge && part->height() >= part->fontMetrics().height()))
                texts.append(text);
        }
        return texts;
    };
    for (const WorkflowTab tab : allWorkflowTabs) {
        app.selectedTab = tab;
        waitUntil([&] { return cutTexts().isEmpty(); });
        EXPECT_EQ(cutTexts(), QStringList());
    }
}

TEST_F(Window, AboutPreferencesAndQuitAreKeysOfTheWindow) {
    show({u"a"_s});
    QTest::keyClick(window.get(), Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(app.selectedTab.value(), WorkflowTab::configuration);
    QTest::keyClick(window.get(), Qt::Key_F1);
    ASSERT_NE(QApplication::activeModalWidget(), nullptr);
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    activate(*window);
    QTest::keyClick(window.get(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Window, KeepsItsLayoutForTheNextRun) {
    show({u"a"_s});
    qobject_cast<QSplitter *>(window->centralWidget())->setSizes({301, 900});
    const int width = part<ProjectListView>()->width();
    part<ProjectListView>()->setFocus();
    QTest::keyClick(window.get(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(window->focusWidget(), window->tabPages().changes().focusPanes().first());
    window->close();
    window = std::make_unique<MainWindow>(app, fixture.settings);
    window->show();
    EXPECT_FALSE(part<ProjectListView>()->isVisible());
    clickButton(*window, u"Show the sidebar (Ctrl+B)"_s);
    EXPECT_TRUE(part<ProjectListView>()->isVisible());
    EXPECT_EQ(part<ProjectListView>()->width(), width);
}

TEST_F(Window, AProjectWhoseServerIsSilentCanBeLeft) {
    show({u"a"_s, u"b"_s});
    app.busyKind = BusyKind::load;
    app.busyMessage = u"Loading incoming"_s;
    const QList<QToolButton *> commands = part<ProjectHeader>()->findChildren<QToolButton *>();
    ASSERT_TRUE(waitUntil([&] {
        return std::ranges::any_of(commands, [](const QToolButton *button) { return !button->isEnabled(); });
    })) << "what is held is drawn disabled";
    auto *list = part<ProjectListView>();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->rows().index(1, 0)).center());
    EXPECT_EQ(selectedName(), u"b"_s);
    dismissAlert();
}

} // namespace
} // namespace kestor

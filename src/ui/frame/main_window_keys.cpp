#include "ui/diff/plain_text_view.h"
#include "ui/frame/commands.h"
#include "ui/frame/first_run.h"
#include "ui/frame/main_window.h"
#include "ui/frame/output_sheet.h"
#include "ui/frame/pane_cycle.h"
#include "ui/frame/sidebar.h"
#include "ui/frame/tab_pages.h"
#include "ui/frame/tab_strip.h"
#include "ui/tabs/changes_tab.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QShortcut>
#include <QStackedWidget>

#include <utility>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

// Shortcuts of commands that the menus do not show.
constexpr std::pair<QKeyCombination, Command> commandKeys[] = {
    {Qt::Key_F5, Command::refreshStatus},
    {Qt::CTRL | Qt::Key_T, Command::openTerminal},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_O, Command::openFinder},
};

} // namespace

template <typename Slot>
QShortcut *MainWindow::addShortcut(const QKeySequence &keys, Slot slot) {
    auto *shortcut = new QShortcut(keys, this);
    connect(shortcut, &QShortcut::activated, this, slot);
    return shortcut;
}

void MainWindow::addShortcuts() {
    for (const auto &[keys, command] : commandKeys)
        addShortcut(keys, [action = commands->action(command)] { action->trigger(); });
    addProgramActions();
    for (int index = 0; index < tabs->count(); ++index)
        addShortcut(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + index), [this, index] { tabs->choose(index); });
    addShortcut(Qt::CTRL | Qt::Key_PageUp, [this] { tabs->choose(tabs->currentIndex() - 1); });
    addShortcut(Qt::CTRL | Qt::Key_PageDown, [this] { tabs->choose(tabs->currentIndex() + 1); });
    addShortcut(Qt::CTRL | Qt::Key_B, [this] { setSidebarHidden(!sidebar->isHidden()); });
    addShortcut(Qt::CTRL | Qt::Key_P, [this] { findProject(); });
    addShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Up, [this] { sidebar->selectNeighbour(-1); });
    addShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Down, [this] { sidebar->selectNeighbour(1); });
    addShortcut(Qt::CTRL | Qt::Key_F, [this] { focusFilter(); });
    addShortcut(Qt::CTRL | Qt::Key_L, [this] { focusMessage(); });
    addShortcut(Qt::Key_F6, [this] { turnToPane(Turn::forward); });
    addShortcut(Qt::SHIFT | Qt::Key_F6, [this] { turnToPane(Turn::back); });
    addShortcut(Qt::SHIFT | Qt::Key_F10, [this] { openContextMenu(); });
    for (const Qt::Key plus : {Qt::Key_Plus, Qt::Key_Equal})
        addShortcut(Qt::CTRL | plus, [this] { pages->setTextSize(pages->textSize() + 1); });
    addShortcut(Qt::CTRL | Qt::Key_Minus, [this] { pages->setTextSize(pages->textSize() - 1); });
    addShortcut(Qt::CTRL | Qt::Key_0, [this] { pages->setTextSize(0); });
    closeSheet = addShortcut(Qt::Key_Escape, [this] { state.commandOutput = std::nullopt; });
}

/// In the program's own menu where the platform has one, elsewhere keys of the window.
void MainWindow::addProgramActions() {
    const auto add = [this](const QString &text, QAction::MenuRole role, const QKeySequence &keys, auto slot) {
        auto *action = new QAction(text, this);
        action->setMenuRole(role);
        action->setShortcut(keys);
        connect(action, &QAction::triggered, this, slot);
#ifdef Q_OS_MACOS
        menuBar()->actions().first()->menu()->addAction(action);
#else
        addAction(action);
#endif
    };
    add(u"About KestorSVN"_s, QAction::AboutRole, Qt::Key_F1, [this] { showAbout(); });
    add(u"Preferences..."_s, QAction::PreferencesRole, Qt::CTRL | Qt::Key_Comma,
        [this] { tabs->choose(tabs->count() - 1); });
    add(u"Quit KestorSVN"_s, QAction::QuitRole, Qt::CTRL | Qt::Key_Q, [this] { close(); });
}

void MainWindow::showAbout() {
    auto *about = new QMessageBox(QMessageBox::NoIcon, u"About KestorSVN"_s,
                                  u"KestorSVN "_s + QCoreApplication::applicationVersion(), QMessageBox::Ok, this);
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->setInformativeText(u"A window on Subversion working copies and Git repositories.\nBuilt on Qt %1."_s.arg(
        QLatin1StringView(qVersion())));
    about->open();
}

void MainWindow::findProject() {
    if (state.projects.value().isEmpty())
        return;
    setSidebarHidden(false);
    sidebar->find();
}

/// Gives the focus to the list of the page, or to what stands in its place.
void MainWindow::focusContent() {
    QWidget *wanted = content->currentWidget() == firstRun ? firstRun : pages->current().focusPanes().first();
    wanted->setFocus(Qt::OtherFocusReason);
}

void MainWindow::focusFilter() {
    if (pages->isVisible())
        pages->current().focusFilter();
}

void MainWindow::focusMessage() {
    if (!pages->isVisible())
        return;
    state.selectedTab = WorkflowTab::changes;
    pages->changes().focusMessage();
}

void MainWindow::turnToPane(Turn turn) {
    QList<QWidget *> panes{sidebar->list()};
    panes += pages->current().focusPanes();
    if (sheet != nullptr)
        panes += &sheet->pane();
    if (QWidget *pane = nextPane(panes, focusWidget(), turn))
        pane->setFocus(Qt::ShortcutFocusReason);
}

/// As the Menu key does by itself.
void MainWindow::openContextMenu() {
    QWidget *focused = focusWidget();
    if (focused == nullptr)
        return;
    const QPoint place = focused->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, focused->mapToGlobal(place));
    QApplication::sendEvent(focused, &event);
}

} // namespace kestor

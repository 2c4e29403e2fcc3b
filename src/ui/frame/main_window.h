#pragma once

#include "controller/app_state.h"
#include "ui/frame/busy_clock.h"
#include "ui/frame/pane_cycle.h"
#include "ui/frame/window_state.h"
#include "ui/tabs/observers.h"

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

class QShortcut;
class QStackedWidget;

namespace kestor {

class Commands;
class FirstRun;
class LineSplitter;
class OutputSheet;
class ProjectHeader;
class Sidebar;
class TabPages;
class TabStrip;

/// The one window: sidebar, header, tabs with their pages, and the output sheet. It draws what the state publishes and
/// calls its operations. Refreshes, output and running commands move neither focus nor selection.
class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    /// Both must outlive the window, which is not shown yet and has started nothing.
    MainWindow(AppState &state, QSettings &settings);

    /// Shows the window in front of all others, also when it is minimised or was closed while a command runs, which it
    /// then outlives.
    void bringForward();
    /// Whether the user closed the window and nothing brings it back.
    bool isClosed() const { return isHidden() && !closesWhenDone; }

    TabPages &tabPages() { return *pages; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *projectView();
    void observeState();
    void restore(const WindowState &saved);
    WindowState currentState() const;

    void addShortcuts();
    void addProgramActions();
    void showAbout();
    template <typename Slot>
    QShortcut *addShortcut(const QKeySequence &keys, Slot slot);

    void showTitle();
    void showFirstRunOrProject();
    void showOutput();
    void makeOutputSheet();
    void closeOutputSheet();
    void fitOutputSheet();
    void showBusy(BusyPhase phase);
    void setSidebarHidden(bool hidden);
    void findProject();
    void focusContent();
    void focusFilter();
    void focusMessage();
    void turnToPane(Turn turn);
    void openContextMenu();
    void closeWhenDone();
    void tellOfUnendedCommand();

    AppState &state;
    QSettings &settings;
    Commands *commands;
    LineSplitter *columns;
    Sidebar *sidebar;
    QStackedWidget *content;
    FirstRun *firstRun = nullptr;
    ProjectHeader *header = nullptr;
    TabStrip *tabs = nullptr;
    LineSplitter *rows = nullptr;
    TabPages *pages = nullptr;
    OutputSheet *sheet = nullptr;
    QShortcut *closeSheet = nullptr;
    int sidebarWidth = 0;          ///< when it was last seen
    QPointer<QWidget> heldFocus{}; ///< had the focus when its part was drawn disabled
    QPointer<QWidget> focusLeft{}; ///< had the focus when it went to the output sheet
    bool closesWhenDone = false;   ///< hidden by the user while a command was running
    bool stopsOnClose = false;     ///< the user has been told that the command did not end
    QTimer *patience = new QTimer(this);
    Observers observers{};
};

} // namespace kestor

#include "ui/frame/main_window.h"

#include "model/preferences_file.h"
#include "ui/diff/plain_text_view.h"
#include "ui/frame/alert_presenter.h"
#include "ui/frame/busy_display.h"
#include "ui/frame/commands.h"
#include "ui/frame/drop_target.h"
#include "ui/frame/first_run.h"
#include "ui/frame/output_sheet.h"
#include "ui/frame/project_header.h"
#include "ui/frame/sidebar.h"
#include "ui/frame/tab_pages.h"
#include "ui/frame/tab_strip.h"
#include "ui/look/line_splitter.h"
#include "ui/tabs/changes_tab.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize defaultSize(1280, 800);
constexpr QSize leastSize(900, 560);
/// The output sheet opens no higher than this part of what it shares.
constexpr double greatestSheetPart = 0.4;
/// How long the hidden window waits for a command to end.
constexpr std::chrono::seconds patienceTime{30};

QList<QRect> screenAreas() {
    QList<QRect> areas;
    for (const QScreen *screen : QGuiApplication::screens())
        areas.append(screen->availableGeometry());
    return areas;
}

/// Whether something runs that must not be cut short.
bool isCommandRunning(const AppState &state) {
    return state.busyMessage.value() && state.busyKind.value() == BusyKind::command;
}

} // namespace

MainWindow::MainWindow(AppState &shownState, QSettings &keptSettings)
    : state(shownState), settings(keptSettings), commands(new Commands(state, this)),
      columns(new LineSplitter(Qt::Horizontal, this)), sidebar(new Sidebar(state, *commands, columns)),
      content(new QStackedWidget(columns)) {
    setMinimumSize(leastSize);
    commands->fill(*menuBar());
    content->addWidget(projectView());
    columns->setStretchFactor(1, 1);
    setCentralWidget(columns);
    connect(sidebar, &Sidebar::hideRequested, this, [this] { setSidebarHidden(true); });
    connect(header, &ProjectHeader::sidebarRequested, this, [this] { setSidebarHidden(false); });
    auto *drops = new DropTarget(
        this, [this] { return !state.busyMessage.value() && QApplication::activeModalWidget() == nullptr; });
    connect(drops, &DropTarget::dropped, this, [this](const QStringList &folders) { state.addWorkingCopies(folders); });
    addShortcuts();
    observeState();
    restore(loadWindowState(settings));
}

QWidget *MainWindow::projectView() {
    auto *view = new QWidget(content);
    header = new ProjectHeader(state, *commands, view);
    tabs = new TabStrip(state, view);
    rows = new LineSplitter(Qt::Vertical, view);
    pages = new TabPages(state, *commands, rows);
    auto *layout = new QVBoxLayout(view);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(header);
    layout->addWidget(tabs);
    layout->addWidget(rows, 1);
    auto *busy = new BusyDisplay(state, content, tabs);
    connect(busy, &BusyDisplay::phaseChanged, this, &MainWindow::showBusy);
    return view;
}

void MainWindow::observeState() {
    observers.watch(state.projects, [this] { showFirstRunOrProject(); });
    observers.watch(state.selectedProjectID, [this] { showTitle(); });
    observers.watch(state.commandOutput, [this] { showOutput(); });
    new AlertPresenter(state, this);
    // What published the end of the work goes on first: it may report a failure or begin its next step. A command may
    // end under the message of a later load.
    const auto workEnded = [this] {
        QMetaObject::invokeMethod(this, &MainWindow::closeWhenDone, Qt::QueuedConnection);
    };
    observers.watch(state.busyMessage, workEnded);
    observers.watch(state.busyKind, workEnded);
    patience->setObjectName(u"patience"_s);
    patience->setSingleShot(true);
    patience->setInterval(patienceTime);
    connect(patience, &QTimer::timeout, this, &MainWindow::tellOfUnendedCommand);
}

void MainWindow::showTitle() {
    const std::optional<Project> project = state.selectedProject();
    setWindowTitle(project ? project->name : u"KestorSVN"_s);
}

void MainWindow::showFirstRunOrProject() {
    const bool empty = state.projects.value().isEmpty();
    if (empty && firstRun == nullptr) {
        firstRun = new FirstRun(*commands, content);
        content->addWidget(firstRun);
    }
    const int shown = empty ? content->indexOf(firstRun) : 0;
    if (content->currentIndex() == shown && isVisible())
        return;
    content->setCurrentIndex(shown);
    focusContent();
}

void MainWindow::showOutput() {
    const std::optional<CommandOutput> output = state.commandOutput.value();
    closeSheet->setEnabled(output.has_value());
    if (!output)
        return closeOutputSheet();
    makeOutputSheet();
    sheet->setOutput(*output);
    fitOutputSheet();
}

void MainWindow::makeOutputSheet() {
    if (sheet != nullptr)
        return;
    sheet = new OutputSheet(rows);
    sheet->text().setTextSizeDelta(pages->textSize());
    connect(pages, &TabPages::textSizeChanged, &sheet->text(), &PlainTextView::setTextSizeDelta);
    connect(&sheet->text(), &PlainTextView::textChanged, this, [this] {
        if (sheet->isVisible())
            fitOutputSheet();
    });
    connect(sheet, &OutputSheet::closeRequested, closeSheet, &QShortcut::activated);
    const auto remember = [this, made = static_cast<QWidget *>(sheet)](QWidget *left, QWidget *entered) {
        if (made->isAncestorOf(entered) && !made->isAncestorOf(left) && isAncestorOf(left))
            focusLeft = left;
    };
    connect(qApp, &QApplication::focusChanged, sheet, remember);
    rows->setStretchFactor(0, 1);
}

/// The focus goes back to where it came from, not to whatever comes next.
void MainWindow::closeOutputSheet() {
    if (sheet == nullptr)
        return;
    const bool hadFocus = sheet->isAncestorOf(focusWidget());
    if (hadFocus && focusLeft && focusLeft->isVisible() && focusLeft->isEnabled())
        focusLeft->setFocus(Qt::OtherFocusReason);
    else if (hadFocus)
        focusContent();
    sheet->hide();
}

/// Shows the sheet as high as its text wants; one that is open only grows, as the user may have made it larger.
void MainWindow::fitOutputSheet() {
    const int height = rows->height();
    const int greatest = qMax(OutputSheet::leastHeight, static_cast<int>(height * greatestSheetPart));
    const int sheetHeight = qBound(OutputSheet::leastHeight, sheet->wantedHeight(), greatest);
    if (sheet->isVisible() && sheet->height() >= sheetHeight)
        return;
    sheet->show();
    rows->setSizes({height - sheetHeight, sheetHeight});
}

void MainWindow::showBusy(BusyPhase phase) {
    QWidget *focused = focusWidget();
    sidebar->showBusy(phase);
    header->showBusy(phase);
    if (firstRun != nullptr)
        firstRun->setHeld(phase == BusyPhase::dimmed);
    if (phase == BusyPhase::dimmed && focused != nullptr && !focused->isEnabled()) {
        heldFocus = focused;
        setFocus(); // so that no other widget gets the keys meant for the disabled one
    }
    if (phase == BusyPhase::idle && heldFocus) {
        if (focusWidget() == nullptr || focusWidget() == this)
            heldFocus->setFocus();
        heldFocus = nullptr;
    }
}

void MainWindow::setSidebarHidden(bool hidden) {
    if (hidden && sidebar->isVisible())
        sidebarWidth = sidebar->width();
    if (hidden && sidebar->isAncestorOf(focusWidget()))
        focusContent();
    const bool appears = !hidden && sidebar->isHidden();
    sidebar->setVisible(!hidden);
    if (appears)
        columns->setSizes({sidebarWidth, columns->width() - sidebarWidth});
    header->setSidebarHidden(hidden);
}

void MainWindow::restore(const WindowState &saved) {
    sidebarWidth = saved.sidebarWidth;
    setSidebarHidden(saved.sidebarHidden);
    pages->restore(saved);
    columns->setSizes({saved.sidebarWidth, defaultSize.width() - saved.sidebarWidth});
    const std::optional<QRect> recovered = recoveredFrame(saved.frame, screenAreas());
    if (recovered)
        setGeometry(*recovered);
    if (!recovered && !restoreGeometry(saved.geometry))
        resize(defaultSize.boundedTo(screen()->availableSize()));
}

WindowState MainWindow::currentState() const {
    WindowState current;
    current.geometry = saveGeometry();
    current.frame = frameGeometry();
    current.sidebarHidden = sidebar->isHidden();
    current.sidebarWidth = sidebar->isHidden() ? sidebarWidth : sidebar->width();
    pages->save(current);
    return current;
}

void MainWindow::bringForward() {
    closesWhenDone = false;
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void MainWindow::closeEvent(QCloseEvent *event) {
    if (isVisible()) {
        saveWindowState(settings, currentState());
        writeToDisk(settings);
    }
    if (!isCommandRunning(state) || stopsOnClose)
        return QMainWindow::closeEvent(event);
    closesWhenDone = true;
    patience->start();
    hide();
    event->ignore();
}

/// A failure brings the window back: nobody else would tell of it.
void MainWindow::closeWhenDone() {
    if (isCommandRunning(state))
        return;
    stopsOnClose = false;
    patience->stop();
    if (!std::exchange(closesWhenDone, false))
        return;
    if (state.alert.value())
        return show();
    QCoreApplication::quit();
}

/// A command that hangs could not be ended where there is no window.
void MainWindow::tellOfUnendedCommand() {
    if (!isCommandRunning(state) || !std::exchange(closesWhenDone, false))
        return;
    stopsOnClose = true;
    show();
    const QString text = u"\"%1\" has not ended yet. Close the window again to stop it."_s;
    state.alert = AppAlert{QUuid::createUuid(), u"Still Running"_s, text.arg(*state.busyMessage.value())};
}

} // namespace kestor

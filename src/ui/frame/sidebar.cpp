#include "ui/frame/sidebar.h"

#include "ui/frame/commands.h"
#include "ui/frame/project_list.h"
#include "ui/list/filter_field.h"
#include "ui/look/control_size.h"
#include "ui/look/derived_font.h"
#include "ui/look/flat_button.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int leastWidth = 160;
constexpr int greatestWidth = 360;
constexpr int headHeight = 48;
constexpr int footHeight = 40;

} // namespace

Sidebar::Sidebar(AppState &shownState, const Commands &commands, QWidget *parent)
    : QWidget(parent), state(shownState), view(new ProjectListView(this)) {
    setMinimumWidth(leastWidth);
    setMaximumWidth(greatestWidth);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(head());
    layout->addWidget(view, 1);
    layout->addWidget(foot(commands));
    makeMenu(commands);
    connect(view, &ProjectListView::projectChosen, this, &Sidebar::select);
    observers.watch(state.projects, [this] { showRows(); });
    observers.watch(state.selectedProjectID, [this] { showRows(); });
    observers.watch(state.busyKind, [this] { showBusy(phase); });
}

QWidget *Sidebar::list() const {
    return view;
}

QWidget *Sidebar::head() {
    auto *bar = new QWidget(this);
    label = new ToneLabel(u"Projects"_s, Tone::muted, bar);
    setDerivedFont(*label, [](const QFont &font) { return boldFont(smallFont(font)); });
    filter = new FilterField(u"Filter projects"_s, bar);
    filter->hide();
    search = flatButton(Icon::search, u"Find a project (Ctrl+P)"_s, bar);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(paneEdge, 0, smallGap, 0);
    layout->setSpacing(smallGap);
    layout->addWidget(label);
    layout->addWidget(filter, 1);
    layout->addWidget(search, 0, Qt::AlignRight);
    setRowHeight(*layout, headHeight);
    connect(search, &QToolButton::clicked, this, &Sidebar::find);
    connect(filter, &QLineEdit::textChanged, this, &Sidebar::showRows);
    connect(filter, &QLineEdit::returnPressed, this, &Sidebar::selectFirst);
    connect(filter, &FilterField::firstMatchRequested, this, &Sidebar::enterList);
    connect(filter, &FilterField::leaveRequested, this, &Sidebar::endFinding);
    connect(filter, &FilterField::left, this, [this] {
        if (filter->text().isEmpty() && !filter->isHidden())
            endFinding();
    });
    return bar;
}

QWidget *Sidebar::foot(const Commands &commands) {
    auto *bar = new QWidget(this);
    add = flatButton(Icon::plus, u"Add a project"_s, bar);
    add->setPopupMode(QToolButton::InstantPopup);
    auto *ways = new QMenu(add);
    for (const Command way : {Command::addExistingWorkingCopy, Command::checkout, Command::createRepository})
        ways->addAction(commands.action(way));
    add->setMenu(ways);
    remove = flatButton(Icon::minus, u"Remove the project"_s, bar);
    auto *hide = flatButton(Icon::sidebar, u"Hide the sidebar (Ctrl+B)"_s, bar);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(smallGap, 0, smallGap, 0);
    layout->setSpacing(smallGap);
    layout->addWidget(add);
    layout->addWidget(remove);
    layout->addStretch();
    layout->addWidget(hide);
    setRowHeight(*layout, footHeight);
    connect(remove, &QToolButton::clicked, commands.action(Command::removeProject), &QAction::trigger);
    connect(hide, &QToolButton::clicked, this, &Sidebar::hideRequested);
    return bar;
}

void Sidebar::makeMenu(const Commands &commands) {
    auto *menu = new QMenu(view);
    const auto addGroup = [&](std::initializer_list<Command> group) {
        for (const Command command : group)
            menu->addAction(commands.action(command));
    };
    addGroup({Command::openTerminal, Command::openFinder, Command::openBoth});
    menu->addSeparator();
    addGroup({Command::refreshStatus, Command::update, Command::info});
    menu->addSeparator();
    addGroup({Command::removeProject});
    connect(view, &ProjectListView::menuRequested, menu, [menu](const QPoint &position) { menu->popup(position); });
}

void Sidebar::find() {
    label->hide();
    search->hide();
    filter->show();
    filter->setFocus(Qt::ShortcutFocusReason);
    filter->selectAll();
}

void Sidebar::endFinding() {
    const bool hadFocus = filter->hasFocus();
    filter->clear();
    filter->hide();
    label->show();
    search->show();
    if (hadFocus)
        view->setFocus(Qt::OtherFocusReason);
}

void Sidebar::selectFirst() {
    if (view->rows().rowCount() == 0 || isHeld())
        return;
    const QUuid first = view->rows().at(0).id;
    endFinding();
    select(first);
}

/// On to the first match, as in the lists of the tabs.
void Sidebar::enterList() {
    view->setFocus(Qt::OtherFocusReason);
    if (!isHeld() && view->rows().rowCount() > 0)
        view->setCurrentIndex(view->rows().index(0));
}

void Sidebar::keyPressEvent(QKeyEvent *event) {
    if (event->key() != Qt::Key_Escape || filter->isHidden())
        return QWidget::keyPressEvent(event);
    endFinding();
}

void Sidebar::paintEvent(QPaintEvent *) {
    QPainter(this).fillRect(QRect(0, add->parentWidget()->y(), width(), 1), themeFor(palette()).separator);
}

void Sidebar::showRows() {
    const ListFilter typed(filter->text());
    view->rows().setRows(projectRows(state.projects.value(), typed), typed);
    filter->setCounts(view->rows().rowCount(), static_cast<int>(state.projects.value().size()));
    view->showCurrent(state.selectedProjectID.value().value_or(QUuid()));
    search->setVisible(filter->isHidden() && !state.projects.value().isEmpty());
    showBusy(phase);
}

void Sidebar::selectNeighbour(int step) {
    const int row = view->currentIndex().row() + step;
    if (!isHeld() && row >= 0 && row < view->rows().rowCount())
        select(view->rows().at(row).id);
}

void Sidebar::select(const QUuid &id) {
    if (state.selectedProjectID.value() == id)
        return;
    state.commandOutput = std::nullopt; // tells of the project left
    state.selectedProjectID = id;
    state.projectSelectionChanged();
}

bool Sidebar::isHeld() const {
    return phase != BusyPhase::idle && state.busyKind.value() != BusyKind::load;
}

void Sidebar::showBusy(BusyPhase newPhase) {
    phase = newPhase;
    const bool dimmed = phase == BusyPhase::dimmed;
    view->setMoving(isHeld() ? ProjectListView::Moving::held : ProjectListView::Moving::allowed);
    view->setEnabled(!dimmed || !isHeld());
    add->setEnabled(!dimmed);
    remove->setEnabled(!dimmed && state.selectedProjectID.value().has_value());
}

} // namespace kestor

#include "ui/frame/project_header.h"

#include "ui/frame/commands.h"
#include "ui/frame/header_text.h"
#include "ui/frame/icon_label.h"
#include "ui/frame/kind_tag.h"
#include "ui/frame/project_rows.h"
#include "ui/look/flat_button.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"

#include <QAction>
#include <QDir>
#include <QHBoxLayout>
#include <QMenu>
#include <QToolButton>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr int headerHeight = 48;
/// Below this width the buttons show their icons only.
constexpr int compactWidth = 760;

} // namespace

ProjectHeader::ProjectHeader(AppState &shownState, const Commands &commands, QWidget *parent)
    : QWidget(parent), state(shownState), sidebar(flatButton(Icon::sidebar, u"Show the sidebar (Ctrl+B)"_s, this)),
      name(new ToneLabel(this)), kind(new KindTag(this)),
      branchIcon(new IconLabel(Icon::branch, Tone::plain, 16, this)), branch(new ToneLabel(this)),
      path(new ToneLabel(QString(), Tone::muted, this)),
      refresh(commandButton(commands, Command::refreshStatus, Icon::refresh, u"Refresh (F5)"_s)),
      terminal(commandButton(commands, Command::openTerminal, Icon::terminal, u"Open Terminal Here (Ctrl+T)"_s)),
      folder(commandButton(commands, Command::openFinder, Icon::folder, u"Open Finder Here (Ctrl+Shift+O)"_s)),
      more(flatButton(Icon::more, u"More commands"_s, this, MenuArrow::none)) {
    setFixedHeight(headerHeight);
    name->setFont(headingFont(font()));
    name->setElideMode(Qt::ElideMiddle);
    branch->setElideMode(Qt::ElideMiddle);
    path->setElideMode(Qt::ElideMiddle);
    path->setFont(smallFont(font()));
    refresh->setText(u"Refresh"_s);
    sidebar->hide();
    addMenu(commands);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(paneEdge, 0, gap, 0);
    layout->setSpacing(gap);
    for (QWidget *part : std::initializer_list<QWidget *>{sidebar, name, kind, branchIcon, branch, path})
        layout->addWidget(part);
    layout->addStretch();
    for (QWidget *button : {refresh, terminal, folder, more})
        layout->addWidget(button);
    connect(sidebar, &QToolButton::clicked, this, &ProjectHeader::sidebarRequested);
    observers.watch(state.projects, [this] { showProject(); });
    observers.watch(state.selectedProjectID, [this] { showProject(); });
    observers.watch(state.repositoryInfo, [this] { showProject(); });
}

QToolButton *ProjectHeader::commandButton(const Commands &commands, Command command, Icon shown, const QString &title) {
    QToolButton *button = flatButton(shown, title, this);
    connect(button, &QToolButton::clicked, commands.action(command), &QAction::trigger);
    return button;
}

void ProjectHeader::addMenu(const Commands &commands) {
    auto *menu = new QMenu(more);
    menu->addAction(commands.action(Command::info));
    menu->addAction(commands.action(Command::openBoth));
    menu->addSeparator();
    menu->addAction(commands.action(Command::removeProject));
    more->setMenu(menu);
    more->setPopupMode(QToolButton::InstantPopup);
}

void ProjectHeader::setSidebarHidden(bool hidden) {
    sidebar->setVisible(hidden);
    shareWidth();
}

void ProjectHeader::showBusy(BusyPhase phase) {
    for (QWidget *button : {refresh, terminal, folder, more})
        button->setEnabled(phase != BusyPhase::dimmed);
}

void ProjectHeader::showProject() {
    const std::optional<Project> project = state.selectedProject();
    if (!project)
        return;
    name->setText(project->name);
    kind->setText(kindTitle(project->kind));
    branch->setText(branchText(project->kind, state.repositoryInfo.value()));
    branch->setAccessibleName(u"Branch %1"_s.arg(branch->text()));
    path->setText(homeRelativePath(project->path, QDir::homePath()));
    branchIcon->setVisible(!branch->text().isEmpty());
    branch->setVisible(!branch->text().isEmpty());
    shareWidth();
}

void ProjectHeader::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    refresh->setToolButtonStyle(width() < compactWidth ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    shareWidth();
}

void ProjectHeader::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        shareWidth();
}

void ProjectHeader::shareWidth() {
    const QMargins margins = layout()->contentsMargins();
    int available = width() - margins.left() - margins.right() - 2 * gap;
    for (const QWidget *part :
         std::initializer_list<const QWidget *>{sidebar, name, kind, branchIcon, refresh, terminal, folder, more}) {
        if (!part->isHidden())
            available -= part->sizeHint().expandedTo(part->minimumSize()).width() + gap;
    }
    const HeaderWidths widths =
        headerWidths(available, {branch->isHidden() ? 0 : branch->wantedWidth(), path->wantedWidth()});
    branch->setFixedWidth(widths.branch);
    path->setFixedWidth(widths.path);
}

} // namespace kestor

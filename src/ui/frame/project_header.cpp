#include "ui/frame/project_header.h"

#include "ui/frame/branch_button.h"
#include "ui/frame/commands.h"
#include "ui/frame/header_text.h"
#include "ui/frame/kind_tag.h"
#include "ui/frame/project_rows.h"
#include "ui/look/control_size.h"
#include "ui/look/derived_font.h"
#include "ui/look/flat_button.h"
#include "ui/look/home_path.h"
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
      name(new ToneLabel(this)), kind(new KindTag(this)), branch(new BranchButton(this)),
      path(new ToneLabel(QString(), Tone::muted, this)),
      refresh(commandButton(commands, Command::refreshStatus, Icon::refresh, u"Refresh (F5)"_s)),
      update(commandButton(commands, Command::update, Icon::update, QString())),
      terminal(commandButton(commands, Command::openTerminal, Icon::terminal, u"Open Terminal Here (Ctrl+T)"_s)),
      folder(commandButton(commands, Command::openFinder, Icon::folder, u"Open Finder Here (Ctrl+Shift+O)"_s)),
      more(flatButton(Icon::more, u"More commands"_s, this, MenuArrow::none)) {
    setDerivedFont(*name, headingFont);
    name->setElideMode(Qt::ElideMiddle);
    path->setElideMode(Qt::ElideMiddle);
    setDerivedFont(*path, smallFont);
    refresh->setText(u"Refresh"_s);
    sidebar->hide();
    addMenu(commands);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(paneEdge, 0, gap, 0);
    layout->setSpacing(gap);
    for (QWidget *part : std::initializer_list<QWidget *>{sidebar, name, kind, branch, path})
        layout->addWidget(part);
    layout->addStretch();
    for (QWidget *button : {refresh, update, terminal, folder, more})
        layout->addWidget(button);
    setRowHeight(*layout, headerHeight);
    connect(branch, &QPushButton::clicked, commands.action(Command::switchURL), &QAction::trigger);
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
    menu->addAction(commands.action(Command::cleanUp));
    menu->addAction(commands.action(Command::upgrade));
    menu->addAction(commands.action(Command::relocateURL));
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
    for (QWidget *button : commandButtons())
        button->setEnabled(phase != BusyPhase::dimmed);
}

QList<QWidget *> ProjectHeader::commandButtons() const {
    return {branch, refresh, update, terminal, folder, more};
}

/// Git calls it a pull.
void ProjectHeader::showUpdate(RepositoryKind shown) {
    const QString title = shown == RepositoryKind::git ? u"Pull"_s : u"Update"_s;
    update->setText(title);
    update->setToolTip(title + u" (Ctrl+U)"_s);
    update->setAccessibleName(update->toolTip());
}

void ProjectHeader::showProject() {
    const std::optional<Project> project = state.selectedProject();
    if (!project)
        return;
    name->setText(project->name);
    kind->setText(kindTitle(project->kind));
    branch->showBranch(branchText(project->kind, state.repositoryInfo.value()));
    showUpdate(project->kind);
    path->setText(homeRelativePath(project->path, QDir::homePath()));
    shareWidth();
}

void ProjectHeader::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    for (QToolButton *button : {refresh, update})
        button->setToolButtonStyle(width() < compactWidth ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
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
         std::initializer_list<const QWidget *>{sidebar, name, kind, refresh, update, terminal, folder, more}) {
        if (!part->isHidden())
            available -= part->sizeHint().expandedTo(part->minimumSize()).width() + gap;
    }
    const HeaderWidths widths = headerWidths(available, {branch->wantedWidth(), path->wantedWidth()});
    branch->setFixedWidth(qMax(BranchButton::leastWidth(), widths.branch));
    path->setFixedWidth(widths.path);
}

} // namespace kestor

#include "ui/tabs/changes_tab.h"

#include "ui/list/filtered_list.h"
#include "ui/list/row_list_view.h"
#include "ui/preview/detail_pane.h"
#include "ui/tabs/change_detail.h"
#include "ui/tabs/change_row_menu.h"
#include "ui/tabs/changes_column.h"
#include "ui/tabs/commit_panel.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>

namespace kestor {

ChangesTab::ChangesTab(AppState &shownState, QWidget *parent)
    : ListTab(shownState, parent), column(new ChangesColumn(rows)), rowActions(new QActionGroup(this)),
      revertPath(newRowAction(tr("Revert This Path..."),
                              [](AppState &state, const QString &path) { return state.revertPath(path); })),
      blamePath(newRowAction(tr("Blame Path..."),
                             [](AppState &state, const QString &path) { return state.actions.showBlame(path); })),
      listProperties(
          newRowAction(tr("List Properties..."),
                       [](AppState &state, const QString &path) { return state.actions.listProperties(path); })),
      revertAll(
          newRowAction(tr("Revert All..."), [](AppState &state, const QString &) { return state.revertAllPaths(); })) {
    rowActions->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
    auto *shown = new DetailPane;
    detail = new ChangeDetail(app, *shown, this);
    setParts(column, &column->filteredList(), shown);
    setDetailPane(shown);
    connectColumn();
    observeState();
}

QList<QWidget *> ChangesTab::focusPanes() const {
    return {&column->list(), diffPane(), &column->commitPanel()};
}

void ChangesTab::focusMessage() {
    column->commitPanel().setFocus(Qt::ShortcutFocusReason);
}

int ChangesTab::panelHeight() const {
    return column->panelHeight();
}

void ChangesTab::setPanelHeight(int height) {
    column->setPanelHeight(height);
}

bool ChangesTab::isDetailUpToDate() const {
    return detail->isUpToDate();
}

void ChangesTab::connectColumn() {
    RowListView &list = column->list();
    connect(column, &ChangesColumn::ticksRequested, this, &ChangesTab::setTicks);
    connect(&column->commitPanel(), &CommitPanel::messageEdited, this,
            [this](const QString &text) { app.commitMessage = text; });
    connect(&column->commitPanel(), &CommitPanel::commitRequested, this, [this] { app.commitSelected(); });
    connect(&list, &RowListView::rowChosen, this, &ChangesTab::chooseRow);
    connect(&list, &RowListView::rowMenuRequested, this, &ChangesTab::openRowMenu);
}

QAction *ChangesTab::newRowAction(const QString &text, QCoro::Task<> (*operation)(AppState &, const QString &path)) {
    QAction *action = rowActions->addAction(text);
    connect(action, &QAction::triggered, this, [this, operation] { operation(app, menuPath); });
    return action;
}

void ChangesTab::observeState() {
    observers.watch(app.changes, [this] {
        rows.publish(app.changes);
        detail->published();
    });
    observers.watch(app.changesLoaded, [this] { showEmptyText(); });
    observers.watch(app.selectedCommitPaths, [this] { showTicks(); });
    observers.watch(app.selectedChangeID, [this] {
        column->list().setCurrentId(app.selectedChangeID.value().value_or(QString()));
        detail->published();
    });
    observers.watch(app.changesLineSummary, [this] { column->setSummary(app.changesLineSummary); });
    observers.watch(app.diffText, [this] { detail->published(); });
    observers.watch(app.diffPreview, [this] { detail->published(); });
    observers.watch(app.diffPath, [this] { detail->published(); });
    observers.watch(app.commitMessage, [this] { column->commitPanel().setMessage(app.commitMessage); });
}

void ChangesTab::showTicks() {
    rows.setTicked(app.selectedCommitPaths);
    column->updateCounts();
}

void ChangesTab::setAccess(TickAccess access) {
    rowActions->setEnabled(access == TickAccess::editable);
    column->setTickAccess(access);
    loadEnded = access == TickAccess::editable;
    if (!app.changesLoaded)
        showEmptyText();
}

void ChangesTab::showEmptyText() {
    PlaceholderText text;
    if (app.changesLoaded)
        text = {tr("No Changes"), tr("The working copy matches its base."), {}};
    else if (loadEnded && app.selectedProject())
        text = {tr("Not Loaded"), tr("The changes could not be loaded."), {}};
    column->filteredList().setEmptyText(text);
}

void ChangesTab::chooseRow(const QString &id) {
    app.selectedChangeID = id;
    detail->loadSelected();
}

void ChangesTab::setTicks(const QList<int> &records, Tick wanted) {
    MarkedPaths chosen(rows.published());
    for (const int record : records)
        chosen.mark(record, true);
    app.setCommitSelection(chosen, wanted == Tick::ticked);
}

QList<QAction *> ChangesTab::resolutions(const QList<WorkingCopyItem> &items) const {
    switch (resolvable(items)) {
    case Resolvable::nothing:
        return {};
    case Resolvable::asIs:
        return {tickedActions.resolveUsingWorking};
    case Resolvable::byAnySide:
        break;
    }
    return QList{tickedActions.resolveUsingWorking} + tickedActions.resolveUsingOneSide;
}

QList<QList<QAction *>> ChangesTab::tickedGroups(RepositoryKind kind, const QList<WorkingCopyItem> &acted) const {
    if (kind == RepositoryKind::git)
        return {tickedActions.edits};
    return {tickedActions.edits, resolutions(acted), tickedActions.svnEdits};
}

QList<QAction *> ChangesTab::actionsOfRow(RepositoryKind kind, const QList<WorkingCopyItem> &acted) const {
    if (kind == RepositoryKind::git)
        return {revertPath, blamePath};
    const QList<QAction *> ofRow{revertPath, blamePath, listProperties};
    if (resolvable(acted) != Resolvable::nothing)
        return ofRow;
    return resolutions(itemsToResolve(acted, app.selectedChange())) + ofRow;
}

void ChangesTab::openRowMenu(int row, const QPoint &position) {
    const std::optional<Project> project = app.selectedProject();
    if (!project)
        return;
    menuPath = rows.idAt(row);
    const QList<WorkingCopyItem> acted = app.actionItems();
    const ChangeRowMenu content{menuPath,
                                project->path,
                                rows.tickCounts().ticked,
                                tickedGroups(project->kind, acted),
                                actionsOfRow(project->kind, acted),
                                revertAll};
    changeRowMenu(content, this)->popup(position);
}

} // namespace kestor

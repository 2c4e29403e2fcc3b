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

ChangesTab::ChangesTab(AppState &state, QWidget *parent)
    : ListTab(state, parent), column(new ChangesColumn(rows)), rowActions(new QActionGroup(this)),
      revertPath(rowActions->addAction(tr("Revert This Path..."))),
      revertAll(rowActions->addAction(tr("Revert All..."))) {
    auto *shown = new DetailPane;
    detail = new ChangeDetail(state, *shown, this);
    setParts(column, &column->filteredList(), shown);
    setDetailPane(shown);
    connectColumn();
    addRowActions();
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

void ChangesTab::addRowActions() {
    rowActions->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
    connect(revertPath, &QAction::triggered, this, [this] { app.revertPath(revertPath->data().toString()); });
    connect(revertAll, &QAction::triggered, this, [this] { app.revertAllPaths(); });
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
}

void ChangesTab::showEmptyText() {
    column->filteredList().setEmptyText(
        app.changesLoaded ? PlaceholderText{tr("No Changes"), tr("The working copy matches its base."), {}}
                          : PlaceholderText{});
}

void ChangesTab::chooseRow(const QString &id) {
    app.selectedChangeID = id;
    detail->loadSelected();
}

void ChangesTab::setTicks(const QList<int> &records, Tick wanted) {
    QList<WorkingCopyItem> items;
    for (const int record : records)
        items += rows.itemAt(record);
    app.setCommitSelection(items, wanted == Tick::ticked);
}

void ChangesTab::openRowMenu(int row, const QPoint &position) {
    const std::optional<Project> project = app.selectedProject();
    if (!project)
        return;
    const QString path = rows.idAt(row);
    revertPath->setData(path);
    const ChangeRowMenu content{path, project->path, rows.tickCounts().ticked, tickedActions, revertPath, revertAll};
    changeRowMenu(content, this)->popup(position);
}

} // namespace kestor

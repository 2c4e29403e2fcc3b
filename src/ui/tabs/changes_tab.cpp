#include "ui/tabs/changes_tab.h"

#include "ui/diff/diff_pane.h"
#include "ui/list/filter_field.h"
#include "ui/list/row_list_view.h"
#include "ui/look/line_splitter.h"
#include "ui/preview/detail_pane.h"
#include "ui/tabs/change_detail.h"
#include "ui/tabs/change_row_menu.h"
#include "ui/tabs/changes_column.h"
#include "ui/tabs/commit_panel.h"

#include <QAction>
#include <QActionGroup>
#include <QKeyEvent>
#include <QMenu>
#include <QVBoxLayout>

#include <chrono>

namespace kestor {

namespace {

constexpr int listWidth = 400;
constexpr int smallestDetail = 400;
/// Shorter work does not draw anything as held back.
constexpr std::chrono::milliseconds holdTime{400};

} // namespace

ChangesTab::ChangesTab(AppState &state, QWidget *parent)
    : QWidget(parent), app(state), column(new ChangesColumn(rows)), details(new DetailPane), pane(&details->diffPane()),
      parts(new LineSplitter(Qt::Horizontal, this)), detail(new ChangeDetail(state, *details, this)),
      rowActions(new QActionGroup(this)), revertPath(rowActions->addAction(tr("Revert This Path..."))) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(parts);
    parts->addWidget(column);
    parts->addWidget(details);
    parts->setStretchFactor(1, 1);
    details->setMinimumWidth(smallestDetail);
    parts->setSizes({listWidth, smallestDetail});
    holding.setSingleShot(true);
    holding.setInterval(holdTime);
    connect(&holding, &QTimer::timeout, this, [this] { column->setTickAccess(TickAccess::held); });
    connectColumn();
    addRowActions();
    addKeys();
    observeState();
}

QSplitter &ChangesTab::splitter() {
    return *parts;
}

QList<QWidget *> ChangesTab::focusPanes() const {
    return {&column->list(), pane, &column->commitPanel()};
}

void ChangesTab::focusFilter() {
    emit column->list().filterRequested();
}

void ChangesTab::focusMessage() {
    column->commitPanel().setFocus(Qt::ShortcutFocusReason);
}

QString ChangesTab::filterText() const {
    return column->filter().text();
}

bool ChangesTab::escape() {
    if (!column->filter().text().isEmpty()) {
        column->filter().clear();
        return true;
    }
    const bool elsewhere = !column->list().hasFocus();
    column->list().setFocus();
    return elsewhere;
}

void ChangesTab::keyPressEvent(QKeyEvent *event) {
    if (event->key() != Qt::Key_Escape || !escape())
        QWidget::keyPressEvent(event);
}

void ChangesTab::connectColumn() {
    RowListView &list = column->list();
    connect(column, &ChangesColumn::ticksRequested, this, &ChangesTab::setTicks);
    connect(&column->commitPanel(), &CommitPanel::messageEdited, this,
            [this](const QString &text) { app.commitMessage = text; });
    connect(&column->commitPanel(), &CommitPanel::commitRequested, this, [this] { app.commitSelected(); });
    connect(&column->filter(), &QLineEdit::textChanged, this, [this](const QString &text) {
        if (shownProject)
            filterTexts.insert(*shownProject, text);
    });
    connect(&list, &RowListView::rowChosen, this, &ChangesTab::chooseRow);
    connect(&list, &RowListView::rowMenuRequested, this, &ChangesTab::openRowMenu);
    connect(&list, &RowListView::detailRequested, pane, &DiffPane::takeFocus);
    connect(pane, &DiffPane::leaveRequested, &list, qOverload<>(&QWidget::setFocus));
    connect(pane, &DiffPane::pastLastHunk, this, [this] { chooseBeside(CaretDirection::ahead); });
    connect(pane, &DiffPane::beforeFirstHunk, this, [this] { chooseBeside(CaretDirection::back); });
}

void ChangesTab::addRowActions() {
    rowActions->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
    connect(revertPath, &QAction::triggered, this, [this] { app.revertPath(revertPath->data().toString()); });
    connect(rowActions->addAction(tr("Revert All...")), &QAction::triggered, this, [this] { app.revertAllPaths(); });
}

void ChangesTab::addKeys() {
    addKeys({Qt::Key_F7, Qt::ALT | Qt::Key_Down}, &ChangesTab::stepHunk, CaretDirection::ahead);
    addKeys({Qt::SHIFT | Qt::Key_F7, Qt::ALT | Qt::Key_Up}, &ChangesTab::stepHunk, CaretDirection::back);
    addKeys({Qt::Key_F8}, &ChangesTab::stepFile, CaretDirection::ahead);
    addKeys({Qt::SHIFT | Qt::Key_F8}, &ChangesTab::stepFile, CaretDirection::back);
}

void ChangesTab::addKeys(const QList<QKeySequence> &keys, void (ChangesTab::*step)(CaretDirection),
                         CaretDirection direction) {
    auto *action = new QAction(this);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [this, step, direction] { (this->*step)(direction); });
    addAction(action);
}

void ChangesTab::observeState() {
    watch(app.selectedProjectID, [this] { showProject(); });
    watch(app.changes, [this] { showChanges(); });
    watch(app.changesLoaded, [this] { showEmptyText(); });
    watch(app.selectedCommitPaths, [this] { showTicks(); });
    watch(app.selectedChangeID, [this] {
        column->list().setCurrentId(app.selectedChangeID.value().value_or(QString()));
        detail->published();
    });
    watch(app.changesLineSummary, [this] { column->setSummary(app.changesLineSummary); });
    watch(app.diffText, [this] { detail->published(); });
    watch(app.diffPreview, [this] { detail->published(); });
    watch(app.diffPath, [this] { detail->published(); });
    watch(app.commitMessage, [this] { column->commitPanel().setMessage(app.commitMessage); });
    watch(app.busyMessage, [this] { showBusy(); });
}

void ChangesTab::showProject() {
    if (shownProject == app.selectedProjectID.value())
        return;
    shownProject = app.selectedProjectID;
    column->filter().setText(shownProject ? filterTexts.value(*shownProject) : QString());
}

void ChangesTab::showChanges() {
    rows.publish(app.changes);
    column->updateCounts();
    detail->published();
}

void ChangesTab::showTicks() {
    rows.setTicked(app.selectedCommitPaths);
    column->updateCounts();
}

void ChangesTab::showBusy() {
    const bool busy = app.busyMessage.value().has_value();
    if (busy == wasBusy)
        return;
    wasBusy = busy;
    rowActions->setEnabled(!busy);
    column->setTickAccess(busy ? TickAccess::readOnly : TickAccess::editable);
    if (busy)
        holding.start();
    else
        holding.stop();
}

void ChangesTab::showEmptyText() {
    column->setEmptyText(app.changesLoaded
                             ? PlaceholderText{tr("No Changes"), tr("The working copy matches its base."), {}}
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
    const ChangeRowMenu content{path, project->path, rows.tickCounts().ticked, tickedActions, rowActions->actions()};
    changeRowMenu(content, this)->popup(position);
}

void ChangesTab::stepHunk(CaretDirection direction) {
    if (pane->stepHunk(direction) == StepResult::outside)
        chooseBeside(direction);
}

void ChangesTab::stepFile(CaretDirection direction) {
    if (pane->stepFile(direction) == StepResult::outside)
        chooseBeside(direction);
}

/// Waits for the diff of one row before it goes on to the next, so that a repeated key skips none.
void ChangesTab::chooseBeside(CaretDirection direction) {
    if (detail->isUpToDate())
        column->list().chooseBeside(static_cast<int>(direction));
}

} // namespace kestor

#include "ui/tabs/list_tab.h"

#include "ui/list/filter_field.h"
#include "ui/list/filtered_list.h"
#include "ui/list/row_list_view.h"
#include "ui/preview/detail_pane.h"

#include <QAction>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace kestor {

ListTab::ListTab(AppState &state, QWidget *parent) : TabPage(parent), app(state) {
    addKeys();
}

void ListTab::setParts(QWidget *column, FilteredList *filtered, QWidget *detail) {
    filteredList = filtered;
    setColumns(column, detail);
    addList(filtered->list());
    connect(&filtered->filter(), &QLineEdit::textChanged, this, [this](const QString &text) {
        if (shownProject)
            filterTexts.insert(*shownProject, text);
    });
    observers.watch(app.selectedProjectID, [this] { showProject(); });
    busyAccess.emplace(app, [this](TickAccess access) { setAccess(access); });
}

void ListTab::addList(RowListView &list) {
    lists.append(&list);
    if (lastList == nullptr)
        lastList = &list;
    connect(&list, &RowListView::focused, this, [this, shown = &list] { lastList = shown; });
    connect(&list, &RowListView::detailRequested, this, [this] {
        if (pane)
            pane->takeFocus();
    });
    connect(&list, &RowListView::rowChosen, this, [this] {
        if (pane && !walking)
            pane->setNextBeginning(DiffBeginning::firstHunk);
    });
}

void ListTab::setDetailPane(DetailPane *shownPane) {
    details = shownPane;
    pane = &details->diffPane();
    observers.watch(app.customLanguageRules, [this] { pane->setLanguageRules(app.customLanguageRules); });
    connect(pane, &DiffPane::leaveRequested, this, &ListTab::focusLastList);
    connect(pane, &DiffPane::hunksEnded, this, [this](CaretDirection direction) { leaveRow(Walk::hunks, direction); });
}

void ListTab::focusFilter() {
    filteredList->focusFilter();
}

QString ListTab::filterText() const {
    return filteredList->filter().text();
}

bool ListTab::escape() {
    if (!filterText().isEmpty()) {
        filteredList->filter().clear();
        return true;
    }
    const bool elsewhere = std::ranges::none_of(lists, &QWidget::hasFocus);
    if (elsewhere)
        focusLastList();
    return elsewhere;
}

void ListTab::focusLastList() {
    (lastList->isVisible() ? lastList : lists.first())->setFocus();
}

void ListTab::keyPressEvent(QKeyEvent *event) {
    if (event->key() != Qt::Key_Escape || !escape())
        QWidget::keyPressEvent(event);
}

void ListTab::addKeys() {
    addKeys({Qt::Key_F7, Qt::ALT | Qt::Key_Down}, Walk::hunks, CaretDirection::ahead);
    addKeys({Qt::SHIFT | Qt::Key_F7, Qt::ALT | Qt::Key_Up}, Walk::hunks, CaretDirection::back);
    addKeys({Qt::Key_F8}, Walk::files, CaretDirection::ahead);
    addKeys({Qt::SHIFT | Qt::Key_F8}, Walk::files, CaretDirection::back);
}

void ListTab::addKeys(const QList<QKeySequence> &keys, Walk walk, CaretDirection direction) {
    auto *action = new QAction(this);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [this, walk, direction] { walkOn(walk, direction); });
    addAction(action);
}

void ListTab::walkOn(Walk walk, CaretDirection direction) {
    StepResult result = StepResult::outside;
    if (pane)
        result = walk == Walk::hunks ? pane->stepHunk(direction) : pane->stepFile(direction);
    if (result == StepResult::outside)
        leaveRow(walk, direction);
}

/// By hunks it waits for the diff of one row before it goes on to the next, so that a repeated key skips none.
void ListTab::leaveRow(Walk walk, CaretDirection direction) {
    if (walk == Walk::hunks && !isDetailUpToDate())
        return;
    const QScopedValueRollback choosing(walking, true);
    const bool backByHunks = walk == Walk::hunks && direction == CaretDirection::back;
    if (chooseBeside(walk, direction) && pane)
        pane->setNextBeginning(backByHunks ? DiffBeginning::lastHunk : DiffBeginning::firstHunk);
}

bool ListTab::chooseBeside(Walk, CaretDirection direction) {
    return filteredList->list().chooseBeside(static_cast<int>(direction));
}

void ListTab::showProject() {
    if (shownProject == app.selectedProjectID.value())
        return;
    shownProject = app.selectedProjectID;
    filteredList->filter().setText(shownProject ? filterTexts.value(*shownProject) : QString());
}

} // namespace kestor

#include "ui/tabs/history_tab.h"

#include "ui/list/filtered_list.h"
#include "ui/list/row_list_view.h"
#include "ui/look/line_splitter.h"
#include "ui/preview/detail_pane.h"
#include "ui/tabs/revision_diff.h"
#include "ui/tabs/revision_head.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

namespace kestor {

namespace {

/// The width of the window from which the lists stand side by side.
constexpr int wideWindow = 1600;

} // namespace

HistoryTab::HistoryTab(AppState &state, const HistoryActions &offered, QWidget *parent)
    : ListTab(state, parent), actions(offered), column(new HistoryColumn(files, revisions)), detail(new RevisionDiff),
      copyPath(new QAction(tr("Copy Path"), this)), stackedWidth(standardListWidth) {
    setParts(column, &column->filteredList(), detail);
    setDetailPane(&detail->pane());
    addList(column->revisionList());
    connect(&column->revisionList(), &RowListView::filterRequested, this, &HistoryTab::focusFilter);
    addHeadActions();
    connect(this, &ListTab::listWidthChosen, this, [this](int width) { stackedWidth = width; });
    connect(&splitter(), &QSplitter::splitterMoved, this, [this] {
        if (column->columns() == HistoryColumns::sideBySide)
            column->keepSizes();
    });
    connect(copyPath, &QAction::triggered, this,
            [this] { QGuiApplication::clipboard()->setText(app.selectedHistoryPath.value().value_or(QString())); });
    connect(&column->fileList(), &RowListView::rowChosen, this, &HistoryTab::chooseFile);
    connect(&column->revisionList(), &RowListView::rowChosen, this, &HistoryTab::chooseRevision);
    for (RowListView *list : {&column->fileList(), &column->revisionList()})
        connect(list, &RowListView::rowMenuRequested, this,
                [this](int, const QPoint &position) { openRowMenu(position); });
    observeState();
    showDetail();
}

void HistoryTab::addHeadActions() {
    RevisionHead &head = detail->head();
    head.addButton(tr("Rollback..."), actions.rollback);
    head.addButton(tr("Export File..."), actions.exportFile);
    head.setMenuActions({actions.pullFile, actions.diffAgainst, actions.blame, actions.createZip});
}

void HistoryTab::observeState() {
    observers.watch(app.fileHistoryItems, [this] { showFiles(); });
    observers.watch(app.logEntries, [this] { showEmptyText(); });
    observers.watch(app.historyLoaded, [this] {
        showEmptyText();
        showRevisions();
    });
    observers.watch(app.selectedHistoryPath, [this] {
        column->fileList().setCurrentId(app.selectedHistoryPath.value().value_or(QString()));
        showRevisions();
    });
    observers.watch(app.selectedRevision, [this] {
        column->revisionList().setCurrentId(revisions.idOf(app.selectedRevision));
        showing.start();
    });
    observers.watch(app.historyLineSummary, [this] { column->setSummary(app.historyLineSummary); });
    observers.watch(app.historyDiffText, [this] { showing.start(); });
    observers.watch(app.historyDiffPreview, [this] { showing.start(); });
    observers.watch(app.historyDiffID, [this] { showing.start(); });
}

QList<QWidget *> HistoryTab::focusPanes() const {
    return {&column->fileList(), &column->revisionList(), diffPane()};
}

void HistoryTab::setListWidth(int width) {
    stackedWidth = width;
    if (column->columns() == HistoryColumns::stacked)
        ListTab::setListWidth(width);
}

void HistoryTab::resizeEvent(QResizeEvent *event) {
    ListTab::resizeEvent(event);
    fitColumns();
}

void HistoryTab::fitColumns() {
    const HistoryColumns wanted = window()->width() < wideWindow ? HistoryColumns::stacked : HistoryColumns::sideBySide;
    if (wanted == column->columns())
        return;
    const bool stacked = wanted == HistoryColumns::stacked;
    column->setColumns(wanted);
    ListTab::setListWidth(stacked ? stackedWidth : column->sideBySideWidth());
}

void HistoryTab::setAccess(TickAccess access) {
    detail->head().setAccess(access);
}

void HistoryTab::showFiles() {
    files.publish(app.fileHistoryItems);
    showRevisions();
}

void HistoryTab::showRevisions() {
    const std::optional<FileHistoryItem> file = app.selectedFileHistoryItem();
    revisions.publish(file ? file->revisions : FileHistoryRevisions());
    const ListExtent extent = app.historyLoaded ? ListExtent::whole : ListExtent::part;
    column->filteredList().setExtent(extent);
    column->setFile(file ? file->path : QString(), extent);
    showing.start();
}

void HistoryTab::showEmptyText() {
    PlaceholderText text;
    if (app.historyLoaded && app.logEntries.value().isEmpty())
        text = {tr("No Revisions"), tr("The log of this project is empty."), {}};
    else if (app.historyLoaded)
        text = {tr("No Files"), tr("No revision of this project names a file."), {}};
    column->filteredList().setEmptyText(text);
}

std::optional<FileRevisionID> HistoryTab::selected() const {
    const std::optional<FileHistoryRevision> revision = app.selectedFileHistoryRevision();
    return revision ? std::optional(FileRevisionID{*app.selectedHistoryPath.value(), revision->revision})
                    : std::nullopt;
}

/// The old diff stays until the new one is there.
void HistoryTab::showDetail() {
    const std::optional<FileHistoryRevision> revision = app.selectedFileHistoryRevision();
    if (!revision) {
        shown = std::nullopt;
        return detail->showNothing(tr("(select a file and a revision)"));
    }
    detail->head().setRevision(revisionText(*revision));
    detail->head().show();
    const QString path = *app.selectedHistoryPath.value();
    const WorkingCopyItem item{.path = path, .kind = statusKindOfAction(revision->action)};
    const DiffSubject subject{path, item, revision->displayRevision()};
    if (app.historyDiffID.value() == selected()) {
        shown = app.historyDiffID;
        detail->pane().showFile(subject, app.historyDiffText, app.historyDiffPreview);
    } else if (!shown) {
        detail->pane().showWaiting(subject);
    }
}

void HistoryTab::chooseFile(const QString &path) {
    app.selectedHistoryPath = path;
    app.selectedHistoryPathChanged();
    RowListView &list = column->revisionList();
    list.scrollToTop();
    list.scrollTo(list.currentIndex());
}

void HistoryTab::chooseRevision(const QString &id) {
    app.selectedRevision = revisions.revisionOf(id);
    app.selectedHistoryRevisionChanged();
}

/// Hunks lead through the revisions of a file and on to the next file, so that one key walks through everything.
bool HistoryTab::chooseBeside(Walk walk, CaretDirection direction) {
    const int step = static_cast<int>(direction);
    return (walk == Walk::hunks && column->revisionList().chooseBeside(step)) || column->fileList().chooseBeside(step);
}

void HistoryTab::openRowMenu(const QPoint &position) {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions({actions.pullFile, actions.diffAgainst, actions.blame, actions.createZip});
    menu->addSeparator();
    menu->addActions({actions.rollback, actions.exportFile});
    menu->addSeparator();
    menu->addActions(detail->head().copyActions());
    menu->addAction(copyPath);
    menu->popup(position);
}

} // namespace kestor

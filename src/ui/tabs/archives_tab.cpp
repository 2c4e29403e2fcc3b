#include "ui/tabs/archives_tab.h"

#include "controller/archive_names.h"
#include "ui/list/filtered_list.h"
#include "ui/list/revision_header.h"
#include "ui/list/row_list_view.h"
#include "ui/look/derived_font.h"
#include "ui/look/metrics.h"
#include "ui/look/tone_label.h"
#include "ui/tabs/archive_detail.h"
#include "ui/tabs/revision_count.h"
#include "ui/tabs/revision_head.h"

#include <QAction>
#include <QLocale>
#include <QMenu>

namespace kestor {

ArchivesTab::ArchivesTab(AppState &state, QAction *createZipAction, QWidget *parent)
    : ListTab(state, parent), column(new FilteredList(rows, tr("Filter revisions"), tr("Revisions"))),
      header(new RevisionHeader(column->list())), count(new ToneLabel(QString(), Tone::muted)),
      detail(new ArchiveDetail(createZipAction)), createZip(createZipAction) {
    setDerivedFont(*count, smallFont);
    column->addAfterFilter(count);
    column->addHeader(header);
    setParts(column, column, detail);
    ListTab::setListWidth(defaultListWidth);
    connect(&column->list(), &RowListView::rowChosen, this,
            [this](const QString &id) { app.selectedArchiveEntryID = rows.revisionOf(id); });
    connect(&column->list(), &RowListView::rowMenuRequested, this,
            [this](int, const QPoint &position) { openRowMenu(position); });
    connect(&detail->pathList(), &RowListView::filterRequested, this, &ArchivesTab::focusFilter);
    connect(&column->list(), &RowListView::detailRequested, &detail->pathList(), qOverload<>(&QWidget::setFocus));
    observeState();
    showDetail();
}

void ArchivesTab::observeState() {
    observers.watch(app.projects, [this] { showKind(); });
    observers.watch(app.selectedProjectID, [this] { showKind(); });
    observers.watch(app.archiveEntries, [this] { showEntries(); });
    observers.watch(app.archivesLoaded, [this] { showEmptyText(); });
    observers.watch(app.selectedArchiveEntryID, [this] {
        column->list().setCurrentId(rows.idOf(app.selectedArchiveEntryID));
        showing.start();
    });
}

QList<QWidget *> ArchivesTab::focusPanes() const {
    return {&column->list(), &detail->pathList()};
}

void ArchivesTab::setAccess(TickAccess access) {
    detail->setAccess(access);
}

void ArchivesTab::showEntries() {
    rows.publish(app.archiveEntries);
    showKind();
    showing.start();
}

/// Git projects speak of commits.
void ArchivesTab::showKind() {
    const std::optional<Project> project = app.selectedProject();
    const bool isGit = project && project->kind == RepositoryKind::git;
    header->setRevisionTitle(isGit ? tr("Commit") : tr("Revision"));
    const int entries = rows.recordCount();
    count->setText(isGit ? commitCountText(entries, locale()) : revisionCountText(entries, locale()));
    count->setVisible(entries > 0);
    showing.start();
}

void ArchivesTab::showEmptyText() {
    const PlaceholderText none{tr("No Revisions"), tr("The log of this project is empty."), {}};
    column->setEmptyText(app.archivesLoaded ? none : PlaceholderText());
}

void ArchivesTab::showDetail() {
    const std::optional<Project> project = app.selectedProject();
    const std::optional<LogEntry> entry = app.selectedArchiveEntry();
    if (project && entry)
        detail->showEntry(*entry, archiveRootName(*project, *entry));
    else
        detail->showNothing();
}

void ArchivesTab::openRowMenu(const QPoint &position) {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(createZip);
    menu->addSeparator();
    menu->addActions(detail->head().copyActions());
    menu->popup(position);
}

} // namespace kestor

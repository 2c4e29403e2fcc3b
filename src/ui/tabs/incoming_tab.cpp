#include "ui/tabs/incoming_tab.h"

#include "ui/list/filtered_list.h"
#include "ui/list/row_list_view.h"
#include "ui/look/icons.h"
#include "ui/preview/detail_pane.h"
#include "ui/tabs/copy_path_menu.h"
#include "ui/tabs/revision_diff.h"
#include "ui/tabs/revision_head.h"

#include <QAction>
#include <QMenu>

#include <algorithm>

namespace kestor {

namespace {

/// What a preview is of, where it is that of one file of the revision; else the revision itself.
DiffSubject subjectOf(const LogEntry &entry, const DiffPreview &preview) {
    DiffSubject subject{.revision = entry.displayRevision()};
    const auto isOfPreview = [&preview](const SVNPathChange &change) {
        return change.path.endsWith(u'/' + preview.path);
    };
    const auto found = std::ranges::find_if(entry.paths, isOfPreview);
    if (preview.kind == DiffPreviewKind::empty || found == entry.paths.end())
        return subject;
    subject.path = preview.path;
    subject.item = WorkingCopyItem{.path = preview.path, .kind = statusKindOfAction(found->action)};
    return subject;
}

} // namespace

IncomingTab::IncomingTab(AppState &state, QAction *update, QWidget *parent)
    : ListTab(state, parent), column(new IncomingColumn(revisions, outdated)), detail(new RevisionDiff),
      updateProject(update), refresh(new QAction(tr("Refresh Incoming Changes"), this)) {
    setParts(column, &column->filteredList(), detail);
    setDetailPane(&detail->pane());
    connect(refresh, &QAction::triggered, this, [this] { app.incoming.refreshIncoming(); });
    connect(&column->filteredList(), &FilteredList::emptyActionRequested, updateProject, &QAction::trigger);
    connect(&column->revisionList(), &RowListView::rowChosen, this, &IncomingTab::chooseRevision);
    connect(&column->revisionList(), &RowListView::rowMenuRequested, this,
            [this](int, const QPoint &position) { openRowMenu(position); });
    addCopyPathMenu(column->outdatedList(), outdated);
    connect(&column->outdatedList(), &RowListView::filterRequested, this, &IncomingTab::focusFilter);
    observeState();
    showDetail();
}

void IncomingTab::observeState() {
    observers.watch(app.projects, [this] { showEmptyText(); });
    observers.watch(app.selectedProjectID, [this] { showEmptyText(); });
    observers.watch(app.incomingBaseRevision, [this] { showRange(); });
    observers.watch(app.incomingHeadRevision, [this] { showRange(); });
    observers.watch(app.incomingLoaded, [this] { showEmptyText(); });
    observers.watch(app.incomingOutdatedItems, [this] {
        outdated.publish(app.incomingOutdatedItems);
        column->fit();
    });
    observers.watch(app.incomingEntries, [this] { showEntries(); });
    observers.watch(app.selectedIncomingRevision, [this] {
        column->revisionList().setCurrentId(revisions.idOf(app.selectedIncomingRevision));
        showing.start();
    });
    observers.watch(app.incomingLineSummary, [this] { column->setSummary(app.incomingLineSummary); });
    observers.watch(app.incomingDiffText, [this] { showing.start(); });
    observers.watch(app.incomingDiffPreview, [this] { showing.start(); });
    observers.watch(app.incomingDiffRevision, [this] { showing.start(); });
}

QList<QWidget *> IncomingTab::focusPanes() const {
    return {&column->revisionList(), &column->outdatedList(), diffPane()};
}

void IncomingTab::setAccess(TickAccess access) {
    refresh->setEnabled(access == TickAccess::editable);
    detail->head().setAccess(access);
    column->filteredList().setEmptyActionHeld(access == TickAccess::held);
}

void IncomingTab::showEntries() {
    revisions.publish(app.incomingEntries);
    column->fit();
    showing.start();
}

void IncomingTab::showRange() {
    column->setRange(app.incoming.incomingRangeDescription());
    showEmptyText();
}

void IncomingTab::showEmptyText() {
    const std::optional<Project> project = app.selectedProject();
    PlaceholderText text;
    if (project && project->kind == RepositoryKind::git)
        text = {tr("SVN Incoming Only"), tr("Pull brings the commits of a Git project."), tr("Pull"),
                icon(Icon::update)};
    else if (app.incomingLoaded)
        text = {tr("No Incoming Changes"), app.incoming.incomingRangeDescription().value_or(QString()), {}};
    column->filteredList().setEmptyText(text);
}

/// The old diff stays until the new one is there.
void IncomingTab::showDetail() {
    const std::optional<LogEntry> entry = app.incoming.selectedIncomingLogEntry();
    if (!entry) {
        shown = std::nullopt;
        return detail->showNothing(tr("(select an incoming revision)"));
    }
    detail->head().setRevision(revisionText(*entry));
    detail->head().show();
    if (app.incomingDiffRevision.value() == entry->revision)
        showDiff(*entry);
    else if (!shown)
        detail->pane().showWaiting({.revision = entry->displayRevision()});
}

void IncomingTab::showDiff(const LogEntry &entry) {
    shown = entry.revision;
    detail->pane().showFile(subjectOf(entry, app.incomingDiffPreview), app.incomingDiffText, app.incomingDiffPreview);
}

void IncomingTab::chooseRevision(const QString &id) {
    app.selectedIncomingRevision = revisions.revisionOf(id);
    app.incoming.selectedIncomingRevisionChanged();
}

void IncomingTab::openRowMenu(const QPoint &position) {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions({updateProject, refresh});
    menu->addSeparator();
    menu->addActions(detail->head().copyActions());
    menu->popup(position);
}

} // namespace kestor

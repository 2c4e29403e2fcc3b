#include "controller/app_state.h"
#include "controller/combined_output.h"
#include "controller/commit_selection.h"
#include "controller/git_info.h"
#include "controller/git_status.h"
#include "controller/status_rows.h"
#include "controller/status_run.h"
#include "controller/tool_text.h"
#include "parsers/svn_xml_parsers.h"
#include "tools/arguments.h"

#include <QCoroFuture>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QCoro::Task<> nothing() {
    co_return;
}

/// Rows that equal those shown are the same list, so that no second one is kept and nothing is compared again.
LoadedChanges loadedChanges(StatusRows rows, const WorkingCopyItems &shown, const TickDecisions &decisions) {
    if (rows.items == shown)
        rows.items = shown;
    const TickDecisions remaining = remainingDecisions(rows.items, decisions);
    return {rows, ticksFor(rows.items, remaining), remaining};
}

} // namespace

QCoro::Task<> AppState::tabChanged() {
    const WorkflowTab tab = selectedTab;
    // A silent server shall not get the same request with each look at the tab.
    const auto lacks = [this](const QList<LogEntry> &entries, QStringView loading) {
        return entries.isEmpty() && !busy.isLoading(loading);
    };
    if (tab == WorkflowTab::history && (historyNeedsReload() || lacks(logEntries, loadingHistory)))
        return loadHistory();
    if (tab == WorkflowTab::archives && (archivesNeedsReload() || lacks(archiveEntries, loadingArchives)))
        return loadArchives();
    if (tab == WorkflowTab::incoming && (incoming.incomingNeedsReload() || lacks(incomingEntries, loadingIncoming)))
        return incoming.loadIncoming();
    if (tab == WorkflowTab::configuration)
        return languageShares.load();
    return nothing();
}

QCoro::Task<> AppState::refreshAll() {
    return refresh(RunPurpose::userCommand);
}

QCoro::Task<> AppState::refreshStatus() {
    return loadStatus(RunPurpose::userCommand);
}

QCoro::Task<> AppState::refresh(RunPurpose purpose) {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = selectedProject();
    if (!project)
        co_return;
    // A tab that is shown meanwhile loads what it lacks by itself.
    const WorkflowTab tab = selectedTab;
    // The probe nearly always finds what is known already, so the loads do not wait for it.
    const QCoro::Task<> status = loadStatus(purpose);
    const QCoro::Task<bool> verifying = refreshSelectedProjectKind();
    const QCoro::Task<> shares = languageShares.reload();
    const bool isLoadable = co_await verifying;
    const std::optional<Project> verified = selectedProject();
    if (!verified || verified->id != project->id)
        co_return; // its own refresh is under way
    if (!isLoadable)
        co_return co_await status;
    if (verified->kind != project->kind)
        co_return co_await reloadEverything(purpose, tab);
    if (verified->kind == RepositoryKind::git)
        co_await loadInfo(); // svn's came with the probe
    incoming.dropWhatArrived();
    co_await loadLogOf(tab);
    co_await status;
    co_await shares;
}

QCoro::Task<> AppState::reloadEverything(RunPurpose purpose, WorkflowTab tab) {
    const RunningOperations::Scope running(operations);
    // The log does not wait for the diffs of the Changes tab. Its busy message is the later one and stays.
    const QCoro::Task<> status = loadStatus(purpose);
    const QCoro::Task<> shares = languageShares.reload();
    co_await loadInfo();
    incoming.dropWhatArrived();
    co_await loadLogOf(tab);
    co_await status;
    co_await shares;
}

QCoro::Task<> AppState::loadLogOf(WorkflowTab tab) {
    switch (tab) {
    case WorkflowTab::history:
        return loadHistory();
    case WorkflowTab::archives:
        return loadArchives();
    case WorkflowTab::incoming:
        return incoming.loadIncoming();
    case WorkflowTab::changes:
    case WorkflowTab::configuration:
        break;
    }
    return nothing();
}

QCoro::Task<bool> AppState::refreshSelectedProjectKind() {
    const std::optional<Project> project = selectedProject();
    if (!project)
        co_return true;
    try {
        co_return co_await verifyKind(*project);
    } catch (const SVNClientError &) {
        // The status load that follows tells the user what is wrong with the folder.
    }
    co_return true;
}

QCoro::Task<bool> AppState::verifyKind(Project project) {
    bool asStored = true;
    try {
        if (project.kind == RepositoryKind::svn) {
            co_await updateInfo(); // svn asks for nothing else
        } else {
            const std::shared_ptr<Tool> git = toolFor(RepositoryKind::git);
            const DetectedRepository own = co_await probeGit(git, project.path, RunPurpose::backgroundRead);
            asStored = isSameFolder(own.root, project.path);
        }
    } catch (const SVNClientError &) {
        asStored = false;
    }
    if (asStored)
        co_return true;
    const DetectedRepository found = co_await detectRepository(project.path);
    // A folder inside a repository is not that repository.
    const bool isItsRoot = isSameFolder(found.root, project.path);
    if (isItsRoot && found.kind != project.kind)
        storeProjectKind(project.id, found.kind);
    const bool isForeign = !isItsRoot && found.kind == RepositoryKind::git && project.kind == RepositoryKind::git;
    if (isForeign && selectedProjectID.value() == project.id)
        withdrawRowsOf(project, found.root);
    co_return !isForeign;
}

void AppState::withdrawRowsOf(const Project &project, const QString &surroundingRoot) {
    const QString message = project.path + u" is no Git repository of its own any more. It lies inside the one at "_s +
                            surroundingRoot + u", of which nothing is shown or changed here."_s;
    resetProjectState();
    const std::optional<AppAlert> standing = alert;
    if (!standing || standing->message != message)
        showAlert(u"Status Failed"_s, message);
}

QCoro::Task<> AppState::loadStatus(RunPurpose purpose) {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = selectedProject();
    if (!project)
        co_return;
    const quint64 generation = ++statusGeneration;
    const std::function<bool()> isRelevant = [this, project, generation] {
        const std::optional<Project> shown = selectedProject();
        return isCurrent(*project, generation, statusGeneration) && shown && shown->kind == project->kind;
    };
    co_await reporting(u"Status Failed"_s, loadChanges(*project, generation, purpose), isRelevant);
    const std::optional<Project> now = selectedProject();
    // It failed because the folder is of the other kind by now.
    if (isCurrent(*project, generation, statusGeneration) && now && now->kind != project->kind)
        co_await reloadEverything(purpose, selectedTab);
}

QCoro::Task<> AppState::loadChanges(Project project, quint64 generation, RunPurpose purpose) {
    {
        const BusyScope loading(busy, u"Loading changes"_s, BusyKind::load);
        const std::shared_ptr<Tool> tool = toolFor(project.kind);
        const WorkingCopyItems shown = changes;
        const auto readAhead = [project, shown] {
            return foldersReadAhead(project.kind, project.path, shown);
        };
        const QFuture<std::shared_ptr<FolderReader>> folders = QtConcurrent::run(&workers, readAhead);
        SVNCommandResult result;
        std::optional<SVNClientError> failure;
        try {
            result = co_await runStatus(tool, project, purpose);
            if (deniesWorkingCopy(result, project.path))
                failure = SVNClientError::commandFailed(result);
        } catch (const SVNClientError &error) {
            failure = error;
        }
        if (failure) {
            co_await refreshSelectedProjectKind(); // it may be of the other kind by now, and the failure no news
            throw *failure;
        }
        const TickDecisions before = tickDecisions;
        const auto read = [kind = project.kind, output = result.stdoutData, folders, shown, before] {
            return loadedChanges(statusRows(kind, output, *folders.result()), shown, before);
        };
        const LoadedChanges loaded = co_await QtConcurrent::run(&workers, read);
        if (!isCurrent(project, generation, statusGeneration))
            co_return;
        if (!loaded.rows.isWhole)
            throw SVNClientError::launchFailed(u"What svn printed could not be read to its end."_s);
        publishChanges(loaded, before);
    }
    const QCoro::Task<> summary = loadLineSummary(project, generation);
    co_await loadDiffForSelectedChange();
    co_await summary;
}

void AppState::publishChanges(const LoadedChanges &loaded, const TickDecisions &decisionsBefore) {
    const WorkingCopyItems &items = loaded.rows.items;
    // Whatever was ticked while the worker counted is not in its answer.
    const bool asBefore = tickDecisions == decisionsBefore;
    tickDecisions = asBefore ? loaded.decisions : remainingDecisions(items, tickDecisions);
    const MarkedPaths ticks = asBefore ? loaded.ticked : ticksFor(items, tickDecisions);
    release(std::pair(changes.value(), selectedCommitPaths.value()));
    gitFacts = loaded.rows.git;
    changes = items;
    changesLoaded = true;
    selectedCommitPaths = ticks;
    if (!selectedChange())
        selectedChangeID = items.isEmpty() ? std::nullopt : std::optional(items.first().path);
}

QCoro::Task<> AppState::loadInfo() {
    try {
        co_await updateInfo();
    } catch (const SVNClientError &) {
        // The header then shows what it knew; the status load reports what is wrong with the folder.
    }
}

QCoro::Task<> AppState::updateInfo() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = selectedProject();
    if (!project)
        co_return;
    const quint64 generation = ++infoGeneration;
    RepositoryInfo info;
    const std::shared_ptr<Tool> tool = toolFor(project->kind);
    if (project->kind == RepositoryKind::git) {
        info = co_await gitRepositoryInfo(tool, project->path);
    } else {
        const SVNCommandResult result =
            co_await tool->run(args(u"info", u"--xml"), project->path, CheckStatus::yes, RunPurpose::backgroundRead);
        info = parsedOutput<InfoParser>(result.stdoutData);
    }
    if (!isCurrent(*project, generation, infoGeneration))
        co_return;
    repositoryInfo = info;
    co_await regroupHistory();
}

QCoro::Task<> AppState::showRepositoryInfo() {
    const std::optional<Project> project = requiredProject();
    return project ? reporting(u"Info Failed"_s, showInfo(*project)) : nothing();
}

QCoro::Task<> AppState::showInfo(Project project) {
    {
        const BusyScope loading(busy, u"Info"_s);
        co_await updateInfo();
    }
    if (selectedProjectID.value() != project.id)
        co_return;
    const QString text = repositoryInfoText(repositoryInfo);
    commandOutput = combinedOutput(u"Info"_s, QString(), 0, QStringList(text), QStringList());
}

} // namespace kestor

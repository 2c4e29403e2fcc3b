#include "controller/app_state.h"
#include "controller/early_history.h"
#include "controller/file_grouping.h"

#include <QCoroFuture>
#include <QScopeGuard>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

QCoro::Task<> AppState::refreshHistory() {
    const RunningOperations::Scope running(operations);
    const bool isLoadable = co_await refreshSelectedProjectKind();
    if (!isLoadable)
        co_return;
    co_await loadInfo();
    co_await loadHistory();
}

QCoro::Task<> AppState::loadHistory() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = selectedProject();
    if (!project)
        co_return;
    const quint64 generation = ++historyGeneration;
    // Diffs that a silent server holds hold up none of those that follow a refresh.
    historyDiffTurn = newHistoryDiffTurn();
    const std::function<bool()> isRelevant = [this, project, generation] {
        return isCurrent(*project, generation, historyGeneration);
    };
    co_await reporting(u"History Failed"_s, loadHistoryOf(*project, generation), isRelevant);
}

QCoro::Task<> AppState::loadHistoryOf(Project project, quint64 generation) {
    const quint64 changesBefore = repositoryChanges;
    {
        const BusyScope loading(busy, loadingHistory.toString(), BusyKind::load);
        // Without it the paths of a working copy of a branch could not be told apart.
        if (repositoryInfo.value() == RepositoryInfo())
            co_await loadInfo();
        const auto log = std::make_shared<ArrivingLog>(project.kind);
        const auto freed = qScopeGuard([this, &log] { release(log); });
        const QByteArray output = co_await printedHistoryOf(project, generation, log);
        const LoadedHistory before{logEntries, fileHistoryItems};
        const QString relativeURL = repositoryInfo.value().relativeURL.value_or(QString());
        const QList<QList<LogEntry>> known{before.entries, archiveEntries};
        const auto read = [log, output, relativeURL, before, known] {
            return loadedHistory(loadedLog(*log, output, known), relativeURL, before);
        };
        const LoadedHistory loaded = co_await QtConcurrent::run(&workers, read);
        release(output);
        if (!isCurrent(project, generation, historyGeneration)) {
            release(loaded);
            co_return;
        }
        publishHistory(loaded);
        historyLoadedAt = changesBefore;
    }
    const QCoro::Task<> summary = loadHistorySummary(project);
    co_await regroupHistory();
    co_await loadDiffForSelectedHistoryRevision();
    co_await summary;
}

/// A whole list that is shown already stays as it is until the new one is complete.
QCoro::Task<QByteArray> AppState::printedHistoryOf(Project project, quint64 generation,
                                                   std::shared_ptr<ArrivingLog> log) {
    const EarlyHistory::Show show = [this, project, generation](const LoadedHistory &soFar) {
        if (historyLoaded || !isCurrent(project, generation, historyGeneration))
            return false;
        if (soFar.entries.size() <= logEntries.value().size())
            return true;
        const HistorySelection before{selectedHistoryPath, selectedRevision};
        showHistory(soFar);
        if (HistorySelection{selectedHistoryPath, selectedRevision} != before)
            loadDiffForSelectedHistoryRevision();
        return true;
    };
    const QString relativeURL = repositoryInfo.value().relativeURL.value_or(QString());
    EarlyHistory early(workers, log, relativeURL, historyLoaded ? EarlyHistory::Show() : show);
    const OutputReader reader = [&early](QByteArrayView printed) {
        early.add(printed);
    };
    try {
        co_return co_await printedLog(toolFor(project.kind), project, reader);
    } catch (const SVNClientError &) {
        // Nobody shall take what was shown of it for the whole.
        const bool isPart = !historyLoaded && !logEntries.value().isEmpty();
        if (isPart && isCurrent(project, generation, historyGeneration))
            clearHistory();
        throw;
    }
}

void AppState::publishHistory(const LoadedHistory &loaded) {
    showHistory(loaded);
    historyLoaded = true;
}

void AppState::showHistory(const LoadedHistory &loaded) {
    const LoadedHistory before{logEntries, fileHistoryItems};
    const std::optional<qint64> revision = revisionAfterLoad(selectedRevision, before.entries, loaded.entries);
    const HistorySelection selection = selectionAfterLoad(loaded, {selectedHistoryPath, revision});
    if (!loaded.entries.isSharedWith(before.entries))
        historySummaryAsked = false;
    fileHistoryItems = loaded.files;
    logEntries = loaded.entries;
    selectedHistoryPath = selection.path;
    selectedRevision = selection.revision;
    release(before);
}

QCoro::Task<> AppState::regroupHistory() {
    const QString relativeURL = repositoryInfo.value().relativeURL.value_or(QString());
    const FileHistory before = fileHistoryItems;
    if (!historyLoaded || before.relativeURL() == relativeURL)
        co_return;
    const QList<LogEntry> entries = logEntries;
    const auto group = [entries, relativeURL] {
        return groupedByFile(entries, relativeURL);
    };
    const FileHistory files = co_await QtConcurrent::run(&workers, group);
    if (fileHistoryItems.value() != before)
        co_return;
    publishHistory({entries, files});
    co_await loadDiffForSelectedHistoryRevision();
}

void AppState::resetHistory() {
    ++historyGeneration;
    historyDiffTurn = newHistoryDiffTurn();
    historyLoadedAt = repositoryChanges;
    clearHistory();
}

void AppState::clearHistory() {
    ++historyDiffGeneration;
    const LoadedHistory before{logEntries, fileHistoryItems};
    logEntries = QList<LogEntry>();
    fileHistoryItems = FileHistory();
    historyLoaded = false;
    historySummaryAsked = false;
    selectedHistoryPath = std::nullopt;
    selectedRevision = std::nullopt;
    historyLineSummary = LineChangeSummary();
    publishHistoryDiff(std::nullopt, LoadedDiff());
    release(before);
}

std::optional<FileHistoryItem> AppState::selectedFileHistoryItem() const {
    const FileHistory &files = fileHistoryItems.value();
    const std::optional<QString> &path = selectedHistoryPath.value();
    const std::optional<qsizetype> index = path ? files.indexOf(*path) : std::nullopt;
    return index ? std::optional(files[*index]) : std::nullopt;
}

std::optional<FileHistoryRevision> AppState::selectedFileHistoryRevision() const {
    const std::optional<FileHistoryItem> item = selectedFileHistoryItem();
    const std::optional<qint64> &revision = selectedRevision.value();
    const std::optional<qsizetype> index = item && revision ? item->revisions.indexOf(*revision) : std::nullopt;
    return index ? std::optional(item->revisions[*index]) : std::nullopt;
}

QString AppState::selectedRevisionToken() const {
    const std::optional<Project> project = selectedProject();
    if (project && project->kind == RepositoryKind::git) {
        const std::optional<FileHistoryRevision> revision = selectedFileHistoryRevision();
        return revision ? revision->commitHash.value_or(QString()) : QString();
    }
    const bool isIncoming = selectedTab.value() == WorkflowTab::incoming;
    const std::optional<qint64> revision = isIncoming ? selectedIncomingRevision : selectedRevision;
    return revision ? QString::number(*revision) : QString();
}

} // namespace kestor

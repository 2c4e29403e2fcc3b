#include "controller/app_state.h"
#include "controller/file_grouping.h"

#include <QCoroFuture>
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
        const BusyScope loading(busy, u"Loading history"_s, BusyKind::load);
        // Without it the paths of a working copy of a branch could not be told apart.
        if (repositoryInfo.value() == RepositoryInfo())
            co_await loadInfo();
        const QByteArray output = co_await printedLog(toolFor(project.kind), project);
        const LoadedHistory before{logEntries, fileHistoryItems};
        const QString relativeURL = repositoryInfo.value().relativeURL.value_or(QString());
        const QList<QList<LogEntry>> known{before.entries, archiveEntries};
        const auto read = [kind = project.kind, output, relativeURL, before, known] {
            return loadedHistory(loadedLog(kind, output, known), relativeURL, before);
        };
        const LoadedHistory loaded = co_await QtConcurrent::run(&workers, read);
        if (!isCurrent(project, generation, historyGeneration))
            co_return;
        publishHistory(loaded);
        release(output);
        historyLoadedAt = changesBefore;
    }
    const QCoro::Task<> summary = loadHistorySummary(project);
    co_await regroupHistory();
    co_await loadDiffForSelectedHistoryRevision();
    co_await summary;
}

void AppState::publishHistory(const LoadedHistory &loaded) {
    const LoadedHistory before{logEntries, fileHistoryItems};
    const std::optional<qint64> revision = revisionAfterLoad(selectedRevision, before.entries, loaded.entries);
    const HistorySelection selection = selectionAfterLoad(loaded, {selectedHistoryPath, revision});
    if (!loaded.entries.isSharedWith(before.entries))
        historySummaryAsked = false;
    fileHistoryItems = loaded.files;
    logEntries = loaded.entries;
    historyLoaded = true;
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
    ++historyDiffGeneration;
    historyDiffTurn = newHistoryDiffTurn();
    const LoadedHistory before{logEntries, fileHistoryItems};
    logEntries = QList<LogEntry>();
    fileHistoryItems = FileHistory();
    historyLoaded = false;
    historyLoadedAt = repositoryChanges;
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

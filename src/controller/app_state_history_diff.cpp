#include "controller/app_state.h"
#include "controller/file_versions.h"
#include "controller/history_diff.h"
#include "controller/media_preview.h"
#include "controller/printed_diff.h"

#include <QCoroFuture>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QCoro::Task<FileContents> gitContents(std::shared_ptr<Tool> git, Project project, QString path, GitVersions versions) {
    FileContents contents;
    if (versions.before)
        contents.before = co_await gitContent(git, project, *versions.before, path);
    if (versions.after)
        contents.after = co_await gitContent(git, project, *versions.after, path);
    co_return contents;
}

} // namespace

QCoro::Task<> AppState::selectedHistoryPathChanged() {
    const std::optional<FileHistoryItem> item = selectedFileHistoryItem();
    selectedRevision = revisionToSelect(item ? item->revisions : FileHistoryRevisions(), selectedRevision);
    return selectedHistoryRevisionChanged();
}

QCoro::Task<> AppState::selectedHistoryRevisionChanged() {
    return loadDiffForSelectedHistoryRevision();
}

/// Two, so that one slow diff holds up no other. Those of a project that was left do not count.
std::shared_ptr<LatestTurn> AppState::newHistoryDiffTurn() {
    return std::make_shared<LatestTurn>(2);
}

QCoro::Task<> AppState::loadDiffForSelectedHistoryRevision() {
    const RunningOperations::Scope operation(operations);
    const quint64 generation = ++historyDiffGeneration;
    const std::shared_ptr<LatestTurn> turns = historyDiffTurn;
    co_await turns->wait();
    if (generation != historyDiffGeneration)
        co_return;
    const LatestTurn::Scope turn(*turns);
    const std::optional<Project> project = selectedProject();
    const std::optional<QString> path = selectedHistoryPath;
    const std::optional<FileHistoryRevision> revision = selectedFileHistoryRevision();
    LoadedDiff diff;
    std::optional<FileRevisionID> id;
    if (project && revision) {
        id = FileRevisionID{*path, revision->revision};
        diff = co_await historyDiffOf(*project, *path, *revision);
    }
    if (generation == historyDiffGeneration)
        publishHistoryDiff(id, diff);
}

QCoro::Task<LoadedDiff> AppState::historyDiffOf(Project project, QString path, FileHistoryRevision revision) {
    const QCoro::Task<std::optional<DiffPreview>> rich = richDiffPreviewForHistoryRevision(project, path, revision);
    LoadedDiff diff = co_await printedHistoryDiffOf(project, path, revision);
    const std::optional<DiffPreview> media = co_await rich;
    // Both tools call every picture binary, so a notice gives way to what can be shown.
    if (media)
        diff.preview = *media;
    co_return diff;
}

QCoro::Task<LoadedDiff> AppState::printedHistoryDiffOf(Project project, QString path, FileHistoryRevision revision) {
    const QStringList arguments = historyDiffArguments(project, repositoryInfo, path, revision);
    return printedDiff(diffRun(toolFor(project.kind), project, arguments), path, &workers);
}

QCoro::Task<std::optional<DiffPreview>> AppState::richDiffPreviewForHistoryRevision(Project project, QString path,
                                                                                    FileHistoryRevision revision) {
    const RunningOperations::Scope running(operations);
    const auto look = [path] {
        return mediaPreviewKind(path);
    };
    const std::optional<DiffPreviewKind> kind = co_await QtConcurrent::run(&workers, look);
    if (!kind)
        co_return std::nullopt;
    FileContents contents;
    try {
        if (project.kind == RepositoryKind::git)
            contents = co_await gitContents(tools.git, project, path, gitVersions(revision));
        else
            contents = co_await svnContents(tools.svn, project, svnVersions(repositoryInfo, path, revision));
    } catch (const SVNClientError &) {
        // The diff needs the same tool and tells what is wrong with it.
    }
    co_return mediaPreview(*kind, path, contents.before, contents.after);
}

void AppState::publishHistoryDiff(const std::optional<FileRevisionID> &id, const LoadedDiff &diff) {
    const LoadedDiff old{historyDiffText, historyDiffPreview};
    historyDiffPreview = diff.preview;
    historyDiffText = diff.text;
    historyDiffID = id;
    release(old);
}

QCoro::Task<> AppState::loadHistorySummary(Project project) {
    const RunningOperations::Scope running(operations);
    if (historySummaryAsked)
        co_return;
    historySummaryAsked = true;
    const QList<LogEntry> entries = logEntries;
    LineChangeSummary summary;
    try {
        if (!entries.isEmpty())
            summary = co_await historySummaryOf(project, entries);
    } catch (const SVNClientError &) {
        // The zero summary says that nothing is known; the next load asks again.
        historySummaryAsked = false;
    }
    if (selectedProjectID.value() == project.id && logEntries.value().isSharedWith(entries))
        historyLineSummary = summary;
}

QCoro::Task<LineChangeSummary> AppState::historySummaryOf(Project project, QList<LogEntry> entries) {
    const QStringList arguments = historySummaryArguments(project.kind, repositoryInfo, entries);
    const std::shared_ptr<Tool> tool = toolFor(project.kind);
    const SVNCommandResult result =
        co_await tool->run(arguments, project.path, CheckStatus::yes, RunPurpose::backgroundRead);
    const auto count = [kind = project.kind, output = result.stdoutData] {
        return historyLineChanges(kind, output);
    };
    co_return co_await QtConcurrent::run(&workers, count);
}

} // namespace kestor

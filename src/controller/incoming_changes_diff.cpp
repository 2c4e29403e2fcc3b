#include "controller/file_versions.h"
#include "controller/history_diff.h"
#include "controller/incoming_changes.h"
#include "controller/media_preview.h"
#include "controller/printed_diff.h"

#include <QCoroFuture>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

QCoro::Task<> IncomingChanges::selectedIncomingRevisionChanged() {
    return loadDiffForSelectedIncomingRevision();
}

QCoro::Task<> IncomingChanges::loadDiffForSelectedIncomingRevision() {
    const RunningOperations::Scope operation(workspace.operations);
    const quint64 number = ++diffGeneration;
    const std::shared_ptr<LatestTurn> turns = diffTurn;
    co_await turns->wait();
    if (number != diffGeneration)
        co_return;
    const LatestTurn::Scope turn(*turns);
    const std::optional<Project> project = workspace.selectedProject();
    const std::optional<LogEntry> entry = selectedIncomingLogEntry();
    LoadedDiff diff;
    std::optional<qint64> revision;
    if (project && entry) {
        revision = entry->revision;
        diff = co_await diffOf(*project, *entry);
    }
    if (number == diffGeneration)
        publishDiff(revision, diff);
}

QCoro::Task<LoadedDiff> IncomingChanges::diffOf(Project project, LogEntry entry) {
    const QCoro::Task<std::optional<DiffPreview>> rich = richDiffPreviewForIncomingRevision(project, entry);
    const std::optional<ChangedFile> file = onlyChangedFile(entry, info);
    const QString path = file ? file->path : u"."_s;
    const DiffRun run = diffRun(workspace.toolFor(project.kind), project, incomingDiffArguments(entry.revision));
    LoadedDiff diff = co_await printedDiff(run, path, &workspace.workers);
    const std::optional<DiffPreview> media = co_await rich;
    // svn calls every picture binary, so a notice gives way to what can be shown.
    if (media)
        diff.preview = *media;
    co_return diff;
}

QCoro::Task<std::optional<DiffPreview>> IncomingChanges::richDiffPreviewForIncomingRevision(Project project,
                                                                                            LogEntry entry) {
    const RunningOperations::Scope running(workspace.operations);
    const RepositoryInfo known = info;
    const std::optional<ChangedFile> file = onlyChangedFile(entry, known);
    if (!file)
        co_return std::nullopt;
    const auto look = [path = file->path] {
        return mediaPreviewKind(path);
    };
    const std::optional<DiffPreviewKind> kind = co_await QtConcurrent::run(&workspace.workers, look);
    if (!kind)
        co_return std::nullopt;
    FileContents contents;
    try {
        const SvnVersions versions = svnVersions(known, file->path, file->revision);
        contents = co_await svnContents(workspace.toolFor(project.kind), project, versions);
    } catch (const SVNClientError &) {
        // The diff needs the same tool and tells what is wrong with it.
    }
    co_return mediaPreview(*kind, file->path, contents.before, contents.after);
}

void IncomingChanges::publishDiff(std::optional<qint64> revision, const LoadedDiff &diff) {
    const LoadedDiff old{workspace.incomingDiffText, workspace.incomingDiffPreview};
    workspace.incomingDiffPreview = diff.preview;
    workspace.incomingDiffText = diff.text;
    workspace.incomingDiffRevision = revision;
    workspace.release(old);
}

} // namespace kestor

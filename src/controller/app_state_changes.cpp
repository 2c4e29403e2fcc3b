#include "controller/app_state.h"
#include "controller/commit_selection.h"
#include "controller/file_versions.h"
#include "controller/git_reference.h"
#include "controller/media_preview.h"
#include "controller/printed_diff.h"
#include "controller/working_diff.h"
#include "controller/working_preview.h"
#include "parsers/line_changes.h"
#include "tools/arguments.h"

#include <QCoroFuture>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// Prints the diff of one working change, or of all, whatever the tool's exit status.
QCoro::Task<SVNCommandResult> runWorkingDiff(std::shared_ptr<Tool> tool, Project project, std::optional<QString> path,
                                             OutputReader reader) {
    const QStringList arguments = workingDiffArguments(project.kind, path, u"HEAD"_s);
    const SVNCommandResult result =
        co_await tool->runReading(arguments, project.path, RunPurpose::backgroundRead, reader);
    if (project.kind == RepositoryKind::svn || result.status == 0)
        co_return result;
    const QString emptyTree = co_await emptyTreeBeforeFirstCommit(tool, project.path);
    if (emptyTree.isEmpty())
        co_return result;
    const QStringList fromEmptyTree = workingDiffArguments(project.kind, path, emptyTree);
    co_return co_await tool->runReading(fromEmptyTree, project.path, RunPurpose::backgroundRead, reader);
}

} // namespace

QCoro::Task<> AppState::selectedChangeChanged() {
    return loadDiffForSelectedChange();
}

void AppState::setCommitSelection(const MarkedPaths &rows, bool selected) {
    const WorkingCopyItems &items = changes.value();
    const MarkedPaths chosen = rows.in(items);
    MarkedPaths ticks = selectedCommitPaths.value().in(items);
    tickDecisions = remainingDecisions(items, tickDecisions);
    for (qsizetype row = 0; row < items.size(); ++row) {
        const WorkingCopyItem status = items.statusAt(row);
        if (!chosen.isMarked(row) || !isCommittable(status))
            continue;
        ticks.mark(row, selected);
        tickDecisions.decide(row, status, selected);
    }
    selectedCommitPaths = ticks;
}

QCoro::Task<> AppState::loadDiffForSelectedChange() {
    const RunningOperations::Scope running(operations);
    const quint64 generation = ++diffGeneration;
    const std::optional<Project> project = selectedProject();
    const std::optional<WorkingCopyItem> item = selectedChange();
    LoadedDiff diff;
    if (project && item)
        diff = co_await diffOf(*project, *item);
    if (generation == diffGeneration)
        publishDiff(item ? std::optional(item->path) : std::nullopt, diff);
}

void AppState::publishDiff(const std::optional<QString> &path, const LoadedDiff &diff) {
    const LoadedDiff old{diffText, diffPreview};
    diffPreview = diff.preview;
    diffText = diff.text;
    diffPath = path;
    release(old);
}

QCoro::Task<LoadedDiff> AppState::diffOf(Project project, WorkingCopyItem item) {
    const QCoro::Task<LoadedDiff> printing = printedDiffOf(project, item);
    const std::optional<DiffPreview> media = co_await richDiffPreviewForWorkingChange(project, item);
    LoadedDiff diff = co_await printing;
    // Both tools call every picture binary, so a notice gives way to what can be shown.
    if (media)
        diff.preview = *media;
    co_return diff;
}

QCoro::Task<LoadedDiff> AppState::printedDiffOf(Project project, WorkingCopyItem item) {
    if (item.kind == SVNStatusKind::unversioned) {
        const auto read = [path = item.path, root = project.path] {
            return unversionedDiff(path, root);
        };
        co_return co_await QtConcurrent::run(&workers, read);
    }
    const DiffRun run = [tool = toolFor(project.kind), project, path = item.path](OutputReader reader) {
        return runWorkingDiff(tool, project, path, std::move(reader));
    };
    co_return co_await printedDiff(run, item.path, &workers);
}

QCoro::Task<std::optional<DiffPreview>> AppState::richDiffPreviewForWorkingChange(Project project,
                                                                                  WorkingCopyItem item) {
    const RunningOperations::Scope running(operations);
    const PreviewSides sides = previewSides(item.kind);
    const QString oldPath = gitFacts.oldNames.value(item.path, item.path);
    const auto look = [root = project.path, path = item.path, sides] {
        return workingMedia(root, path, sides);
    };
    const WorkingMedia media = co_await QtConcurrent::run(&workers, look);
    if (!media.kind)
        co_return std::nullopt;
    if (media.size > largestPreviewedFile)
        co_return tooLargePreview(item.path, media.size);
    std::optional<QByteArray> base;
    try {
        if (sides != PreviewSides::newOnly)
            base = co_await baseContent(toolFor(project.kind), project, oldPath);
    } catch (const SVNClientError &) {
        // The diff needs the same tool and tells what is wrong with it.
    }
    co_return mediaPreview(*media.kind, item.path, base, media.data);
}

QCoro::Task<> AppState::loadLineSummary(Project project, quint64 generation) {
    const RunningOperations::Scope running(operations);
    LineChangeSummary summary;
    try {
        const SVNCommandResult result = co_await runWorkingDiff(toolFor(project.kind), project, std::nullopt, nullptr);
        const auto count = [output = result.stdoutData] {
            return diffLineChanges(output);
        };
        if (result.status == 0)
            summary = co_await QtConcurrent::run(&workers, count);
    } catch (const SVNClientError &) {
        // The zero summary says that nothing is known.
    }
    if (isCurrent(project, generation, statusGeneration))
        changesLineSummary = summary;
}

} // namespace kestor

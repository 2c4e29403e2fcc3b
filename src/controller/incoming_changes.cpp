#include "controller/incoming_changes.h"

#include "controller/log_loading.h"
#include "parsers/line_changes.h"
#include "tools/arguments.h"

#include <QCoroFuture>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// svn succeeds then and names no revision to compare with.
QString missingURLText(const RepositoryInfo &info) {
    return info.url.value_or(u"The URL of this working copy"_s) +
           u" does not exist in the repository any more. It was deleted or renamed there: switch the working copy to "
           "another URL."_s;
}

/// Whether the folder was deleted and made anew, so that its own history does not reach the revisions asked for.
bool isMadeAnew(const SVNClientError &failure) {
    const SVNCommandResult *const result = failure.failedResult();
    return result != nullptr && result->stderrData.contains("E195012");
}

/// Two, so that one slow run holds up no other. Those of a project that was left do not count.
std::shared_ptr<LatestTurn> newTurn() {
    return std::make_shared<LatestTurn>(2);
}

} // namespace

IncomingChanges::IncomingChanges(Workspace &shared) : workspace(shared), diffTurn(newTurn()), summaryTurn(newTurn()) {}

QCoro::Task<> IncomingChanges::refreshIncoming() {
    const RunningOperations::Scope running(workspace.operations);
    co_await workspace.refreshSelectedProjectKind();
    co_await workspace.loadInfo();
    co_await loadIncoming();
}

QCoro::Task<> IncomingChanges::loadIncoming() {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<Project> project = workspace.selectedProject();
    if (!project || project->kind == RepositoryKind::git) {
        clearIncoming();
        co_return;
    }
    const quint64 number = ++generation;
    // Diffs that a silent server holds hold up none of those that follow a refresh.
    diffTurn = newTurn();
    const std::function<bool()> isRelevant = [this, project, number] {
        return workspace.isCurrent(*project, number, generation);
    };
    co_await workspace.reporting(u"Incoming Failed"_s, load(*project, number), isRelevant);
}

QCoro::Task<> IncomingChanges::load(Project project, quint64 number) {
    const quint64 changesBefore = workspace.repositoryChanges;
    IncomingStatus loaded;
    {
        const BusyScope loading(workspace.busy, loadingIncoming.toString(), BusyKind::load);
        loaded = co_await loadedStatus(project);
        QList<LogEntry> entries;
        if (workspace.isCurrent(project, number, generation) && !loaded.range.isEmpty())
            entries = co_await loadedEntries(project, loaded);
        if (!workspace.isCurrent(project, number, generation))
            co_return;
        // All at once: after a failure everything is as it was.
        publish(loaded, entries);
        loadedAt = changesBefore;
    }
    const QCoro::Task<> summary = loadLineSummary(project, loaded);
    co_await loadDiffForSelectedIncomingRevision();
    co_await summary;
}

QCoro::Task<QByteArray> IncomingChanges::printed(Project project, QStringList arguments) {
    const RunningOperations::Scope running(workspace.operations);
    const std::shared_ptr<Tool> svn = workspace.toolFor(project.kind);
    const SVNCommandResult result =
        co_await svn->run(arguments, project.path, CheckStatus::yes, RunPurpose::backgroundRead);
    co_return result.stdoutData;
}

QCoro::Task<IncomingStatus> IncomingChanges::loadedStatus(Project project) {
    const QCoro::Task<QByteArray> infoRun = printed(project, args(u"info", u"--xml"));
    const QCoro::Task<QByteArray> statusRun = printed(project, args(u"status", u"--xml", u"-u"));
    const QByteArray printedInfo = co_await infoRun;
    const QByteArray printedStatus = co_await statusRun;
    const auto read = [printedInfo, printedStatus] {
        return incomingStatus(printedInfo, printedStatus);
    };
    const IncomingStatus status = co_await QtConcurrent::run(&workspace.workers, read);
    if (!status.range.head)
        throw SVNClientError::launchFailed(missingURLText(status.info));
    co_return status;
}

QCoro::Task<QByteArray> IncomingChanges::printedLog(Project project, IncomingStatus status) {
    std::optional<SVNClientError> failure;
    try {
        co_return co_await printed(project, incomingLogArguments(status.range));
    } catch (const SVNClientError &error) {
        failure = error;
    }
    const QStringList arguments = incomingLogArguments(status.info, status.range);
    if (!isMadeAnew(*failure) || arguments.isEmpty())
        throw *failure;
    co_return co_await printed(project, arguments);
}

QCoro::Task<QList<LogEntry>> IncomingChanges::loadedEntries(Project project, IncomingStatus status) {
    const QByteArray log = co_await printedLog(project, status);
    const QList<LogEntry> known = workspace.incomingEntries;
    const auto read = [log, range = status.range, known] {
        return incomingEntriesOf(log, range, known);
    };
    co_return co_await QtConcurrent::run(&workspace.workers, read);
}

void IncomingChanges::publish(const IncomingStatus &loaded, const QList<LogEntry> &entries) {
    const QList<LogEntry> before = workspace.incomingEntries;
    info = loaded.info;
    workspace.incomingBaseRevision = loaded.range.base;
    workspace.incomingHeadRevision = loaded.range.head;
    workspace.incomingOutdatedItems = loaded.outdatedItems;
    workspace.incomingEntries = entries;
    workspace.incomingLoaded = true;
    if (!entryWithRevision(entries, workspace.selectedIncomingRevision))
        workspace.selectedIncomingRevision = entries.isEmpty() ? std::nullopt : std::optional(entries.first().revision);
    workspace.release(before);
}

QCoro::Task<> IncomingChanges::loadLineSummary(Project project, IncomingStatus loaded) {
    const RunningOperations::Scope running(workspace.operations);
    const QStringList arguments =
        loaded.range.isEmpty() ? QStringList() : incomingSummaryArguments(loaded.info, loaded.range);
    setSummaryArguments(arguments);
    // What lies between two revisions never changes.
    if (summaryLoaded || arguments.isEmpty())
        co_return;
    const quint64 number = ++summaryGeneration;
    const std::shared_ptr<LatestTurn> turns = summaryTurn;
    co_await turns->wait();
    if (number != summaryGeneration || summaryLoaded)
        co_return;
    const LatestTurn::Scope turn(*turns);
    std::optional<LineChangeSummary> summary;
    try {
        summary = co_await lineSummaryForIncomingRange(project, arguments);
    } catch (const SVNClientError &) {
        // The zero summary says that nothing is known; the next load asks again.
    }
    if (!summary || summaryArguments != arguments)
        co_return;
    workspace.incomingLineSummary = *summary;
    summaryLoaded = true;
}

void IncomingChanges::setSummaryArguments(const QStringList &arguments) {
    if (arguments == summaryArguments)
        return;
    summaryArguments = arguments;
    summaryLoaded = false;
    workspace.incomingLineSummary = LineChangeSummary();
}

QCoro::Task<LineChangeSummary> IncomingChanges::lineSummaryForIncomingRange(Project project, QStringList arguments) {
    const QByteArray diff = co_await printed(project, arguments);
    const auto count = [diff] {
        return diffLineChanges(diff);
    };
    workspace.release(diff);
    co_return co_await QtConcurrent::run(&workspace.workers, count);
}

void IncomingChanges::clearIncoming() {
    ++generation;
    ++diffGeneration;
    ++summaryGeneration;
    diffTurn = newTurn();
    summaryTurn = newTurn();
    loadedAt = workspace.repositoryChanges;
    setSummaryArguments(QStringList());
    const QList<LogEntry> before = workspace.incomingEntries;
    info = RepositoryInfo();
    workspace.incomingBaseRevision = std::nullopt;
    workspace.incomingHeadRevision = std::nullopt;
    workspace.incomingOutdatedItems = QList<WorkingCopyItem>();
    workspace.incomingEntries = QList<LogEntry>();
    workspace.incomingLoaded = false;
    workspace.selectedIncomingRevision = std::nullopt;
    publishDiff(std::nullopt, LoadedDiff());
    workspace.release(before);
}

void IncomingChanges::dropWhatArrived() {
    const std::optional<qint64> head = workspace.incomingHeadRevision;
    const bool isShown = workspace.selectedTab.value() == WorkflowTab::incoming;
    // A folder that stood at the head before says nothing about what is in it.
    const bool hasArrived = workingRevision(info) < head && workingRevision(workspace.repositoryInfo) >= head;
    if (!isShown && !workspace.incomingEntries.value().isEmpty() && hasArrived)
        clearIncoming();
}

std::optional<LogEntry> IncomingChanges::selectedIncomingLogEntry() const {
    return entryWithRevision(workspace.incomingEntries, workspace.selectedIncomingRevision);
}

std::optional<QString> IncomingChanges::incomingRangeDescription() const {
    return rangeDescription({workspace.incomingBaseRevision, workspace.incomingHeadRevision});
}

} // namespace kestor

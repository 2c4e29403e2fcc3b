#pragma once

#include "controller/incoming_range.h"
#include "controller/latest_turn.h"
#include "controller/working_diff.h"
#include "controller/workspace.h"

#include <QByteArray>
#include <QCoroTask>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace kestor {

/// The operations on what an update of the selected Subversion project would bring. Git projects have nothing incoming:
/// nothing is fetched for them. Main thread only.
class IncomingChanges {
public:
    /// `shared` must outlive it.
    explicit IncomingChanges(Workspace &shared);
    Q_DISABLE_COPY_MOVE(IncomingChanges)

    /// Loads the range, `incomingEntries`, `incomingOutdatedItems` and the selection, then, with the lists shown
    /// already, the sum of lines and the diff of the selected revision. Asks the server.
    QCoro::Task<> loadIncoming();
    /// Verifies the project's kind and loads `repositoryInfo` and what is incoming.
    QCoro::Task<> refreshIncoming();
    /// Empties everything that is incoming.
    void clearIncoming();
    /// To be called when `repositoryInfo` was loaded: empties everything when the working copy has reached the head
    /// that was incoming, so that the number on the tab is true before the tab is shown again.
    void dropWhatArrived();
    /// To be called whenever the user selects another revision: loads its diff.
    QCoro::Task<> selectedIncomingRevisionChanged();

    /// The entry of `incomingEntries` whose revision is `selectedIncomingRevision`.
    std::optional<LogEntry> selectedIncomingLogEntry() const;
    /// "r10 to r15"; nothing while one of both is unknown.
    std::optional<QString> incomingRangeDescription() const;
    /// Whether a command may have changed what is incoming since it was loaded.
    bool incomingNeedsReload() const { return loadedAt != workspace.repositoryChanges; }

private:
    QCoro::Task<> load(Project project, quint64 number);
    /// Runs svn for the project. Throws SVNClientError.
    QCoro::Task<QByteArray> printed(Project project, QStringList arguments);
    /// Throws SVNClientError also when the working copy's URL is gone.
    QCoro::Task<IncomingStatus> loadedStatus(Project project);
    QCoro::Task<QByteArray> printedLog(Project project, IncomingStatus status);
    QCoro::Task<QList<LogEntry>> loadedEntries(Project project, IncomingStatus status);
    void publish(const IncomingStatus &loaded, const QList<LogEntry> &entries);

    QCoro::Task<> loadLineSummary(Project project, IncomingStatus loaded);
    /// Empties `incomingLineSummary` unless it is that of the same run.
    void setSummaryArguments(const QStringList &arguments);
    QCoro::Task<LineChangeSummary> lineSummaryForIncomingRange(Project project, QStringList arguments);

    // incoming_changes_diff.cpp
    QCoro::Task<> loadDiffForSelectedIncomingRevision();
    QCoro::Task<LoadedDiff> diffOf(Project project, LogEntry entry);
    QCoro::Task<std::optional<DiffPreview>> richDiffPreviewForIncomingRevision(Project project, LogEntry entry);
    void publishDiff(std::optional<qint64> revision, const LoadedDiff &diff);

    Workspace &workspace;
    RepositoryInfo info{};          ///< of the working copy that was loaded
    QStringList summaryArguments{}; ///< of the run that `incomingLineSummary` comes or will come from
    bool summaryLoaded = false;     ///< it comes from it
    quint64 generation = 0;
    quint64 diffGeneration = 0;
    quint64 summaryGeneration = 0;
    std::shared_ptr<LatestTurn> diffTurn;    ///< of the last load
    std::shared_ptr<LatestTurn> summaryTurn; ///< of the selected project
    quint64 loadedAt = 0;                    ///< `repositoryChanges` when the load that is shown began
};

} // namespace kestor

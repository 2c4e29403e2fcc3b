#pragma once

#include "controller/commit_plan.h"
#include "controller/git_branches.h"
#include "controller/incoming_changes.h"
#include "controller/language_rules.h"
#include "controller/language_shares.h"
#include "controller/latest_turn.h"
#include "controller/log_loading.h"
#include "controller/repository_detection.h"
#include "controller/repository_setup.h"
#include "controller/revert_plan.h"
#include "controller/status_rows.h"
#include "controller/svn_program.h"
#include "controller/working_copy_actions.h"
#include "controller/working_diff.h"
#include "controller/workspace.h"
#include "controller/written_file.h"
#include "model/project_store.h"
#include "tools/archive_zip_client.h"

#include <memory>
#include <optional>

namespace kestor {

/// The one controller behind the window: state, and the operations the window calls. An operation checks its own
/// preconditions and reports every failure as an alert; the tasks never throw, but for detectRepository. Ignoring a
/// task lets it run on. Main thread only.
class AppState final : public Workspace {
    Q_OBJECT

public:
    /// Loads projects and language rules and selects the first project. Runs no tool: call projectSelectionChanged when
    /// the window is up. `settings` and `user` must outlive the state.
    AppState(QSettings &settings, UserInteraction &user, Tools tools);
    /// Ends the tools that are still running and waits for the operations that wait for them.
    ~AppState() override;

    // Projects: app_state_projects.cpp
    QCoro::Task<> addExistingWorkingCopy();
    /// Adds dropped folders (absolute paths) one after another, each as addExistingWorkingCopy does after its panel.
    QCoro::Task<> addWorkingCopies(QStringList directories);
    /// Finds out what `folder` (absolute) belongs to, Subversion first. Throws SVNClientError when it is neither.
    QCoro::Task<DetectedRepository> detectRepository(QString folder);
    QCoro::Task<> addProject(QString folder, RepositoryKind kind) override;
    QCoro::Task<> removeSelectedProject();
    /// To be called whenever `selectedProjectID` changes: empties everything of the old project and loads the new one.
    QCoro::Task<> projectSelectionChanged();
    QCoro::Task<> openTerminal();
    QCoro::Task<> openFinder();
    /// Terminal and file manager.
    QCoro::Task<> openBoth();
    /// Asks for another URL of a working copy, for another branch of a Git project.
    QCoro::Task<> switchURLOrBranch();

    // Loading: app_state_loading.cpp
    /// To be called whenever `selectedTab` changes: loads what the tab lacks.
    QCoro::Task<> tabChanged();
    QCoro::Task<> refreshAll();
    /// Reloads only the Changes list.
    QCoro::Task<> refreshStatus();
    QCoro::Task<> loadInfo() override;
    /// Shows `repositoryInfo`, loaded afresh, in the output sheet.
    QCoro::Task<> showRepositoryInfo();

    // Changes: app_state_changes.cpp
    /// To be called whenever the user selects another change: loads its diff.
    QCoro::Task<> selectedChangeChanged();
    /// Ticks or unticks rows for the commit. Rows no commit can act on stay unticked.
    void setCommitSelection(const MarkedPaths &rows, bool selected);

    // Commit: app_state_commit.cpp
    /// Commits the ticked rows with `commitMessage`. When that fails, message, ticks and working copy stay as they
    /// were.
    QCoro::Task<> commitSelected();

    // Revert: app_state_revert.cpp
    /// Reverts the ticked rows, else the selected one, after a confirmation; unversioned ones leave the disk.
    QCoro::Task<> revertSelectedPaths();
    QCoro::Task<> revertAllPaths();
    /// Reverts the row at `path` alone.
    QCoro::Task<> revertPath(QString path);

    // Ignore: app_state_ignore.cpp
    /// Adds one rule for each ticked row, else for the selected one, to the project's ignore file.
    QCoro::Task<> ignoreSelectedPaths();
    /// Asks for a path and adds a rule that brings it back to the project's ignore file.
    QCoro::Task<> includeIgnoredPath();

    // History: app_state_history.cpp
    /// Loads `logEntries`, `fileHistoryItems` and the selection, then, with the list shown already, the sum of lines
    /// and the diff of the selected revision. A project's first load shows the log from its beginning while the tool
    /// prints it; `historyLoaded` says when it is whole.
    QCoro::Task<> loadHistory();
    /// Verifies the project's kind and loads `repositoryInfo` and the history.
    QCoro::Task<> refreshHistory();
    /// To be called whenever the user selects another file: selects one of its revisions and loads its diff.
    QCoro::Task<> selectedHistoryPathChanged();
    /// To be called whenever the user selects another revision: loads its diff.
    QCoro::Task<> selectedHistoryRevisionChanged();
    /// The file of `fileHistoryItems` whose path is `selectedHistoryPath`.
    std::optional<FileHistoryItem> selectedFileHistoryItem() const;
    /// The revision of that file whose number is `selectedRevision`.
    std::optional<FileHistoryRevision> selectedFileHistoryRevision() const;
    /// What names the selected revision in a command: a number, for Git the full hash; "" when there is none.
    QString selectedRevisionToken() const;

    // History commands: app_state_history_commands.cpp
    /// Takes the selected revision back in the working copy after a confirmation. Commits nothing.
    QCoro::Task<> rollbackSelectedRevision();
    QCoro::Task<> showDiffAgainstRevision();
    QCoro::Task<> pullFileAtRevision();
    QCoro::Task<> catTarget();
    QCoro::Task<> listTarget();
    /// Asks for a file and a revision and saves its content, byte by byte, where the user chooses.
    QCoro::Task<> exportFileAtRevision();

    // Archives: app_state_archives.cpp
    QCoro::Task<> loadArchives();
    /// Verifies the project's kind and loads `repositoryInfo` and the archives.
    QCoro::Task<> refreshArchives();
    /// The entry of `archiveEntries` whose revision is `selectedArchiveEntryID`.
    std::optional<LogEntry> selectedArchiveEntry() const;
    /// Writes the tree of the selected archive entry, on the History tab of the selected revision, to a zip file where
    /// the user chooses.
    QCoro::Task<> createArchiveZip();

    IncomingChanges incoming{*this};
    GitBranches branches{*this};
    RepositorySetup setup{*this};
    LanguageRules languageRules{*this};
    LanguageShares languageShares{*this};
    WorkingCopyActions actions{*this};
    SvnProgram svnProgram{*this};

private:
    /// The folder of the selected project; nothing after an alert when there is none or it is gone.
    std::optional<QString> selectedProjectDirectory();

    QCoro::Task<> registerDetected(QString directory, std::optional<QUuid> *id);
    /// Adds the folder to the list, or gives the project that has it the kind; its id. Changes no selection.
    QUuid registerProject(const QString &folder, RepositoryKind kind);
    void storeProjectKind(const QUuid &id, RepositoryKind kind);
    void saveProjects(const QList<Project> &list);
    void resetProjectState();
    QCoro::Task<> openTerminalIn(QString directory);
    QCoro::Task<> openFinderIn(QString directory);

    QCoro::Task<> refresh(RunPurpose purpose);
    /// loadInfo that throws.
    QCoro::Task<> updateInfo();
    QCoro::Task<> showInfo(Project project);
    QCoro::Task<bool> refreshSelectedProjectKind() override;
    QCoro::Task<bool> verifyKind(Project project);
    /// What is shown is that of the repository around the project, which nothing may act on.
    void withdrawRowsOf(const Project &project, const QString &surroundingRoot);
    QCoro::Task<> loadStatus(RunPurpose purpose);
    QCoro::Task<> loadChanges(Project project, quint64 generation, RunPurpose purpose);
    void publishChanges(const LoadedChanges &loaded, const TickDecisions &decisionsBefore);
    QCoro::Task<> loadLineSummary(Project project, quint64 generation);
    QCoro::Task<> loadDiffForSelectedChange();
    QCoro::Task<LoadedDiff> diffOf(Project project, WorkingCopyItem item);
    QCoro::Task<LoadedDiff> printedDiffOf(Project project, WorkingCopyItem item);
    QCoro::Task<std::optional<DiffPreview>> richDiffPreviewForWorkingChange(Project project, WorkingCopyItem item);
    void publishDiff(const std::optional<QString> &path, const LoadedDiff &diff);
    QCoro::Task<> commit(Project project, CommitRequest ticked);
    /// The request with what the disk says; throws when that forbids the commit.
    QCoro::Task<CommitRequest> lookedAt(Project project, CommitRequest ticked);
    QCoro::Task<SVNCommandResult> commitToSubversion(Project project, CommitRequest request);
    QCoro::Task<SVNCommandResult> commitToGit(Project project, CommitRequest request);
    QCoro::Task<> reloadAfterChange() override;
    /// Loads the changes, `repositoryInfo` and the log that `tab` shows.
    QCoro::Task<> reloadEverything(RunPurpose purpose, WorkflowTab tab);
    /// Loads the log that `tab` shows, if it shows one.
    QCoro::Task<> loadLogOf(WorkflowTab tab);
    bool historyNeedsReload() const { return historyLoadedAt != repositoryChanges; }
    bool archivesNeedsReload() const { return archivesLoadedAt != repositoryChanges; }
    QCoro::Task<> revert(QList<WorkingCopyItem> items, QString emptyMessage, RevertScope scope);
    QCoro::Task<> revertAfterConfirmation(Project project, QList<WorkingCopyItem> items, RevertScope scope);
    QCoro::Task<RevertPlan> revertPlan(Project project, QList<WorkingCopyItem> items);
    QCoro::Task<RevertPlan> planWithGit(Project project, QList<WorkingCopyItem> items);
    QCoro::Task<CommandOutput> runRevert(Project project, RevertPlan plan);
    void resetHistory();
    void clearHistory();
    void resetArchives();
    QCoro::Task<> loadHistoryOf(Project project, quint64 generation);
    /// What the log prints, read into `log` and shown from the beginning when nothing is shown yet.
    QCoro::Task<QByteArray> printedHistoryOf(Project project, quint64 generation, std::shared_ptr<ArrivingLog> log);
    void publishHistory(const LoadedHistory &loaded);
    void showHistory(const LoadedHistory &loaded);
    /// Groups the history anew when its paths are relative to another folder than `repositoryInfo` says.
    QCoro::Task<> regroupHistory();
    QCoro::Task<> loadHistorySummary(Project project);
    QCoro::Task<LineChangeSummary> historySummaryOf(Project project, QList<LogEntry> entries);
    QCoro::Task<> loadDiffForSelectedHistoryRevision();
    QCoro::Task<LoadedDiff> historyDiffOf(Project project, QString path, FileHistoryRevision revision);
    QCoro::Task<LoadedDiff> printedHistoryDiffOf(Project project, QString path, FileHistoryRevision revision);
    QCoro::Task<std::optional<DiffPreview>> richDiffPreviewForHistoryRevision(Project project, QString path,
                                                                              FileHistoryRevision revision);
    void publishHistoryDiff(const std::optional<FileRevisionID> &id, const LoadedDiff &diff);
    QCoro::Task<> exportFile(Project project, QStringList arguments, QString destination);
    QCoro::Task<> loadArchivesOf(Project project, quint64 generation);
    std::optional<LogEntry> entryToArchive() const;
    static std::shared_ptr<LatestTurn> newHistoryDiffTurn();
    void publishArchives(const QList<LogEntry> &entries);
    QCoro::Task<> writeArchive(Project project, LogEntry entry, QString chosenPath);
    /// Writes the zip to the place, then gives it its name.
    QCoro::Task<SVNCommandResult> writeArchiveBeside(Project project, LogEntry entry, FileBeside file,
                                                     QString destination);
    QCoro::Task<> exportTree(Project project, QString revision, QString tree);
    QCoro::Task<SVNCommandResult> archiveFromGit(Project project, LogEntry entry, QString path);
    QCoro::Task<SVNCommandResult> archiveFromSubversion(Project project, LogEntry entry, QString path);
    QCoro::Task<> addIgnoreLines(Project project, QStringList lines);
    ArchiveZipClient archiveZipClient{};
    ProjectStore projectStore;
    TickDecisions tickDecisions; ///< on rows of `changes`
    quint64 statusGeneration = 0;
    quint64 diffGeneration = 0;
    quint64 infoGeneration = 0;
    quint64 historyGeneration = 0;
    quint64 historyDiffGeneration = 0;
    std::shared_ptr<LatestTurn> historyDiffTurn = newHistoryDiffTurn(); ///< of the selected project
    quint64 archivesGeneration = 0;
    quint64 historyLoadedAt = 0; ///< `repositoryChanges` when the load that is shown began
    quint64 archivesLoadedAt = 0;
    bool historySummaryAsked = false; ///< for the entries that are shown
};

} // namespace kestor

#pragma once

#include "controller/app_properties.h"
#include "controller/busy_scope.h"
#include "controller/commit_plan.h"
#include "controller/latest_turn.h"
#include "controller/log_loading.h"
#include "controller/repository_detection.h"
#include "controller/revert_plan.h"
#include "controller/running_operations.h"
#include "controller/status_rows.h"
#include "controller/user_interaction.h"
#include "controller/working_diff.h"
#include "model/language_configuration_store.h"
#include "model/project_store.h"
#include "tools/archive_zip_client.h"
#include "tools/tool.h"

#include <QCoroTask>
#include <QHash>
#include <QObject>
#include <QSettings>
#include <QStringList>
#include <QThreadPool>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace kestor {

/// The command-line tools a controller works with.
struct Tools {
    std::shared_ptr<Tool> svn;
    std::shared_ptr<Tool> svnAdmin;
    std::shared_ptr<Tool> git;
};

/// The real tools, found through `settings`, which must outlive them.
Tools systemTools(QSettings &settings);

enum class RefreshAfter : std::uint8_t { no, yes };

/// Whether a command that printed nothing still shows its output sheet.
enum class ShowOutput : std::uint8_t { whenPrinted, always };

/// The one controller behind the window: state, and the operations the window calls. An operation checks its own
/// preconditions and reports every failure as an alert; the tasks never throw, but for detectRepository. Ignoring a
/// task lets it run on. Main thread only.
class AppState final : public QObject, public AppProperties {
    Q_OBJECT

public:
    /// Loads projects and language rules and selects the first project. Runs no tool: call projectSelectionChanged when
    /// the window is up. `settings` and `user` must outlive the state.
    AppState(QSettings &settings, UserInteraction &user, Tools tools);
    /// Ends the tools that are still running and waits for the operations that wait for them.
    ~AppState() override;

    /// The first project whose id is `selectedProjectID`.
    std::optional<Project> selectedProject() const;
    /// The first change whose path is `selectedChangeID`.
    std::optional<WorkingCopyItem> selectedChange() const;

    // Projects: app_state_projects.cpp
    QCoro::Task<> addExistingWorkingCopy();
    /// Adds dropped folders (absolute paths) one after another, each as addExistingWorkingCopy does after its panel.
    QCoro::Task<> addWorkingCopies(QStringList directories);
    /// Finds out what `folder` (absolute) belongs to, Subversion first. Throws SVNClientError when it is neither.
    QCoro::Task<DetectedRepository> detectRepository(QString folder);
    /// Registers and selects the folder; one that is registered already keeps its place and gets the kind.
    QCoro::Task<> addProject(QString folder, RepositoryKind kind);
    QCoro::Task<> removeSelectedProject();
    /// To be called whenever `selectedProjectID` changes: empties everything of the old project and loads the new one.
    QCoro::Task<> projectSelectionChanged();
    QCoro::Task<> openTerminal();
    QCoro::Task<> openFinder();
    /// Terminal and file manager.
    QCoro::Task<> openBoth();

    // Loading: app_state_loading.cpp
    /// To be called whenever `selectedTab` changes: loads what the tab lacks.
    QCoro::Task<> tabChanged();
    QCoro::Task<> refreshAll();
    /// Reloads only the Changes list.
    QCoro::Task<> refreshStatus();
    /// Loads `repositoryInfo` for the selected project. Silent: on failure it keeps its value.
    QCoro::Task<> loadInfo();
    /// Shows `repositoryInfo`, loaded afresh, in the output sheet.
    QCoro::Task<> showRepositoryInfo();

    // Changes: app_state_changes.cpp
    /// To be called whenever the user selects another change: loads its diff.
    QCoro::Task<> selectedChangeChanged();
    /// Ticks or unticks rows for the commit. Rows no commit can act on stay unticked.
    void setCommitSelection(const QList<WorkingCopyItem> &items, bool selected);

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
    /// and the diff of the selected revision.
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

    // Commands: app_state_commands.cpp
    /// Runs `svn` in `workingDirectory` ("" for this process's own) under a busy message and shows what it printed.
    QCoro::Task<> runCommand(QString title, QStringList arguments, QString workingDirectory, RefreshAfter refreshAfter,
                             ShowOutput showOutput);
    /// The same with `git`.
    QCoro::Task<> runGitCommand(QString title, QStringList arguments, QString workingDirectory,
                                RefreshAfter refreshAfter, ShowOutput showOutput);
    /// runCommand in the selected project, which must be a Subversion working copy.
    QCoro::Task<> runSelectedProjectCommand(QString title, QStringList arguments, RefreshAfter refreshAfter,
                                            ShowOutput showOutput);
    /// runGitCommand in the selected project, which must be a Git repository.
    QCoro::Task<> runSelectedGitCommand(QString title, QStringList arguments, RefreshAfter refreshAfter,
                                        ShowOutput showOutput);

private:
    void showAlert(const QString &title, const QString &message);
    void showError(const QString &title, const SVNClientError &error);
    /// Awaits `work` and reports what it throws under `title`, unless `isRelevant` says nobody cares any more.
    QCoro::Task<> reporting(QString title, QCoro::Task<> work, std::function<bool()> isRelevant = {});
    /// The selected project; nothing after an alert when there is none.
    std::optional<Project> requiredProject();
    /// The rows that row actions act on: the ticked ones in list order, else the selected one.
    QList<WorkingCopyItem> actionItems() const;
    /// The path that prompts offer: the selected file on the History tab, else the first of actionItems(), else "".
    QString selectedActionPath() const;
    /// The folder of the selected project; nothing after an alert when there is none or it is gone.
    std::optional<QString> selectedProjectDirectory();
    std::shared_ptr<Tool> toolFor(RepositoryKind kind) const;

    QCoro::Task<> registerDetected(QString directory, std::optional<QUuid> *id);
    /// Adds the folder to the list, or gives the project that has it the kind; its id. Changes no selection.
    QUuid registerProject(const QString &folder, RepositoryKind kind);
    void storeProjectKind(const QUuid &id, RepositoryKind kind);
    void resetProjectState();
    QCoro::Task<> openTerminalIn(QString directory);
    QCoro::Task<> openFinderIn(QString directory);

    QCoro::Task<> refresh(RunPurpose purpose);
    /// loadInfo that throws.
    QCoro::Task<> updateInfo();
    QCoro::Task<> showInfo(Project project);
    QCoro::Task<> refreshSelectedProjectKind();
    QCoro::Task<> verifyKind(Project project);
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
    /// To be called when a command may have changed the repository: loads everything that is shown and remembers to
    /// load the rest when it is.
    QCoro::Task<> reloadAfterChange();
    /// Loads the changes, `repositoryInfo` and the log that `tab` shows.
    QCoro::Task<> reloadEverything(RunPurpose purpose, WorkflowTab tab);
    /// Loads the log that `tab` shows, if it shows one.
    QCoro::Task<> loadLogOf(WorkflowTab tab);
    bool historyNeedsReload() const { return historyLoadedAt != repositoryChanges; }
    bool archivesNeedsReload() const { return archivesLoadedAt != repositoryChanges; }
    QCoro::Task<> revert(QList<WorkingCopyItem> items, QString emptyMessage, RevertScope scope);
    QCoro::Task<> revertAfterConfirmation(Project project, QList<WorkingCopyItem> items, RevertScope scope);
    QCoro::Task<RevertPlan> revertPlan(Project project, QList<WorkingCopyItem> items);
    QCoro::Task<CommandOutput> runRevert(Project project, RevertPlan plan);
    void resetHistory();
    void resetArchives();
    QCoro::Task<> loadHistoryOf(Project project, quint64 generation);
    void publishHistory(const LoadedHistory &loaded);
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
    /// `text` as a target of the tool: one that is exactly a path of the working copy as such, anything else as typed.
    QString typedTarget(const Project &project, const QString &text) const;
    /// The same where Git takes a name, never a pattern: behind a revision and ":".
    QString typedSource(const Project &project, const QString &text) const;
    /// Whether `text` is exactly a path of the working copy or of its history.
    bool isKnownPath(const Project &project, const QString &text) const;
    /// Runs a command whose arguments the user was asked for.
    QCoro::Task<> runAskedCommand(Project project, QString title, QStringList arguments, RefreshAfter refreshAfter);
    QCoro::Task<> exportFile(Project project, QStringList arguments, QString destination);
    QCoro::Task<> loadArchivesOf(Project project, quint64 generation);
    std::optional<LogEntry> entryToArchive() const;
    static std::shared_ptr<LatestTurn> newHistoryDiffTurn();
    void publishArchives(const QList<LogEntry> &entries);
    QCoro::Task<> writeArchive(Project project, LogEntry entry, QString chosenPath);
    /// Writes the zip to `path`, then gives it its name.
    QCoro::Task<SVNCommandResult> writeArchiveBeside(Project project, LogEntry entry, QString path,
                                                     QString destination);
    QCoro::Task<> exportTree(Project project, QString revision, QString tree);
    QCoro::Task<SVNCommandResult> archiveFromGit(Project project, LogEntry entry, QString path);
    QCoro::Task<SVNCommandResult> archiveFromSubversion(Project project, LogEntry entry, QString path);
    /// Lets a worker give back what `value` holds, which takes milliseconds that the window does not have. It does so
    /// in a later turn of the event loop, when the caller's own copies are gone.
    template <typename Value>
    void release(Value value) {
        QTimer::singleShot(0, this, [this, held = std::move(value)]() mutable {
            workers.start([last = std::move(held)]() mutable { last = Value(); });
        });
    }
    QCoro::Task<> addIgnoreLines(Project project, QStringList lines);
    QCoro::Task<> runToolCommand(RepositoryKind kind, QString title, QStringList arguments, QString workingDirectory,
                                 RefreshAfter refreshAfter, ShowOutput showOutput);
    QCoro::Task<> runInSelectedProject(RepositoryKind kind, QString title, QStringList arguments,
                                       RefreshAfter refreshAfter, ShowOutput showOutput);

    /// Whether a load of that number for that project is still the one that may publish.
    bool isCurrent(const Project &project, quint64 generation, quint64 latest) const;

    UserInteraction &user;
    Tools tools;
    ArchiveZipClient archiveZipClient{};
    ProjectStore projectStore;
    LanguageConfigurationStore languageConfigurationStore;
    BusyState busy{busyMessage};
    RunningOperations operations;
    bool closing = false;
    QThreadPool workers;
    GitRowFacts gitFacts;        ///< of the rows of `changes`
    TickDecisions tickDecisions; ///< on rows of `changes`
    quint64 statusGeneration = 0;
    quint64 diffGeneration = 0;
    quint64 infoGeneration = 0;
    quint64 historyGeneration = 0;
    quint64 historyDiffGeneration = 0;
    std::shared_ptr<LatestTurn> historyDiffTurn = newHistoryDiffTurn(); ///< of the selected project
    quint64 archivesGeneration = 0;
    quint64 repositoryChanges = 0; ///< counts what may have changed the log
    quint64 historyLoadedAt = 0;   ///< `repositoryChanges` when the load that is shown began
    quint64 archivesLoadedAt = 0;
    bool historySummaryAsked = false; ///< for the entries that are shown
};

} // namespace kestor

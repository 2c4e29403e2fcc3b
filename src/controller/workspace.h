#pragma once

#include "controller/app_properties.h"
#include "controller/busy_scope.h"
#include "controller/git_status.h"
#include "controller/path_command.h"
#include "controller/running_operations.h"
#include "controller/user_interaction.h"
#include "tools/tool.h"

#include <QCoroTask>
#include <QList>
#include <QObject>
#include <QSettings>
#include <QString>
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

    const std::shared_ptr<Tool> &of(RepositoryKind kind) const { return kind == RepositoryKind::svn ? svn : git; }
};

/// The real tools, found through `settings`, which must outlive them.
Tools systemTools(QSettings &settings);

enum class RefreshAfter : std::uint8_t { no, yes };

/// Whether a command that printed nothing still shows its output sheet.
enum class ShowOutput : std::uint8_t { whenPrinted, always };

/// What every family of operations works with: the values shown, the user, the tools, and the ways to run a command, to
/// be busy and to report. Main thread only.
class Workspace : public QObject, public AppProperties {
    Q_OBJECT

public:
    /// `settings` and `interaction` must outlive it.
    Workspace(QSettings &settings, UserInteraction &interaction, Tools commandLineTools);

    /// The first project whose id is `selectedProjectID`.
    std::optional<Project> selectedProject() const;
    /// The first change whose path is `selectedChangeID`.
    std::optional<WorkingCopyItem> selectedChange() const;
    /// The selected project; nothing after an alert when there is none.
    std::optional<Project> requiredProject();
    /// The same for a project of that kind; nothing after an alert when it is of the other one.
    std::optional<Project> requiredProject(RepositoryKind kind);
    /// The rows that row actions act on: the ticked ones in list order, else the selected one.
    QList<WorkingCopyItem> actionItems() const;
    /// The path that prompts offer: the selected file on the History tab, else the first of actionItems(), else "".
    QString selectedActionPath() const;
    /// `text` as a target of the tool: one that is exactly a path of the working copy as such, anything else as typed.
    QString typedTarget(const Project &project, const QString &text) const;
    /// The same where Git takes a name, never a pattern: behind a revision and ":".
    QString typedSource(const Project &project, const QString &text) const;
    /// Whether `text` is exactly a path of the working copy or of its history.
    bool isKnownPath(const Project &project, const QString &text) const;

    /// Runs `svn` in `workingDirectory` ("" for this process's own) under a busy message and shows what it printed.
    QCoro::Task<> runCommand(QString title, QStringList arguments, QString workingDirectory, RefreshAfter refreshAfter,
                             ShowOutput showOutput, BusyKind work = BusyKind::command);
    /// The same with `git`.
    QCoro::Task<> runGitCommand(QString title, QStringList arguments, QString workingDirectory,
                                RefreshAfter refreshAfter, ShowOutput showOutput);
    /// runCommand in the selected project, which must be a Subversion working copy.
    QCoro::Task<> runSelectedProjectCommand(QString title, QStringList arguments, RefreshAfter refreshAfter,
                                            ShowOutput showOutput);
    /// runGitCommand in the selected project, which must be a Git repository.
    QCoro::Task<> runSelectedGitCommand(QString title, QStringList arguments, RefreshAfter refreshAfter,
                                        ShowOutput showOutput);
    /// Runs a command whose arguments were asked for. One after which nothing is loaded again may be ended by closing.
    QCoro::Task<> runAskedCommand(Project project, QString title, QStringList arguments, RefreshAfter refreshAfter);
    /// The same for a command on paths, handed over by file when they are too many.
    QCoro::Task<> runPathsCommand(Project project, QString title, PathCommand command, RefreshAfter refreshAfter);
    std::shared_ptr<Tool> toolFor(RepositoryKind kind) const;

    void showAlert(const QString &title, const QString &message);
    /// To be called when something was stored in `preferences`: puts it on disk. When that fails an alert says so, once
    /// until it works again.
    void writePreferences();
    /// Shows an alert and, where a tool ran, what it printed.
    QCoro::Task<> showError(QString title, SVNClientError error);
    /// The output record of one run. A long output is decoded on a worker.
    QCoro::Task<CommandOutput> outputOf(QString title, SVNCommandResult result);
    /// Awaits `work` and reports what it throws under `title`. What has an `isRelevant` loads something: its failure is
    /// kept quiet when that says that nobody cares any more, and when an alert already says the same, so that a tool
    /// that is gone is told once and not by everything that is loaded again.
    QCoro::Task<> reporting(QString title, QCoro::Task<> work, std::function<bool()> isRelevant = {});
    /// Whether a load of that number for that project is still the one that may publish.
    bool isCurrent(const Project &project, quint64 generation, quint64 latest) const;
    /// Lets a worker give back what `value` holds, which takes milliseconds that the window does not have. It does so
    /// in a later turn of the event loop, when the caller's own copies are gone.
    template <typename Value>
    void release(Value value) {
        QTimer::singleShot(0, this, [this, held = std::move(value)]() mutable {
            workers.start([last = std::move(held)]() mutable { last = Value(); });
        });
    }

    /// Registers and selects the folder; one that is registered already keeps its place and gets the kind.
    virtual QCoro::Task<> addProject(QString folder, RepositoryKind kind) = 0;
    /// Loads `repositoryInfo` for the selected project. Silent: on failure it keeps its value.
    virtual QCoro::Task<> loadInfo() = 0;
    /// Finds out whether the selected project is still of its kind. False when nothing is to be loaded, because it is
    /// no repository of its own any more and lies inside another; the user has been told then.
    virtual QCoro::Task<bool> refreshSelectedProjectKind() = 0;
    /// To be called when a command may have changed the repository: loads everything that is shown and remembers to
    /// load the rest when it is.
    virtual QCoro::Task<> reloadAfterChange() = 0;

    QSettings &preferences;
    UserInteraction &user;
    Tools tools;
    BusyState busy{busyMessage, busyKind};
    RunningOperations operations;
    QThreadPool workers;
    GitRowFacts gitFacts{};        ///< of the rows of `changes`
    quint64 repositoryChanges = 0; ///< counts what may have changed the log
    bool closing = false;

private:
    /// What becomes of a failure that an alert tells already.
    enum class ToldBefore : std::uint8_t { again, keepQuiet };
    QCoro::Task<> showError(QString title, SVNClientError error, ToldBefore toldBefore);
    bool preferencesLost = false; ///< the last write failed
    QCoro::Task<> runToolCommand(RepositoryKind kind, QString title, PathCommand command, QString workingDirectory,
                                 RefreshAfter refreshAfter, ShowOutput showOutput, BusyKind work = BusyKind::command);
    QCoro::Task<> runInSelectedProject(RepositoryKind kind, QString title, QStringList arguments,
                                       RefreshAfter refreshAfter, ShowOutput showOutput);
};

} // namespace kestor

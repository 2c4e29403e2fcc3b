#pragma once

#include "controller/deletion_losses.h"
#include "controller/working_copy_command.h"

#include <QMap>

namespace kestor {

/// How a conflict is resolved: with the file as it is in the working copy, or with all of one side.
enum class ResolveChoice : std::uint8_t { working, mineFull, theirsFull };

/// The commands of the menus that are one run of `svn` or `git` each in the selected project. They act on the ticked
/// rows, else the selected one, or ask for what they need, and show what the tool printed. Main thread only.
class WorkingCopyActions {
public:
    explicit WorkingCopyActions(Workspace &shared) : workspace(shared) {}

    /// Adds the rows acted on and nothing below them that has no row; in Subversion only what is unversioned, or else
    /// what stands on disk although it is deleted.
    QCoro::Task<> addSelectedPaths();
    /// Asks first when files would be lost that the repository does not have; ignored ones go to the trash.
    QCoro::Task<> deleteSelectedPaths();
    /// Asks before one side replaces what was merged.
    QCoro::Task<> resolveSelectedPaths(ResolveChoice accept);
    QCoro::Task<> lockSelectedPaths() { return perform(WorkingCopyAction::lock); }
    QCoro::Task<> unlockSelectedPaths() { return perform(WorkingCopyAction::unlock); }
    QCoro::Task<> createChangelist() { return perform(WorkingCopyAction::createChangelist); }
    QCoro::Task<> removeFromChangelist() { return perform(WorkingCopyAction::removeFromChangelist); }
    QCoro::Task<> applyPatch();
    QCoro::Task<> makeDirectoryInWorkingCopy() { return perform(WorkingCopyAction::makeDirectory); }
    QCoro::Task<> copyItem() { return perform(WorkingCopyAction::copy); }
    QCoro::Task<> moveItem() { return perform(WorkingCopyAction::move); }
    QCoro::Task<> listProperties() { return perform(WorkingCopyAction::listProperties); }
    /// The same, with `path` (of the working copy) offered instead of the first one acted on.
    QCoro::Task<> listProperties(QString path) { return perform(WorkingCopyAction::listProperties, path); }
    QCoro::Task<> getProperty() { return perform(WorkingCopyAction::getProperty); }
    QCoro::Task<> setProperty() { return perform(WorkingCopyAction::setProperty); }
    QCoro::Task<> deleteProperty() { return perform(WorkingCopyAction::deleteProperty); }
    QCoro::Task<> merge() { return perform(WorkingCopyAction::merge); }
    /// Asks first when Git would overwrite ignored files.
    QCoro::Task<> updateWorkingCopy();
    QCoro::Task<> switchWorkingCopyURL() { return perform(WorkingCopyAction::switchURL); }
    QCoro::Task<> relocateWorkingCopyURL() { return perform(WorkingCopyAction::relocateURL); }
    QCoro::Task<> showBlame() { return perform(WorkingCopyAction::blame); }
    QCoro::Task<> showBlame(QString path) { return perform(WorkingCopyAction::blame, path); }
    QCoro::Task<> cleanUp() { return perform(WorkingCopyAction::cleanup); }
    QCoro::Task<> upgrade() { return perform(WorkingCopyAction::upgrade); }

private:
    using Texts = QMap<QString, QString>; ///< by the key of their field

    /// Fetches what a pull would bring, and asks before ignored files go with it. Throws SVNClientError when the fetch
    /// fails: the pull would wait for the server, or ask for the password, once more, only to fail the same way.
    QCoro::Task<> pull(Project project);
    QCoro::Task<> addToGit(Project project, QList<WorkingCopyItem> items);
    QCoro::Task<> addToSubversion(Project project, QList<WorkingCopyItem> items);
    QCoro::Task<> removeAfterQuestion(Project project, QList<WorkingCopyItem> items, QStringList paths);
    /// Deletes versioned paths; what is ignored in them goes to the trash, if there is one.
    QCoro::Task<> removeThroughTrash(Project project, QStringList paths, QStringList ignored);
    /// `path` is offered where a path is asked for; "" for selectedActionPath().
    QCoro::Task<> perform(WorkingCopyAction action, QString path = {});
    QCoro::Task<> run(WorkingCopyAction action, Project project, Texts entered, QStringList paths);
    /// The selected project, where its tool has the command; nothing after an alert otherwise.
    std::optional<Project> projectFor(const WorkingCopyCommand &command);
    /// The paths acted on; nothing after an alert when there is none.
    std::optional<QStringList> requiredPaths(WorkingCopyAction action, const Project &project,
                                             const QList<WorkingCopyItem> &items);
    /// Throws SVNClientError: who does not know what would be lost must not delete.
    QCoro::Task<DeletionLosses> deletionLosses(Project project, QList<WorkingCopyItem> items);
    QList<PromptField> promptFields(const WorkingCopyCommand &command, const QString &path) const;
    /// What was entered, with working-copy paths as targets of the tool.
    Texts asArguments(const WorkingCopyCommand &command, const Project &project, const QList<PromptField> &asked,
                      Texts entered) const;

    Workspace &workspace;
};

} // namespace kestor

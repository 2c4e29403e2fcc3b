#pragma once

#include "controller/app_properties.h"
#include "controller/user_interaction.h"
#include "model/language_configuration_store.h"
#include "model/project_store.h"
#include "tools/archive_zip_client.h"
#include "tools/tool.h"

#include <QCoroTask>
#include <QObject>
#include <QSettings>
#include <QStringList>

#include <memory>
#include <optional>

namespace kestor {

/// The three command-line tools a controller works with.
struct Tools {
    std::unique_ptr<Tool> svn;
    std::unique_ptr<Tool> svnAdmin;
    std::unique_ptr<Tool> git;
};

/// The real tools, found through `settings`, which must outlive them.
Tools systemTools(QSettings &settings);

/// The one controller behind the window: state, and the operations the window calls. An operation checks its own
/// preconditions and reports every failure as an alert; the tasks never throw. Ignoring a task lets it run on. Main
/// thread only.
class AppState final : public QObject, public AppProperties {
    Q_OBJECT

public:
    /// Loads projects and language rules and selects the first project. Runs no tool; call `projectSelectionChanged`
    /// when the window is up. `settings` and `user` must outlive the state.
    AppState(QSettings &settings, UserInteraction &user, Tools tools);
    ~AppState() override;

    /// The first project whose id is `selectedProjectID`.
    std::optional<Project> selectedProject() const;
    /// The first change whose path is `selectedChangeID`.
    std::optional<WorkingCopyItem> selectedChange() const;

    // Projects
    QCoro::Task<> addExistingWorkingCopy();
    /// Adds dropped folders (absolute paths) one after another, each as addExistingWorkingCopy does after its panel.
    QCoro::Task<> addWorkingCopies(QStringList directories);
    QCoro::Task<> removeSelectedProject();
    /// To be called whenever `selectedProjectID` changes: empties everything of the old project and refreshes.
    QCoro::Task<> projectSelectionChanged();

    // Loading
    /// To be called whenever `selectedTab` changes: loads what the tab lacks.
    QCoro::Task<> tabChanged();
    QCoro::Task<> refreshAll();
    /// Reloads only the Changes list.
    QCoro::Task<> refreshStatus();
    /// Loads `repositoryInfo` for the selected project. Silent: on failure it keeps its value.
    QCoro::Task<> loadInfo();
    /// Shows `repositoryInfo` in the output sheet.
    QCoro::Task<> showRepositoryInfo();

    // Changes
    /// To be called whenever the user selects another change: loads its diff.
    QCoro::Task<> selectedChangeChanged();
    /// Ticks or unticks one row for the commit. Rows no commit can act on stay unticked.
    void setCommitSelection(const WorkingCopyItem &item, bool selected);
    /// Ticks or unticks many rows at once.
    void setCommitSelection(const QList<WorkingCopyItem> &items, bool selected);

    // Desktop
    QCoro::Task<> openTerminal();
    QCoro::Task<> openFinder();
    /// Terminal and file manager.
    QCoro::Task<> openBoth();
};

} // namespace kestor

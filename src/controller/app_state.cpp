#include "controller/app_state.h"

#include "controller/combined_output.h"
#include "tools/git_client.h"
#include "tools/svn_admin_client.h"
#include "tools/svn_client.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

// Enough to read a few folders on a slow disk while others parse.
constexpr int workerThreads = 4;

} // namespace

Tools systemTools(QSettings &settings) {
    return {std::make_shared<SVNClient>(settings), std::make_shared<SVNAdminClient>(settings),
            std::make_shared<GitClient>()};
}

AppState::AppState(QSettings &settings, UserInteraction &interaction, Tools commandLineTools)
    : user(interaction), tools(std::move(commandLineTools)), projectStore(settings),
      languageConfigurationStore(settings) {
    workers.setMaxThreadCount(workerThreads);
    projects = projectStore.load();
    if (!projects.value().isEmpty())
        selectedProjectID = projects.value().first().id;
    customLanguageRules = languageConfigurationStore.load();
}

AppState::~AppState() {
    closing = true;
    for (const std::shared_ptr<Tool> &tool : {tools.svn, tools.svnAdmin, tools.git})
        tool->stop();
    archiveZipClient.stop();
    // What reads on a worker, or waits for an answer, still holds on to this object.
    const QDeadlineTimer deadline(10000);
    while (!operations.isIdle() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
}

std::optional<Project> AppState::selectedProject() const {
    const QList<Project> &all = projects.value();
    const auto isSelected = [this](const Project &project) {
        return project.id == selectedProjectID.value();
    };
    const auto found = std::find_if(all.begin(), all.end(), isSelected);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

std::optional<WorkingCopyItem> AppState::selectedChange() const {
    const QList<WorkingCopyItem> &all = changes.value();
    const auto isSelected = [this](const WorkingCopyItem &item) {
        return item.path == selectedChangeID.value();
    };
    const auto found = std::find_if(all.begin(), all.end(), isSelected);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

QList<WorkingCopyItem> AppState::actionItems() const {
    const CommitRequest ticked{changes, selectedCommitPaths, QString(), {}};
    QList<WorkingCopyItem> items = ticked.items();
    const std::optional<WorkingCopyItem> selected = selectedChange();
    if (items.isEmpty() && selected)
        items.append(*selected);
    return items;
}

void AppState::showAlert(const QString &title, const QString &message) {
    alert = AppAlert{QUuid::createUuid(), title, message};
}

void AppState::showError(const QString &title, const SVNClientError &error) {
    const SVNCommandResult *result = error.failedResult();
    if (result == nullptr) {
        showAlert(title, error.errorDescription());
        return;
    }
    commandOutput = commandOutputOf(title, *result);
    showAlert(title, failureMessage(*result));
}

QCoro::Task<> AppState::reporting(QString title, QCoro::Task<> work, std::function<bool()> isRelevant) {
    const RunningOperations::Scope running(operations);
    std::optional<SVNClientError> failure;
    try {
        co_await work;
    } catch (const SVNClientError &error) {
        failure = error;
    }
    if (failure && !closing && (!isRelevant || isRelevant()))
        showError(title, *failure);
}

std::optional<Project> AppState::requiredProject() {
    const std::optional<Project> project = selectedProject();
    if (!project)
        showAlert(u"No Project Selected"_s, u"Choose a project first."_s);
    return project;
}

std::optional<QString> AppState::selectedProjectDirectory() {
    const std::optional<Project> project = requiredProject();
    if (!project)
        return std::nullopt;
    if (!QFileInfo(project->path).isDir()) {
        showAlert(u"Project Folder Missing"_s, project->path + u" does not exist or is not a folder."_s);
        return std::nullopt;
    }
    return project->path;
}

std::shared_ptr<Tool> AppState::toolFor(RepositoryKind kind) const {
    return kind == RepositoryKind::svn ? tools.svn : tools.git;
}

bool AppState::isCurrent(const Project &project, quint64 generation, quint64 latest) const {
    return generation == latest && selectedProjectID.value() == project.id;
}

} // namespace kestor

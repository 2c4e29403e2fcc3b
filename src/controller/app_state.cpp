#include "controller/app_state.h"

#include "controller/refusal.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

namespace kestor {

AppState::AppState(QSettings &settings, UserInteraction &interaction, Tools commandLineTools)
    : Workspace(settings, interaction, std::move(commandLineTools)), projectStore(settings) {
    projects = projectStore.load();
    if (!projects.value().isEmpty())
        selectedProjectID = projects.value().first().id;
}

AppState::~AppState() {
    closing = true;
    for (const std::shared_ptr<Tool> &tool : {tools.svn, tools.svnAdmin, tools.git})
        tool->stop();
    archiveZipClient.stop();
    languageShares.stop();
    // What reads on a worker, or waits for an answer, still holds on to this object.
    const QDeadlineTimer deadline(10000);
    while (!operations.isIdle() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
}

std::optional<QString> AppState::selectedProjectDirectory() {
    const std::optional<Project> project = requiredProject();
    if (!project)
        return std::nullopt;
    if (const std::optional<Refusal> missing = missingFolder(project->path)) {
        showAlert(missing->title, missing->message);
        return std::nullopt;
    }
    return project->path;
}

} // namespace kestor

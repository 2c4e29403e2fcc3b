#include "controller/app_state.h"
#include "model/file_order.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QString projectName(const QString &path) {
    const QString name = QFileInfo(path).fileName();
    return name.isEmpty() ? path : name;
}

QString terminalMissingText() {
#ifdef Q_OS_MACOS
    return u"Could not find Terminal.app."_s;
#else
    return u"Could not find a terminal program."_s;
#endif
}

} // namespace

QCoro::Task<> AppState::addExistingWorkingCopy() {
    const RunningOperations::Scope running(operations);
    const std::optional<QString> directory = co_await user.chooseDirectory(u"Add Working Copy"_s);
    if (!directory)
        co_return;
    const QStringList directories(*directory);
    co_await addWorkingCopies(directories);
}

QCoro::Task<> AppState::addWorkingCopies(QStringList directories) {
    const RunningOperations::Scope running(operations);
    std::optional<QUuid> last;
    for (const QString &directory : std::as_const(directories))
        co_await reporting(u"Could Not Add Project"_s, registerDetected(directory, &last));
    if (!last)
        co_return;
    selectedProjectID = last;
    co_await projectSelectionChanged();
}

QCoro::Task<> AppState::registerDetected(QString directory, std::optional<QUuid> *id) {
    const BusyScope checking(busy, u"Checking project"_s);
    const DetectedRepository found = co_await detectRepository(directory);
    *id = registerProject(found.root, found.kind);
}

QCoro::Task<DetectedRepository> AppState::detectRepository(QString folder) {
    try {
        co_return co_await probeSubversion(toolFor(RepositoryKind::svn), folder);
    } catch (const SVNClientError &) {
        // Not a working copy, or no svn: ask Git.
    }
    try {
        co_return co_await probeGit(toolFor(RepositoryKind::git), folder, RunPurpose::repositorySearch);
    } catch (const SVNClientError &) {
        // Neither: told below in one sentence.
    }
    throw SVNClientError::launchFailed(u"No SVN working copy or Git repository was found at "_s + folder + u'.');
}

QCoro::Task<> AppState::addProject(QString folder, RepositoryKind kind) {
    selectedProjectID = registerProject(folder, kind);
    return projectSelectionChanged();
}

QUuid AppState::registerProject(const QString &folder, RepositoryKind kind) {
    const QString path = QDir::cleanPath(folder);
    QList<Project> list = projects;
    const auto known = std::find_if(list.begin(), list.end(), [&path](const Project &p) { return p.path == path; });
    const QUuid id = known == list.end() ? QUuid::createUuid() : known->id;
    if (known == list.end()) {
        list.append(Project{id, projectName(path), path, kind});
        sortInStandardOrder(list, [](const Project &project) { return project.name; });
    } else {
        known->kind = kind;
    }
    saveProjects(list);
    return id;
}

QCoro::Task<> AppState::removeSelectedProject() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = selectedProject();
    if (!project)
        co_return;
    const QString question =
        u"Remove "_s + project->name + u" from the project list? The working copy on disk will not be deleted."_s;
    const bool confirmed = co_await user.confirm(u"Remove Project"_s, question);
    if (!confirmed)
        co_return;
    QList<Project> list = projects;
    list.removeIf([&project](const Project &other) { return other.id == project->id; });
    saveProjects(list);
    selectedProjectID = list.isEmpty() ? std::nullopt : std::optional(list.first().id);
    co_await projectSelectionChanged();
}

QCoro::Task<> AppState::projectSelectionChanged() {
    resetProjectState();
    return refresh(RunPurpose::backgroundRead);
}

void AppState::resetProjectState() {
    busy.endLoads();
    ++statusGeneration;
    ++diffGeneration;
    ++infoGeneration;
    ++historyGeneration;
    ++archivesGeneration;
    changes = WorkingCopyItems();
    changesLoaded = false;
    selectedChangeID = std::nullopt;
    selectedCommitPaths = MarkedPaths();
    gitFacts = GitRowFacts();
    tickDecisions = TickDecisions();
    changesLineSummary = LineChangeSummary();
    publishDiff(std::nullopt, LoadedDiff());
    resetHistory();
    resetArchives();
    incoming.clearIncoming();
    repositoryInfo = RepositoryInfo();
    languageShares.reset();
}

void AppState::saveProjects(const QList<Project> &list) {
    projects = list;
    projectStore.save(list);
    writePreferences();
}

void AppState::storeProjectKind(const QUuid &id, RepositoryKind kind) {
    QList<Project> list = projects;
    for (Project &project : list) {
        if (project.id == id)
            project.kind = kind;
    }
    saveProjects(list);
}

QCoro::Task<> AppState::openFinderIn(QString directory) {
    const bool opened = co_await user.openInFileManager(directory);
    if (!opened)
        showAlert(u"Open Finder Failed"_s, directory + u" could not be opened in the file manager."_s);
}

QCoro::Task<> AppState::openTerminalIn(QString directory) {
    const TerminalResult result = co_await user.openTerminal(directory);
    switch (result.outcome) {
    case TerminalResult::Outcome::opened:
        break;
    case TerminalResult::Outcome::notFound:
        showAlert(u"Open Terminal Failed"_s, terminalMissingText());
        break;
    case TerminalResult::Outcome::failed:
        showAlert(u"Open Terminal Failed"_s, result.errorDescription);
        break;
    }
}

QCoro::Task<> AppState::openFinder() {
    const RunningOperations::Scope running(operations);
    const std::optional<QString> directory = selectedProjectDirectory();
    if (directory)
        co_await openFinderIn(*directory);
}

QCoro::Task<> AppState::openTerminal() {
    const RunningOperations::Scope running(operations);
    const std::optional<QString> directory = selectedProjectDirectory();
    if (directory)
        co_await openTerminalIn(*directory);
}

QCoro::Task<> AppState::openBoth() {
    const RunningOperations::Scope running(operations);
    const std::optional<QString> directory = selectedProjectDirectory();
    if (!directory)
        co_return;
    co_await openTerminalIn(*directory);
    co_await openFinderIn(*directory);
}

QCoro::Task<> AppState::switchURLOrBranch() {
    const std::optional<Project> project = selectedProject();
    const bool isGit = project && project->kind == RepositoryKind::git;
    return isGit ? branches.switchGitBranch() : actions.switchWorkingCopyURL();
}

} // namespace kestor

#include "controller/workspace.h"

#include "controller/combined_output.h"
#include "controller/path_targets.h"
#include "model/preferences_file.h"
#include "rules/working_copy_paths.h"
#include "tools/git_client.h"
#include "tools/svn_admin_client.h"
#include "tools/svn_client.h"
#include "tools/svn_preference.h"

#include <QCoroFuture>
#include <QFileInfo>
#include <QtConcurrent>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

// Enough to read a few folders on a slow disk while others parse.
constexpr int workerThreads = 4;

// Bytes that are text within a millisecond.
constexpr qsizetype decodedAtOnce = 256 * 1024;

} // namespace

Tools systemTools(QSettings &settings) {
    return {std::make_shared<SVNClient>(settings), std::make_shared<SVNAdminClient>(settings),
            std::make_shared<GitClient>()};
}

Workspace::Workspace(QSettings &settings, UserInteraction &interaction, Tools commandLineTools)
    : preferences(settings), user(interaction), tools(std::move(commandLineTools)) {
    workers.setMaxThreadCount(workerThreads);
    svnExecutablePath = preferredSVNPath(preferences);
    if (preferences.status() == QSettings::AccessError)
        showAlert(u"Preferences Not Read"_s,
                  preferences.fileName() + u" could not be read. It is left as it is, and no change is saved."_s);
}

std::optional<Project> Workspace::selectedProject() const {
    const QList<Project> &all = projects.value();
    const auto isSelected = [this](const Project &project) {
        return project.id == selectedProjectID.value();
    };
    const auto found = std::find_if(all.begin(), all.end(), isSelected);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

std::optional<WorkingCopyItem> Workspace::selectedChange() const {
    const std::optional<QString> &path = selectedChangeID.value();
    const std::optional<qsizetype> row = path ? changes.value().indexOf(*path) : std::nullopt;
    return row ? std::optional(changes.value()[*row]) : std::nullopt;
}

QList<WorkingCopyItem> Workspace::actionItems() const {
    QList<WorkingCopyItem> items = selectedCommitPaths.value().in(changes).items();
    const std::optional<WorkingCopyItem> selected = selectedChange();
    if (items.isEmpty() && selected)
        items.append(*selected);
    return items;
}

void Workspace::showAlert(const QString &title, const QString &message) {
    alert = AppAlert{QUuid::createUuid(), title, message};
}

void Workspace::writePreferences() {
    const bool before = std::exchange(preferencesLost, !writeToDisk(preferences));
    if (preferencesLost && !before)
        showAlert(u"Preferences Not Saved"_s,
                  preferences.fileName() + u" could not be written. What you change is lost when the program ends."_s);
}

QCoro::Task<> Workspace::showError(QString title, SVNClientError error) {
    return showError(std::move(title), std::move(error), ToldBefore::again);
}

QCoro::Task<> Workspace::showError(QString title, SVNClientError error, ToldBefore toldBefore) {
    std::optional<CommandOutput> output;
    if (const SVNCommandResult *result = error.failedResult()) {
        SVNCommandResult printed = *result;
        error = SVNClientError::launchFailed(QString()); // what was printed goes as soon as it is text
        output = co_await outputOf(title, std::move(printed));
    }
    const QString message = output ? failureMessage(*output) : error.errorDescription();
    const std::optional<AppAlert> standing = alert;
    if (toldBefore == ToldBefore::keepQuiet && standing && standing->message == message)
        co_return;
    if (output) {
        release(commandOutput.value());
        commandOutput = output;
    }
    showAlert(title, message);
}

QCoro::Task<CommandOutput> Workspace::outputOf(QString title, SVNCommandResult result) {
    if (result.stdoutData.size() + result.stderrData.size() <= decodedAtOnce)
        co_return commandOutputOf(title, result);
    auto decode = [title, result = std::move(result)]() mutable {
        const SVNCommandResult printed = std::move(result); // to go on this thread
        return commandOutputOf(title, printed);
    };
    co_return co_await QtConcurrent::run(&workers, std::move(decode));
}

QCoro::Task<> Workspace::reporting(QString title, QCoro::Task<> work, std::function<bool()> isRelevant) {
    const RunningOperations::Scope running(operations);
    std::optional<SVNClientError> failure;
    try {
        co_await work;
    } catch (const SVNClientError &error) {
        failure = error;
    }
    work = QCoro::Task<>(); // holds the error, too
    if (failure && !closing && (!isRelevant || isRelevant()))
        co_await showError(title, *std::move(failure), isRelevant ? ToldBefore::keepQuiet : ToldBefore::again);
}

std::optional<Project> Workspace::requiredProject() {
    const std::optional<Project> project = selectedProject();
    if (!project)
        showAlert(u"No Project Selected"_s, u"Choose a project first."_s);
    return project;
}

std::optional<Project> Workspace::requiredProject(RepositoryKind kind) {
    const std::optional<Project> project = requiredProject();
    if (!project || project->kind == kind)
        return project;
    if (kind == RepositoryKind::svn)
        showAlert(u"SVN Command Unavailable"_s,
                  u"This project is a Git repository. Use Git-backed actions from Changes and History."_s);
    else
        showAlert(u"Git Command Unavailable"_s, u"This project is an SVN working copy."_s);
    return std::nullopt;
}

std::shared_ptr<Tool> Workspace::toolFor(RepositoryKind kind) const {
    return tools.of(kind);
}

bool Workspace::isCurrent(const Project &project, quint64 generation, quint64 latest) const {
    return generation == latest && selectedProjectID.value() == project.id;
}

QString Workspace::selectedActionPath() const {
    if (selectedTab.value() == WorkflowTab::history && selectedHistoryPath.value())
        return *selectedHistoryPath.value();
    const QList<WorkingCopyItem> items = actionItems();
    return items.isEmpty() ? QString() : items.first().path;
}

QString Workspace::typedTarget(const Project &project, const QString &text) const {
    if (!isKnownPath(project, text))
        return text;
    return project.kind == RepositoryKind::svn ? svnTarget(text) : gitTarget(text);
}

QString Workspace::typedSource(const Project &project, const QString &text) const {
    return project.kind == RepositoryKind::svn ? typedTarget(project, text) : text;
}

bool Workspace::isKnownPath(const Project &project, const QString &text) const {
    if (text.isEmpty())
        return false;
    return fileHistoryItems.value().indexOf(text) || changes.value().indexOf(text) ||
           QFileInfo::exists(absolutePath(text, project.path));
}

} // namespace kestor

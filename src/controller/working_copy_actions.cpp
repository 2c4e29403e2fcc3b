#include "controller/working_copy_actions.h"

#include "controller/path_targets.h"

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QString acceptValue(ResolveChoice choice) {
    switch (choice) {
    case ResolveChoice::mineFull:
        return u"mine-full"_s;
    case ResolveChoice::theirsFull:
        return u"theirs-full"_s;
    case ResolveChoice::working:
        break;
    }
    return u"working"_s;
}

QString offeredText(CommandField::Offer offer, const QString &path, const RepositoryInfo &info) {
    switch (offer) {
    case CommandField::Offer::actionPath:
        return path;
    case CommandField::Offer::actionPathOrRoot:
        return path.isEmpty() ? u"."_s : path;
    case CommandField::Offer::url:
        return info.url.value_or(QString());
    case CommandField::Offer::repositoryRoot:
        return info.repositoryRoot.value_or(QString());
    case CommandField::Offer::nothing:
        break;
    }
    return {};
}

QStringList pathsOf(const QList<WorkingCopyItem> &items) {
    QStringList paths;
    for (const WorkingCopyItem &item : items)
        paths.append(item.path);
    return paths;
}

} // namespace

QCoro::Task<> WorkingCopyActions::perform(WorkingCopyAction action, QString path) {
    const RunningOperations::Scope running(workspace.operations);
    const WorkingCopyCommand &command = workingCopyCommand(action);
    const std::optional<Project> project = projectFor(command);
    if (!project)
        co_return;
    const std::optional<QStringList> paths = requiredPaths(command, pathsOf(workspace.actionItems()));
    if (!paths)
        co_return;
    std::optional<Texts> entered = Texts();
    if (!command.fields.empty()) {
        const QString title = command.of(project->kind).title.toString();
        const QList<PromptField> fields = promptFields(command, path.isEmpty() ? workspace.selectedActionPath() : path);
        entered = co_await workspace.user.prompt(title, fields);
    }
    if (!entered || !isComplete(command, *entered))
        co_return;
    co_await run(action, *project, asArguments(command, *project, *entered), *paths);
}

QCoro::Task<> WorkingCopyActions::resolveSelectedPaths(ResolveChoice accept) {
    const RunningOperations::Scope running(workspace.operations);
    const WorkingCopyCommand &command = workingCopyCommand(WorkingCopyAction::resolve);
    const std::optional<Project> project = projectFor(command);
    if (!project)
        co_return;
    const std::optional<QStringList> paths = requiredPaths(command, pathsToResolve(workspace.actionItems()));
    if (!paths)
        co_return;
    const Texts entered{{u"accept"_s, acceptValue(accept)}};
    co_await run(WorkingCopyAction::resolve, *project, entered, *paths);
}

QCoro::Task<> WorkingCopyActions::applyPatch() {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<Project> project = projectFor(workingCopyCommand(WorkingCopyAction::applyPatch));
    if (!project)
        co_return;
    const std::optional<QString> file = co_await workspace.user.chooseFile(u"Choose Patch File"_s);
    if (!file)
        co_return;
    const Texts entered{{u"file"_s, svnTarget(*file)}};
    co_await run(WorkingCopyAction::applyPatch, *project, entered, QStringList());
}

QCoro::Task<> WorkingCopyActions::run(WorkingCopyAction action, Project project, Texts entered, QStringList paths) {
    const WorkingCopyCommand &command = workingCopyCommand(action);
    const ToolCommand &words = command.of(project.kind);
    return workspace.runPathsCommand(project, words.title.toString(), {filledIn(words, entered), paths, {}},
                                     command.refreshAfter);
}

std::optional<Project> WorkingCopyActions::projectFor(const WorkingCopyCommand &command) {
    return command.git.words.isEmpty() ? workspace.requiredProject(RepositoryKind::svn) : workspace.requiredProject();
}

std::optional<QStringList> WorkingCopyActions::requiredPaths(const WorkingCopyCommand &command,
                                                             const QStringList &actionPaths) {
    if (!command.actsOnPaths())
        return QStringList();
    if (!actionPaths.isEmpty())
        return actionPaths;
    workspace.showAlert(u"No Paths Selected"_s, command.pathsMissing.toString());
    return std::nullopt;
}

QList<PromptField> WorkingCopyActions::promptFields(const WorkingCopyCommand &command, const QString &path) const {
    QList<PromptField> fields;
    for (const CommandField &field : command.fields)
        fields.append({field.key.toString(), field.label.toString(),
                       offeredText(field.offer, path, workspace.repositoryInfo.value())});
    return fields;
}

WorkingCopyActions::Texts WorkingCopyActions::asArguments(const WorkingCopyCommand &command, const Project &project,
                                                          Texts entered) const {
    for (const CommandField &field : command.fields) {
        QString &text = entered[field.key.toString()];
        if (field.kind == CommandField::Kind::target)
            text = workspace.typedSource(project, text);
    }
    return entered;
}

} // namespace kestor

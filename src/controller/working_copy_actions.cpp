#include "controller/working_copy_actions.h"

#include "controller/checkout_losses.h"
#include "controller/path_targets.h"
#include "controller/repository_addresses.h"

#include <QCoroFuture>
#include <QtConcurrent>

#include <algorithm>

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

QString oneSideQuestion(qsizetype count) {
    return u"Resolve %1 path(s) with one side? What was merged in them so far will be discarded."_s.arg(count);
}

QString offeredText(CommandField::Offer offer, const QString &path, const RepositoryInfo &info) {
    switch (offer) {
    case CommandField::Offer::actionPath:
        return path;
    case CommandField::Offer::actionPathOrRoot:
        return path.isEmpty() ? u"."_s : path;
    case CommandField::Offer::url:
        return svnPrintedURLTarget(info.url.value_or(QString()));
    case CommandField::Offer::repositoryRoot:
        return info.repositoryRoot.value_or(QString());
    case CommandField::Offer::nothing:
        break;
    }
    return {};
}

} // namespace

QCoro::Task<> WorkingCopyActions::perform(WorkingCopyAction action, QString path) {
    const RunningOperations::Scope running(workspace.operations);
    const WorkingCopyCommand &command = workingCopyCommand(action);
    const std::optional<Project> project = projectFor(command);
    if (!project)
        co_return;
    const std::optional<QStringList> paths = requiredPaths(action, *project, workspace.actionItems());
    if (!paths)
        co_return;
    const QList<PromptField> fields = promptFields(command, path.isEmpty() ? workspace.selectedActionPath() : path);
    std::optional<Texts> entered = Texts();
    if (!fields.isEmpty()) {
        const QString title = command.of(project->kind).title.toString();
        entered = co_await workspace.user.prompt(title, fields);
    }
    if (!entered || !isComplete(command, *entered))
        co_return;
    co_await run(action, *project, asArguments(command, *project, fields, *entered), *paths);
}

QCoro::Task<> WorkingCopyActions::deleteSelectedPaths() {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<Project> project = projectFor(workingCopyCommand(WorkingCopyAction::remove));
    if (!project)
        co_return;
    const QList<WorkingCopyItem> items = workspace.actionItems();
    const std::optional<QStringList> paths = requiredPaths(WorkingCopyAction::remove, *project, items);
    if (paths)
        co_await workspace.reporting(u"Delete Failed"_s, removeAfterQuestion(*project, items, *paths));
}

QCoro::Task<> WorkingCopyActions::removeAfterQuestion(Project project, QList<WorkingCopyItem> items,
                                                      QStringList paths) {
    const DeletionLosses losses = co_await deletionLosses(project, items);
    if (workspace.closing)
        co_return;
    if (losses.any()) {
        const QString question = deletionQuestion(paths.size(), losses);
        const bool confirmed = co_await workspace.user.confirm(u"Delete"_s, question);
        if (!confirmed)
            co_return;
    }
    if (losses.ignored.isEmpty())
        co_await run(WorkingCopyAction::remove, project, Texts(), paths);
    else
        co_await removeThroughTrash(project, paths, losses.ignored);
}

QCoro::Task<> WorkingCopyActions::removeThroughTrash(Project project, QStringList paths, QStringList ignored) {
    QList<TrashedPath> moved;
    {
        const BusyScope moving(workspace.busy, u"Delete"_s);
        const auto move = [ignored, root = project.path] {
            return moveToTrash(ignored, root).moved; // without a trash svn deletes them, as the question said
        };
        moved = co_await QtConcurrent::run(&workspace.workers, move);
    }
    co_await run(WorkingCopyAction::remove, project, Texts(), paths);
    const auto back = [moved] {
        takeBackFromKeptFolders(moved);
    };
    co_await QtConcurrent::run(&workspace.workers, back);
}

QCoro::Task<DeletionLosses> WorkingCopyActions::deletionLosses(Project project, QList<WorkingCopyItem> items) {
    if (project.kind == RepositoryKind::git)
        co_return DeletionLosses{std::ranges::count_if(items, isInConflict), {}};
    const BusyScope looking(workspace.busy, u"Delete"_s);
    const auto find = [items, root = project.path] {
        return foldersAmong(items, root);
    };
    const QStringList folders = co_await QtConcurrent::run(&workspace.workers, find);
    if (folders.isEmpty())
        co_return DeletionLosses();
    const QStringList arguments = ignoredFilesArguments(folders);
    const SVNCommandResult result =
        co_await workspace.tools.svn->run(arguments, project.path, CheckStatus::yes, RunPurpose::backgroundRead);
    const auto read = [printed = result.stdoutData, folders] {
        return ignoredBelow(folders, printed);
    };
    const QStringList ignored = co_await QtConcurrent::run(&workspace.workers, read);
    co_return DeletionLosses{0, ignored};
}

QCoro::Task<> WorkingCopyActions::resolveSelectedPaths(ResolveChoice accept) {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<Project> project = projectFor(workingCopyCommand(WorkingCopyAction::resolve));
    if (!project)
        co_return;
    const QList<WorkingCopyItem> items = itemsToResolve(workspace.actionItems(), workspace.selectedChange());
    const std::optional<QStringList> paths = requiredPaths(WorkingCopyAction::resolve, *project, items);
    if (!paths)
        co_return;
    if (accept != ResolveChoice::working && std::ranges::any_of(items, isInConflict)) {
        const QString question = oneSideQuestion(paths->size());
        const bool confirmed = co_await workspace.user.confirm(u"Resolve"_s, question);
        if (!confirmed)
            co_return;
    }
    const Texts entered{{u"accept"_s, acceptValue(accept)}};
    co_await run(WorkingCopyAction::resolve, *project, entered, *paths);
}

QCoro::Task<> WorkingCopyActions::updateWorkingCopy() {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<Project> project = projectFor(workingCopyCommand(WorkingCopyAction::update));
    if (!project)
        co_return;
    if (project->kind == RepositoryKind::git)
        co_await workspace.reporting(u"Pull Failed"_s, pull(*project));
    else
        co_await run(WorkingCopyAction::update, *project, Texts(), QStringList());
}

QCoro::Task<> WorkingCopyActions::pull(Project project) {
    const QString title = workingCopyCommand(WorkingCopyAction::update).git.title.toString();
    {
        const BusyScope fetching(workspace.busy, title, BusyKind::interruptible);
        const QStringList arguments(u"fetch"_s);
        co_await workspace.tools.git->run(arguments, project.path, CheckStatus::yes);
    }
    const bool agreed = co_await agreesToOverwrite(&workspace, project, title, u"HEAD...@{upstream}"_s);
    if (agreed)
        co_await run(WorkingCopyAction::update, project, Texts(), QStringList());
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

std::optional<QStringList> WorkingCopyActions::requiredPaths(WorkingCopyAction action, const Project &project,
                                                             const QList<WorkingCopyItem> &items) {
    const WorkingCopyCommand &command = workingCopyCommand(action);
    if (!command.actsOnPaths())
        return QStringList();
    if (!items.isEmpty())
        return pathsFor(action, project.kind, items, workspace.gitFacts);
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
                                                          const QList<PromptField> &asked, Texts entered) const {
    // An offered text that was left alone comes back without the blanks at its ends, which a name may have.
    for (const PromptField &field : asked) {
        if (entered.value(field.key) == field.value.trimmed())
            entered.insert(field.key, field.value);
    }
    for (const CommandField &field : command.fields) {
        QString &text = entered[field.key.toString()];
        if (field.kind == CommandField::Kind::target)
            text = workspace.typedSource(project, text);
    }
    return entered;
}

} // namespace kestor

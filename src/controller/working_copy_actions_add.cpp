#include "controller/working_copy_actions.h"
#include "rules/working_copy_paths.h"

#include <QCoroFuture>
#include <QFileInfo>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QList<WorkingCopyItem> withoutUnversionedFolders(QList<WorkingCopyItem> items, const QString &root) {
    items.removeIf([&root](const WorkingCopyItem &item) {
        const QFileInfo info(absolutePath(item.path, root));
        return item.kind == SVNStatusKind::unversioned && isFolder(info);
    });
    return items;
}

} // namespace

QCoro::Task<> WorkingCopyActions::addSelectedPaths() {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<Project> project = projectFor(workingCopyCommand(WorkingCopyAction::add));
    if (!project)
        co_return;
    const QList<WorkingCopyItem> acted = workspace.actionItems();
    if (acted.isEmpty())
        co_return co_await perform(WorkingCopyAction::add, QString());
    if (project->kind == RepositoryKind::git)
        co_return co_await addToGit(*project, acted);
    const QList<WorkingCopyItem> items = unversionedItems(acted, workspace.selectedChange());
    if (items.isEmpty())
        workspace.showAlert(u"Add Failed"_s, u"Only unversioned paths can be added."_s);
    else
        co_await addToSubversion(*project, items);
}

/// A folder that is a row holds nothing that is one: Git would add what the rules hide.
QCoro::Task<> WorkingCopyActions::addToGit(Project project, QList<WorkingCopyItem> items) {
    QList<WorkingCopyItem> files;
    {
        const BusyScope looking(workspace.busy, u"Add"_s);
        const auto look = [items, root = project.path] {
            return withoutUnversionedFolders(items, root);
        };
        files = co_await QtConcurrent::run(&workspace.workers, look);
    }
    if (files.isEmpty()) {
        workspace.showAlert(u"Add Failed"_s, onlyFoldersText());
        co_return;
    }
    const std::optional<QStringList> paths = requiredPaths(WorkingCopyAction::add, project, files);
    if (paths)
        co_await run(WorkingCopyAction::add, project, Texts(), *paths);
}

QCoro::Task<> WorkingCopyActions::addToSubversion(Project project, QList<WorkingCopyItem> items) {
    Texts entered;
    {
        const BusyScope looking(workspace.busy, u"Add"_s);
        const auto find = [items, root = project.path] {
            return foldersAmong(items, root);
        };
        // The row of a folder stands for the folder alone: svn would add what the rules hide in it, or what is
        // versioned elsewhere.
        const QStringList folders = co_await QtConcurrent::run(&workspace.workers, find);
        if (!folders.isEmpty())
            entered.insert(u"depth"_s, u"empty"_s);
    }
    const QStringList paths = pathsFor(WorkingCopyAction::add, project.kind, items, workspace.gitFacts);
    co_await run(WorkingCopyAction::add, project, entered, paths);
}

} // namespace kestor

#include "controller/working_copy_actions.h"
#include "rules/working_copy_paths.h"

#include <QCoroFuture>
#include <QFileInfo>
#include <QtConcurrent>

#include <algorithm>
#include <iterator>

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

struct SvnAdditions {
    QList<WorkingCopyItem> items{};
    bool holdFolders = false;
};

/// What svn is to add of the rows acted on: a deleted path that stands on disk only when nothing is unversioned.
SvnAdditions svnAdditions(const QList<WorkingCopyItem> &acted, const std::optional<WorkingCopyItem> &selected,
                          const QString &root) {
    SvnAdditions additions{unversionedItems(acted, selected)};
    if (additions.items.isEmpty())
        std::ranges::copy_if(acted, std::back_inserter(additions.items), [&root](const WorkingCopyItem &item) {
            return item.kind == SVNStatusKind::deleted && isOnDisk(absolutePath(item.path, root));
        });
    additions.holdFolders = !foldersAmong(additions.items, root).isEmpty();
    return additions;
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
    co_await addToSubversion(*project, acted);
}

/// A folder that is a row holds nothing that is one: Git would add what the rules hide.
QCoro::Task<> WorkingCopyActions::addToGit(Project project, QList<WorkingCopyItem> items) {
    const GitRowFacts facts = workspace.gitFacts;
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
    const QStringList paths = pathsFor(WorkingCopyAction::add, project.kind, files, facts);
    co_await run(WorkingCopyAction::add, project, Texts(), paths);
}

QCoro::Task<> WorkingCopyActions::addToSubversion(Project project, QList<WorkingCopyItem> items) {
    SvnAdditions additions;
    {
        const BusyScope looking(workspace.busy, u"Add"_s);
        const auto look = [items, selected = workspace.selectedChange(), root = project.path] {
            return svnAdditions(items, selected, root);
        };
        additions = co_await QtConcurrent::run(&workspace.workers, look);
    }
    if (additions.items.isEmpty()) {
        workspace.showAlert(u"Add Failed"_s, u"Only unversioned paths can be added."_s);
        co_return;
    }
    // The row of a folder stands for the folder alone: svn would add what the rules hide in it, or what is versioned
    // elsewhere.
    Texts entered;
    if (additions.holdFolders)
        entered.insert(u"depth"_s, u"empty"_s);
    const QStringList paths = pathsFor(WorkingCopyAction::add, project.kind, additions.items, GitRowFacts());
    co_await run(WorkingCopyAction::add, project, entered, paths);
}

} // namespace kestor

#include "controller/commit_plan.h"

#include "controller/commit_selection.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// The arguments that prepare a row for an svn commit; none when it needs nothing.
QStringList svnPreparation(const WorkingCopyItem &item, const QSet<QString> &folders) {
    switch (item.kind) {
    case SVNStatusKind::missing:
        return args(u"delete", u"--force");
    case SVNStatusKind::unversioned:
        return folders.contains(item.path) ? args(u"add", u"--parents", u"--force", u"--depth", u"empty")
                                           : args(u"add", u"--parents", u"--force");
    default:
        return {};
    }
}

/// Whether one of `paths` holds another or is a folder.
bool takesFolders(const QStringList &paths, const QSet<QString> &folders) {
    const QSet<QString> committed(paths.begin(), paths.end());
    return std::any_of(paths.begin(), paths.end(), [&](const QString &path) {
        return folders.contains(path) || committed.contains(parentPath(path));
    });
}

/// The missing rows that lie in another one: svn deletes them with it.
QSet<QString> deletedWithTheirFolder(const QList<WorkingCopyItem> &items) {
    QSet<QString> missing;
    for (const WorkingCopyItem &item : items) {
        if (item.kind == SVNStatusKind::missing)
            missing.insert(item.path);
    }
    QSet<QString> inside = missing;
    inside.removeIf([&missing](const QString &path) {
        const QStringList folders = foldersAbove(path);
        return std::none_of(folders.begin(), folders.end(),
                            [&missing](const QString &folder) { return missing.contains(folder); });
    });
    return inside;
}

} // namespace

QList<WorkingCopyItem> CommitRequest::items() const {
    return ticked.in(changes).items();
}

QStringList svnCommitPaths(const CommitRequest &request) {
    QSet<QString> addedPaths;
    for (qsizetype row = 0; row < request.changes.size(); ++row) {
        const SVNStatusKind kind = request.changes.statusAt(row).kind;
        if (kind == SVNStatusKind::added || kind == SVNStatusKind::replaced)
            addedPaths.insert(request.changes.pathAt(row).toString());
    }
    QSet<QString> paths;
    for (const WorkingCopyItem &item : request.items()) {
        paths.insert(item.path);
        for (const QString &folder : foldersAbove(item.path)) {
            if (addedPaths.contains(folder) || (item.unversionedRoot && isAtOrBelow(folder, *item.unversionedRoot)))
                paths.insert(folder);
        }
    }
    QStringList sorted(paths.begin(), paths.end());
    sorted.sort();
    return sorted;
}

MessageNamesFile messageNamesFile(const QString &message, const QString &directory) {
    const bool names = !message.contains(u'\n') && QFileInfo::exists(QDir(directory).absoluteFilePath(message));
    return names ? MessageNamesFile::yes : MessageNamesFile::no;
}

CommitPlan svnCommitPlan(const CommitRequest &request, MessageNamesFile messageNamesFile) {
    CommitPlan plan;
    const QList<WorkingCopyItem> items = request.items();
    const QSet<QString> deletedAlready = deletedWithTheirFolder(items);
    for (const WorkingCopyItem &item : items) {
        const QStringList preparation = svnPreparation(item, request.folders);
        if (preparation.isEmpty() || deletedAlready.contains(item.path))
            continue;
        if (plan.preparation.isEmpty() || plan.preparation.last().before != preparation)
            plan.preparation.append(PathCommand{preparation});
        plan.preparation.last().paths.append(item.path);
    }
    plan.commit = {args(u"commit"), svnCommitPaths(request), args(u"-m", request.message)};
    if (takesFolders(plan.commit.paths, request.folders))
        plan.commit.after += args(u"--depth", u"empty");
    if (messageNamesFile == MessageNamesFile::yes)
        plan.commit.after += args(u"--force-log");
    return plan;
}

QStringList svnPathsInDoubt(const CommitRequest &request) {
    QStringList paths;
    for (const WorkingCopyItem &item : request.items()) {
        if (item.kind == SVNStatusKind::missing && item.revision == u"-1"_s)
            paths.append(item.path);
    }
    return paths;
}

CommitPlan gitCommitPlan(const CommitRequest &request, GitCommitExtent extent) {
    PathCommand removed{args(u"rm", u"--cached", u"--force")};
    PathCommand added{args(u"add", u"--all")};
    PathCommand commit{args(u"commit", u"-m", request.message)};
    for (const WorkingCopyItem &item : request.items()) {
        if (item.kind == SVNStatusKind::unversioned && request.folders.contains(item.path))
            continue;
        if (request.unaddable.contains(item.path))
            removed.paths.append(item.path);
        else if (!request.git.notInIndex.contains(item.path))
            added.paths.append(item.path);
        if (!request.git.onlyInIndex.contains(item.path))
            commit.paths.append(item.path);
        const auto oldName = request.git.oldNames.constFind(item.path);
        if (oldName == request.git.oldNames.constEnd())
            continue;
        commit.paths.append(*oldName);
        if (request.git.notYetRenamed.contains(item.path))
            removed.paths.append(*oldName);
    }
    if (extent == GitCommitExtent::index)
        commit.paths.clear();
    QList<PathCommand> preparation{removed, added};
    preparation.removeIf([](const PathCommand &step) { return step.paths.isEmpty(); });
    return {preparation, commit};
}

bool coversWholeMerge(const CommitRequest &request) {
    const MarkedPaths ticked = request.ticked.in(request.changes);
    for (qsizetype row = 0; row < request.changes.size(); ++row) {
        const WorkingCopyItem status = request.changes.statusAt(row);
        if (!ticked.isMarked(row) && isCommittable(status) && status.kind != SVNStatusKind::unversioned)
            return false;
    }
    return true;
}

} // namespace kestor

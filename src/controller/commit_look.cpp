#include "controller/commit_look.h"

#include "rules/project_bounds.h"
#include "rules/working_copy_paths.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// Whether the file holds lines as an unresolved merge leaves them.
bool holdsConflictMarkers(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    bool begun = false;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        begun = begun || line.startsWith("<<<<<<< ");
        if (begun && line.startsWith(">>>>>>> "))
            return true;
    }
    return false;
}

/// The repository of its own that an unversioned row is or lies in.
std::optional<QString> nestedRepository(const WorkingCopyItem &item, const Project &project) {
    if (item.kind != SVNStatusKind::unversioned)
        return std::nullopt;
    const QString topmost = item.unversionedRoot.value_or(item.path);
    for (const QString &folder : foldersAbove(item.path + u'/')) {
        const QString location = absolutePath(folder, project.path);
        if (isAtOrBelow(folder, topmost) && !QFileInfo(location).isSymLink() &&
            isOnDisk(absolutePath(metadataName(project.kind), location)))
            return folder;
    }
    return std::nullopt;
}

/// The facts that still hold on disk.
GitRowFacts factsOnDisk(const GitRowFacts &facts, const QString &root) {
    GitRowFacts still = withVacantOldNames(facts, root);
    still.onlyInIndex.removeIf([&root](const QString &path) { return standsInside(path, root); });
    return still;
}

/// Notes how Git can be told of a deletion, for which `git add` and a commit by name look at the disk alone.
void lookAtDeletion(CommitRequest &request, const QString &path, const QString &root) {
    const bool kept = standsInside(path, root);
    if (kept)
        request.keptOnDisk.append(path);
    if ((kept || !liesInside(path, root)) && !request.git.notInIndex.contains(path))
        request.unaddable.insert(path);
}

/// Whether the row was gone when it was loaded and is a file again.
bool cameBack(const WorkingCopyItem &item, const QFileInfo &info, const CommitRequest &request) {
    if (item.kind == SVNStatusKind::missing)
        return isOnDisk(info.filePath());
    return request.unaddable.contains(item.path) && request.keptOnDisk.contains(item.path) &&
           (info.isFile() || info.isSymLink());
}

std::optional<QString> obstacleOf(const WorkingCopyItem &item, const QFileInfo &info, const CommitRequest &request,
                                  const Project &project) {
    if (cameBack(item, info, request))
        return item.path + u" is on disk again. Refresh before committing it."_s;
    if (item.kind == SVNStatusKind::conflicted && info.isFile() && holdsConflictMarkers(info.filePath()))
        return item.path + u" still holds conflict markers. Resolve the conflict before committing it."_s;
    if (hasLostName(item.path, request.git, project.path))
        return item.path + u" has a name that is not UTF-8. Untick it and commit it in a terminal."_s;
    if (const std::optional<QString> nested = nestedRepository(item, project))
        return *nested + u" is a repository of its own. Untick it and what is in it, then commit again."_s;
    return std::nullopt;
}

bool isEverythingStagedTicked(const CommitRequest &request) {
    QSet<QString> unticked = request.git.staged;
    for (const WorkingCopyItem &item : request.items())
        unticked.remove(item.path);
    return unticked.isEmpty();
}

} // namespace

CommitLook lookAtTickedPaths(const CommitRequest &ticked, const Project &project) {
    CommitLook look{ticked, std::nullopt};
    CommitRequest &request = look.request;
    request.git = factsOnDisk(ticked.git, project.path);
    for (const WorkingCopyItem &item : ticked.items()) {
        const QFileInfo info(absolutePath(item.path, project.path));
        if (isFolder(info))
            request.folders.insert(item.path);
        const bool isGone = item.kind == SVNStatusKind::deleted || request.git.onlyInIndex.contains(item.path);
        if (isGone && project.kind == RepositoryKind::git)
            lookAtDeletion(request, item.path, project.path);
        look.obstacle = obstacleOf(item, info, request, project);
        if (look.obstacle)
            return look;
    }
    if (!request.keptOnDisk.isEmpty() && !isEverythingStagedTicked(request))
        look.obstacle = request.keptOnDisk.first() + u" is deleted in Git, but on disk. Git commits this only with "
                                                     "everything that is staged. Tick every changed path, then commit "
                                                     "again."_s;
    return look;
}

} // namespace kestor

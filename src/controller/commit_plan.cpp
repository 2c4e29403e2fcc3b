#include "controller/commit_plan.h"

#include "controller/commit_selection.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <optional>

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

QStringList pathsOf(const QList<WorkingCopyItem> &items) {
    QStringList paths;
    for (const WorkingCopyItem &item : items)
        paths.append(item.path);
    return paths;
}

QStringList oldNamesOf(const QList<WorkingCopyItem> &items, const QHash<QString, QString> &oldNames) {
    QStringList names;
    for (const WorkingCopyItem &item : items) {
        const auto name = oldNames.constFind(item.path);
        if (name != oldNames.constEnd())
            names.append(*name);
    }
    return names;
}

} // namespace

QList<WorkingCopyItem> CommitRequest::items() const {
    QList<WorkingCopyItem> all;
    std::copy_if(changes.begin(), changes.end(), std::back_inserter(all),
                 [this](const WorkingCopyItem &item) { return ticked.contains(item.path); });
    return all;
}

QStringList svnCommitPaths(const CommitRequest &request) {
    QSet<QString> addedPaths;
    for (const WorkingCopyItem &item : request.changes) {
        if (item.kind == SVNStatusKind::added || item.kind == SVNStatusKind::replaced)
            addedPaths.insert(item.path);
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
    for (const WorkingCopyItem &item : request.items()) {
        const QStringList preparation = svnPreparation(item, request.folders);
        if (preparation.isEmpty())
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

CommitPlan gitCommitPlan(const CommitRequest &request) {
    const QList<WorkingCopyItem> items = request.items();
    const QStringList paths = pathsOf(items);
    // What is neither in the index nor on disk cannot be added: old names, and deletions that are staged.
    QStringList added = paths;
    added.removeIf([&request](const QString &path) { return request.git.notInIndex.contains(path); });
    QList<PathCommand> preparation;
    if (!added.isEmpty())
        preparation.append(PathCommand{args(u"add", u"--all"), added});
    return {preparation, {args(u"commit", u"-m", request.message), paths + oldNamesOf(items, request.git.oldNames)}};
}

CommitPlan gitMergeCommitPlan(const CommitRequest &request) {
    CommitPlan plan = gitCommitPlan(request);
    plan.commit.paths.clear();
    return plan;
}

bool coversWholeMerge(const CommitRequest &request) {
    return std::all_of(request.changes.begin(), request.changes.end(), [&request](const WorkingCopyItem &item) {
        return request.ticked.contains(item.path) || !isCommittable(item) || item.kind == SVNStatusKind::unversioned;
    });
}

} // namespace kestor

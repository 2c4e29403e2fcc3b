#include "controller/commit_plan.h"

#include "controller/commit_selection.h"
#include "tools/arguments.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// The arguments that prepare a row for an svn commit; none when it needs nothing.
QStringList svnPreparation(const WorkingCopyItem &item) {
    switch (item.kind) {
    case SVNStatusKind::missing:
        return args(u"delete", u"--force");
    case SVNStatusKind::unversioned:
        return args(u"add", u"--parents", u"--force");
    default:
        return {};
    }
}

/// The folders above `path`, the topmost first.
QStringList foldersAbove(const QString &path) {
    QStringList folders;
    for (qsizetype slash = path.indexOf(u'/'); slash >= 0; slash = path.indexOf(u'/', slash + 1))
        folders.append(path.first(slash));
    return folders;
}

bool isAtOrBelow(const QString &path, const QString &folder) {
    return path == folder || (path.startsWith(folder) && path.at(folder.size()) == u'/');
}

/// Whether committing `paths` with everything below them would take a row that is not ticked.
bool wouldTakeMore(const CommitRequest &request, const QStringList &paths) {
    const QSet<QString> committed(paths.begin(), paths.end());
    return std::any_of(request.changes.begin(), request.changes.end(), [&](const WorkingCopyItem &item) {
        if (committed.contains(item.path) || item.kind == SVNStatusKind::unversioned)
            return false;
        const QStringList folders = foldersAbove(item.path);
        return std::any_of(folders.begin(), folders.end(),
                           [&committed](const QString &folder) { return committed.contains(folder); });
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

CommitPlan svnCommitPlan(const CommitRequest &request, MessageNamesFile messageNamesFile) {
    CommitPlan plan;
    for (const WorkingCopyItem &item : request.items()) {
        const QStringList preparation = svnPreparation(item);
        if (preparation.isEmpty())
            continue;
        if (plan.preparation.isEmpty() || plan.preparation.last().before != preparation)
            plan.preparation.append(PathCommand{preparation});
        plan.preparation.last().paths.append(item.path);
    }
    plan.commit = {args(u"commit"), svnCommitPaths(request), args(u"-m", request.message)};
    if (wouldTakeMore(request, plan.commit.paths))
        plan.commit.after += args(u"--depth", u"empty");
    if (messageNamesFile == MessageNamesFile::yes)
        plan.commit.after += args(u"--force-log");
    return plan;
}

CommitPlan gitCommitPlan(const CommitRequest &request) {
    const QList<WorkingCopyItem> items = request.items();
    const QStringList paths = pathsOf(items);
    // An old name is neither in the index nor on disk, so there is nothing that could be added.
    return {{PathCommand{args(u"add", u"--all"), paths}},
            {args(u"commit", u"-m", request.message), paths + oldNamesOf(items, request.gitOldNames)}};
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

#include "controller/checkout_losses.h"

#include "controller/named_paths.h"
#include "controller/path_command.h"
#include "parsers/git_parsers.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QCoroFuture>
#include <QFileInfo>
#include <QSet>
#include <QThreadPool>
#include <QtConcurrent>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// The vector that lists the files that come, as raw entries.
QStringList newFilesArguments(const QStringList &compared) {
    return args(u"diff", u"--raw", u"--no-renames", u"--ignore-submodules=none", u"--diff-filter=A", u"-z") + compared;
}

/// What is in the way of a file that comes at the path; "" when nothing is.
QString occupant(const QString &path, const QString &root) {
    for (const QString &folder : foldersAbove(path)) {
        const QFileInfo info(absolutePath(folder, root));
        if (!isFolder(info))
            return isOnDisk(info.filePath()) ? folder : QString();
    }
    return isOnDisk(absolutePath(path, root)) ? path : QString();
}

/// Whether a submodule comes where there is a folder, which is no loss: another branch left it behind.
bool isLeftBehind(const QString &entry, const QString &path, const QString &root) {
    return entry.startsWith(u":000000 160000 ") && isFolder(QFileInfo(absolutePath(path, root)));
}

/// What stands on disk below `root` where those files come: something at the path itself, or a file where one of its
/// folders is to be. Reads the disk; workers.
QStringList occupiedPaths(const QByteArray &newFiles, const QString &root) {
    const QStringList fields = GitParsers::namesEndedByNul(newFiles); // an entry, then its path
    QStringList occupied;
    for (qsizetype i = 0; i + 1 < fields.size(); i += 2) {
        const QString found = occupant(fields[i + 1], root);
        if (!found.isEmpty() && !isLeftBehind(fields[i], fields[i + 1], root))
            occupied.append(found);
    }
    occupied.removeDuplicates();
    return occupied;
}

/// The vector that lists the ignored files at and below these paths, in the whole project when they are too many to
/// name.
QStringList ignoredPathsArguments(const QStringList &paths) {
    PathCommand command{args(u"ls-files", u"--others", u"--ignored", u"--exclude-standard", u"-z"), paths};
    if (needsPathFile(command))
        command.paths.clear();
    return plainArguments(RepositoryKind::git, command);
}

/// The occupied paths that are or hold something ignored. Workers.
QStringList ignoredAmong(const QStringList &occupied, const QByteArray &ignored) {
    QSet<QString> ignoredPaths; // files, and repositories of their own as one path
    QSet<QString> holding;
    for (const QString &name : GitParsers::namesEndedByNul(ignored)) {
        const QString path = normalizedPath(name);
        ignoredPaths.insert(path);
        for (const QString &folder : foldersAbove(path))
            holding.insert(folder);
    }
    QStringList among;
    std::ranges::copy_if(occupied, std::back_inserter(among), [&](const QString &path) {
        const QStringList above = foldersAbove(path);
        return ignoredPaths.contains(path) || holding.contains(path) ||
               std::ranges::any_of(above, [&](const QString &folder) { return ignoredPaths.contains(folder); });
    });
    return among;
}

/// What stands where the files come that such a vector lists. Throws SVNClientError.
QCoro::Task<QStringList> printedOccupiedPaths(std::shared_ptr<Tool> git, QString directory, QStringList newFiles,
                                              QThreadPool *workers) {
    const SVNCommandResult coming =
        co_await git->run(newFiles, directory, CheckStatus::yes, RunPurpose::backgroundRead);
    const auto look = [printed = coming.stdoutData, directory] {
        return occupiedPaths(printed, directory);
    };
    co_return co_await QtConcurrent::run(workers, look);
}

/// Whether Git refused what it was asked, rather than failed at it.
bool isRefusal(const SVNClientError &error) {
    constexpr qint32 refused = 128;
    return error.failedResult() != nullptr && error.failedResult()->status == refused;
}

/// Those of the occupied paths that are ignored. Throws SVNClientError.
QCoro::Task<QStringList> ignoredOf(std::shared_ptr<Tool> git, QString directory, QStringList occupied,
                                   QThreadPool *workers) {
    if (occupied.isEmpty())
        co_return QStringList();
    const QStringList ignoredPaths = ignoredPathsArguments(occupied);
    const SVNCommandResult ignored =
        co_await git->run(ignoredPaths, directory, CheckStatus::yes, RunPurpose::backgroundRead);
    const auto filter = [occupied, printed = ignored.stdoutData] {
        return ignoredAmong(occupied, printed);
    };
    co_return co_await QtConcurrent::run(workers, filter);
}

} // namespace

QCoro::Task<QStringList> overwrittenIgnoredPaths(Workspace *shared, Project project, QString title, QString range) {
    const BusyScope looking(shared->busy, title, BusyKind::interruptible);
    const std::shared_ptr<Tool> git = shared->tools.git;
    const QStringList newFiles = newFilesArguments(args(range, u"--"));
    QStringList occupied;
    try {
        occupied = co_await printedOccupiedPaths(git, project.path, newFiles, &shared->workers);
    } catch (const SVNClientError &error) {
        if (!isRefusal(error))
            throw;
        // There is no such branch: the command itself tells.
    }
    co_return co_await ignoredOf(git, project.path, occupied, &shared->workers);
}

QString overwritingText(const QStringList &paths) {
    return u"%1 ignored path(s) on disk will be overwritten: %2"_s.arg(QString::number(paths.size()),
                                                                       namedPaths(paths));
}

QCoro::Task<bool> agreesToOverwrite(Workspace *shared, Project project, QString title, QString range) {
    const QStringList overwritten = co_await overwrittenIgnoredPaths(shared, project, title, range);
    if (shared->closing)
        co_return false;
    if (overwritten.isEmpty())
        co_return true;
    co_return co_await shared->user.confirm(title, overwritingText(overwritten));
}

QCoro::Task<bool> overwritesChanges(Workspace *shared, Project project, QString title, QString revision,
                                    QString target) {
    // Three dots are one commit for a checkout, and two for a diff.
    if (revision.contains(u".."))
        co_return true;
    const BusyScope looking(shared->busy, title, BusyKind::interruptible);
    const std::shared_ptr<Tool> git = shared->tools.git;
    const QStringList tracked = args(u"status", u"--porcelain=v1", u"--untracked-files=no", u"--", target);
    // What the revision has and the index has not is written even where the target is a folder.
    const QStringList newFiles = newFilesArguments(args(u"-R", u"--end-of-options", revision, u"--", target));
    try {
        const SVNCommandResult changed =
            co_await git->run(tracked, project.path, CheckStatus::yes, RunPurpose::backgroundRead);
        if (!changed.stdoutData.isEmpty())
            co_return true;
        const QStringList occupied = co_await printedOccupiedPaths(git, project.path, newFiles, &shared->workers);
        co_return !occupied.isEmpty();
    } catch (const SVNClientError &) {
        co_return true;
    }
}

} // namespace kestor

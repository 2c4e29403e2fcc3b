#include "controller/checkout_losses.h"

#include "controller/path_command.h"
#include "model/utf8_text.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QCoroFuture>
#include <QFileInfo>
#include <QSet>
#include <QThreadPool>
#include <QtConcurrent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QStringList namesIn(const QByteArray &printed) {
    return utf8Text(printed).split(QChar::Null, Qt::SkipEmptyParts);
}

/// What is in the way of a file that comes at the path; "" when nothing is.
QString occupant(const QString &path, const QString &root) {
    for (const QString &folder : foldersAbove(path)) {
        const QFileInfo info(absolutePath(folder, root));
        if (info.isSymLink() || !info.isDir())
            return isOnDisk(info.filePath()) ? folder : QString();
    }
    return isOnDisk(absolutePath(path, root)) ? path : QString();
}

/// Whether a submodule comes where there is a folder, which is no loss: another branch left it behind.
bool isLeftBehind(const QString &entry, const QString &path, const QString &root) {
    const QFileInfo info(absolutePath(path, root));
    return entry.startsWith(u":000000 160000 ") && isFolder(info);
}

/// What the checkout overwrites of what is ignored. Throws SVNClientError.
QCoro::Task<qsizetype> overwrittenIgnoredPaths(std::shared_ptr<Tool> git, QString directory, QString range,
                                               QThreadPool *workers) {
    const QStringList newFiles = newFilesArguments(range);
    const SVNCommandResult coming =
        co_await git->run(newFiles, directory, CheckStatus::yes, RunPurpose::backgroundRead);
    const auto look = [printed = coming.stdoutData, directory] {
        return occupiedPaths(printed, directory);
    };
    const QStringList occupied = co_await QtConcurrent::run(workers, look);
    if (occupied.isEmpty())
        co_return 0;
    const QStringList ignoredPaths = ignoredPathsArguments(occupied);
    const SVNCommandResult ignored =
        co_await git->run(ignoredPaths, directory, CheckStatus::yes, RunPurpose::backgroundRead);
    const auto count = [occupied, printed = ignored.stdoutData] {
        return ignoredAmong(occupied, printed);
    };
    co_return co_await QtConcurrent::run(workers, count);
}

} // namespace

QStringList newFilesArguments(const QString &range) {
    return args(u"diff", u"--raw", u"--no-renames", u"--ignore-submodules=none", u"--diff-filter=A", u"-z", range,
                u"--");
}

QStringList occupiedPaths(const QByteArray &newFiles, const QString &root) {
    const QStringList fields = namesIn(newFiles); // an entry, then its path
    QStringList occupied;
    for (qsizetype i = 0; i + 1 < fields.size(); i += 2) {
        const QString found = occupant(fields[i + 1], root);
        if (!found.isEmpty() && !isLeftBehind(fields[i], fields[i + 1], root))
            occupied.append(found);
    }
    occupied.removeDuplicates();
    return occupied;
}

QStringList ignoredPathsArguments(const QStringList &paths) {
    PathCommand command{args(u"ls-files", u"--others", u"--ignored", u"--exclude-standard", u"-z"), paths};
    if (needsPathFile(command))
        command.paths.clear();
    return plainArguments(RepositoryKind::git, command);
}

qsizetype ignoredAmong(const QStringList &occupied, const QByteArray &ignored) {
    QSet<QString> ignoredPaths; // files, and repositories of their own as one path
    QSet<QString> holding;
    for (const QString &name : namesIn(ignored)) {
        const QString path = normalizedPath(name);
        ignoredPaths.insert(path);
        for (const QString &folder : foldersAbove(path))
            holding.insert(folder);
    }
    return std::ranges::count_if(occupied, [&](const QString &path) {
        const QStringList above = foldersAbove(path);
        return ignoredPaths.contains(path) || holding.contains(path) ||
               std::ranges::any_of(above, [&](const QString &folder) { return ignoredPaths.contains(folder); });
    });
}

QCoro::Task<bool> agreesToOverwrite(Workspace *shared, Project project, QString title, QString range) {
    qsizetype overwritten = 0;
    try {
        const BusyScope looking(shared->busy, title, BusyKind::interruptible);
        const std::shared_ptr<Tool> git = shared->tools.git;
        overwritten = co_await overwrittenIgnoredPaths(git, project.path, range, &shared->workers);
    } catch (const SVNClientError &) {
        // There is no such branch, or no Git: the command itself tells.
    }
    if (shared->closing || shared->selectedProjectID.value() != project.id)
        co_return false; // nobody waits for it any more
    if (overwritten == 0)
        co_return true;
    const QString question = u"%1 ignored path(s) on disk will be overwritten."_s.arg(overwritten);
    co_return co_await shared->user.confirm(title, question);
}

} // namespace kestor

#include "controller/commit_preparation.h"

#include "controller/path_command_run.h"
#include "controller/tool_text.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QCoroFuture>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QString lockPath(const GitIndexCopy &copy) {
    return copy.path + u".lock"_s;
}

void writeIndex(const GitIndexCopy &copy) {
    if (QFileInfo::exists(lockPath(copy)))
        return;
    if (!copy.content) {
        QFile::remove(copy.path);
        return;
    }
    QSaveFile file(copy.path);
    if (file.open(QIODevice::WriteOnly) && file.write(*copy.content) == copy.content->size())
        file.commit();
}

std::optional<QByteArray> fileContent(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

QCoro::Task<QByteArray> gitHead(std::shared_ptr<Tool> git, QString directory) {
    const SVNCommandResult result = co_await git->run(args(u"rev-parse", u"--verify", u"--quiet", u"HEAD"), directory,
                                                      CheckStatus::no, RunPurpose::backgroundRead);
    co_return result.stdoutData;
}

/// Runs the command for what it can still do.
QCoro::Task<> attempt(std::shared_ptr<Tool> svn, QString directory, PathCommand command) {
    if (command.paths.isEmpty())
        co_return;
    try {
        co_await runPathCommand(svn, RepositoryKind::svn, directory, command);
    } catch (const SVNClientError &) {
        // The failure of the commit itself is what the user has to read.
    }
}

void removeRestored(const QStringList &paths, const QString &root) {
    for (const QString &path : paths) {
        const QFileInfo info(absolutePath(path, root));
        if (info.isDir() && !info.isSymLink())
            QDir(info.filePath()).removeRecursively();
        else
            QFile::remove(info.filePath());
    }
}

} // namespace

QCoro::Task<GitIndexCopy> copyOfGitIndex(std::shared_ptr<Tool> git, QString directory) {
    GitIndexCopy copy;
    const SVNCommandResult named = co_await git->run(args(u"rev-parse", u"--git-path", u"index"), directory,
                                                     CheckStatus::no, RunPurpose::backgroundRead);
    if (named.status != 0)
        co_return copy;
    copy.path = QDir(directory).absoluteFilePath(toolText(named.stdoutData).trimmed());
    const auto read = [path = copy.path] {
        return fileContent(path);
    };
    const std::optional<QByteArray> content = co_await QtConcurrent::run(read);
    copy.content = content;
    const QByteArray head = co_await gitHead(git, directory);
    copy.head = head;
    co_return copy;
}

QCoro::Task<> restoreGitIndex(std::shared_ptr<Tool> git, QString directory, GitIndexCopy copy) {
    if (copy.path.isEmpty())
        co_return;
    try {
        const QByteArray head = co_await gitHead(git, directory);
        if (head != copy.head)
            co_return;
        const auto write = [copy] {
            writeIndex(copy);
        };
        co_await QtConcurrent::run(write);
    } catch (const SVNClientError &) {
        // Git is gone: leave everything as it is.
    }
}

QCoro::Task<> undoSvnPreparation(std::shared_ptr<Tool> svn, QString directory, QList<WorkingCopyItem> items) {
    PathCommand additions{args(u"revert", u"--depth", u"infinity"), {}, {}};
    PathCommand deletions = additions;
    for (const WorkingCopyItem &item : std::as_const(items)) {
        if (item.kind == SVNStatusKind::unversioned)
            additions.paths.append(item.unversionedRoot.value_or(item.path));
        else if (item.kind == SVNStatusKind::missing)
            deletions.paths.append(item.path);
    }
    additions.paths.removeDuplicates();
    co_await attempt(svn, directory, additions);
    co_await attempt(svn, directory, deletions);
    // These were not on the disk before: what is there now came from the revert.
    removeRestored(deletions.paths, directory);
}

QCoro::Task<bool> isMerging(std::shared_ptr<Tool> git, QString directory) {
    const QStringList heads{u"MERGE_HEAD"_s, u"CHERRY_PICK_HEAD"_s};
    for (const QString &head : heads) {
        const SVNCommandResult result = co_await git->run(args(u"rev-parse", u"--verify", u"--quiet", head), directory,
                                                          CheckStatus::no, RunPurpose::backgroundRead);
        if (result.status == 0)
            co_return true;
    }
    co_return false;
}

} // namespace kestor

#include "controller/commit_preparation.h"

#include "controller/git_reference.h"
#include "controller/path_command_run.h"
#include "controller/tool_text.h"
#include "controller/written_file.h"
#include "parsers/svn_xml_parsers.h"
#include "rules/project_bounds.h"
#include "rules/working_copy_paths.h"
#include "tools/arguments.h"

#include <QCoroFuture>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringTokenizer>
#include <QtConcurrent>

#include <algorithm>

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
    // By its time Git tells which files may have changed after it looked at them.
    writeFile(copy.path, *copy.content, copy.modified);
}

/// The copy of the index that stands there now.
GitIndexCopy withContent(GitIndexCopy copy) {
    QFile file(copy.path);
    if (!file.open(QIODevice::ReadOnly))
        return copy;
    copy.content = file.readAll();
    copy.modified = file.fileTime(QFileDevice::FileModificationTime);
    return copy;
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

QStringList missingPaths(QStringList paths, const QString &root) {
    paths.removeIf([&root](const QString &path) { return isOnDisk(absolutePath(path, root)); });
    return paths;
}

/// `paths` without those in doubt that svn does not list.
QStringList pathsStillListed(QStringList paths, const QStringList &inDoubt, const QByteArray &printedStatus) {
    QSet<QString> gone(inDoubt.begin(), inDoubt.end());
    for (const WorkingCopyItem &item : parsedOutput<StatusParser>(printedStatus))
        gone.remove(item.path);
    paths.removeIf([&gone](const QString &path) { return gone.contains(path); });
    return paths;
}

void removeRestored(const QStringList &paths, const QString &root) {
    for (const QString &path : paths) {
        const QFileInfo info(absolutePath(path, root));
        if (!liesInside(path, root))
            continue;
        if (isFolder(info))
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
    const SVNCommandResult head = co_await lookedUpReference(git, u"HEAD"_s, directory);
    copy.head = head.stdoutData;
    const auto read = [copy] {
        return withContent(copy);
    };
    co_return co_await QtConcurrent::run(read);
}

QCoro::Task<> restoreGitIndex(std::shared_ptr<Tool> git, QString directory, GitIndexCopy copy) {
    if (copy.path.isEmpty())
        co_return;
    try {
        const SVNCommandResult head = co_await lookedUpReference(git, u"HEAD"_s, directory);
        if (head.stdoutData != copy.head)
            co_return;
        const auto write = [copy] {
            writeIndex(copy);
        };
        co_await QtConcurrent::run(write);
    } catch (const SVNClientError &) {
        // Git is gone: leave everything as it is.
    }
}

QCoro::Task<std::optional<PathCommand>> stillToCommit(std::shared_ptr<Tool> svn, QString directory, PathCommand commit,
                                                      QStringList inDoubt) {
    if (!inDoubt.isEmpty()) {
        const QStringList arguments = args(u"status", u"--xml");
        const SVNCommandResult result =
            co_await svn->run(arguments, directory, CheckStatus::yes, RunPurpose::backgroundRead);
        const auto read = [paths = commit.paths, inDoubt, printed = result.stdoutData] {
            return pathsStillListed(paths, inDoubt, printed);
        };
        const QStringList known = co_await QtConcurrent::run(read);
        commit.paths = known;
    }
    co_return commit.paths.isEmpty() ? std::nullopt : std::optional(commit);
}

void SvnScheduled::add(const SVNCommandResult &result) {
    constexpr qsizetype pathColumn = 10;
    const QString printed = toolText(result.stdoutData);
    for (const QStringView line : QStringTokenizer(printed, u'\n', Qt::SkipEmptyParts)) {
        const QStringView columns = line.first(std::min(pathColumn, line.size()));
        const bool plain = columns.sliced(1).trimmed().isEmpty();
        if (line.size() > pathColumn && columns[0] == u'A' && (plain || columns == u"A  (bin)  "))
            added.append(line.sliced(pathColumn).toString());
        else if (line.size() > pathColumn && columns[0] == u'D' && plain)
            deleted.append(line.sliced(pathColumn).toString());
    }
}

QCoro::Task<> undoSvnPreparation(std::shared_ptr<Tool> svn, QString directory, SvnScheduled scheduled) {
    // A folder goes after what was added in it.
    std::sort(scheduled.added.begin(), scheduled.added.end(), std::greater<>());
    const PathCommand additions{args(u"revert"), scheduled.added, {}};
    co_await attempt(svn, directory, additions);
    const auto stillGone = [paths = scheduled.deleted, directory] {
        return missingPaths(paths, directory);
    };
    const QStringList gone = co_await QtConcurrent::run(stillGone);
    const PathCommand deletions{args(u"revert", u"--depth", u"infinity"), gone, {}};
    co_await attempt(svn, directory, deletions);
    const auto removeAgain = [gone, directory] {
        removeRestored(gone, directory);
    };
    co_await QtConcurrent::run(removeAgain);
}

QCoro::Task<bool> isMerging(std::shared_ptr<Tool> git, QString directory) {
    const QStringList heads{u"MERGE_HEAD"_s, u"CHERRY_PICK_HEAD"_s};
    for (const QString &head : heads) {
        const SVNCommandResult result = co_await lookedUpReference(git, head, directory);
        if (result.status == 0)
            co_return true;
    }
    co_return false;
}

} // namespace kestor

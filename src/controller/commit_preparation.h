#pragma once

#include "controller/path_command.h"
#include "tools/tool.h"

#include <QByteArray>
#include <QCoroTask>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace kestor {

/// Git's index before a commit prepared it, to go back to when the commit fails.
struct GitIndexCopy {
    QString path{};                      ///< absolute; "" when Git did not tell
    std::optional<QByteArray> content{}; ///< absent when there was none
    QDateTime modified{};                ///< of the file with that content
    QByteArray head{};                   ///< commit that HEAD named
};

/// Reads the index of the repository at `directory`. Throws SVNClientError when Git cannot be started.
QCoro::Task<GitIndexCopy> copyOfGitIndex(std::shared_ptr<Tool> git, QString directory);

/// Puts the index back unless the commit happened after all or another Git holds the lock. Never throws.
QCoro::Task<> restoreGitIndex(std::shared_ptr<Tool> git, QString directory, GitIndexCopy copy);

/// What svn scheduled while a commit was prepared, as it printed it.
struct SvnScheduled {
    QStringList added{};
    QStringList deleted{};

    void add(const SVNCommandResult &result);
};

/// The prepared commit without those paths in doubt that svn knows no longer; nothing when no path is left. Throws
/// SVNClientError.
QCoro::Task<std::optional<PathCommand>> stillToCommit(std::shared_ptr<Tool> svn, QString directory, PathCommand commit,
                                                      QStringList inDoubt);

/// Takes back what was scheduled: what was unversioned is so again, and what was missing is missing. What came back to
/// the disk meanwhile is left alone. Never throws.
QCoro::Task<> undoSvnPreparation(std::shared_ptr<Tool> svn, QString directory, SvnScheduled scheduled);

/// Whether a merge or a cherry-pick waits for its commit.
QCoro::Task<bool> isMerging(std::shared_ptr<Tool> git, QString directory);

} // namespace kestor

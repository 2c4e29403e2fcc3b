#pragma once

#include "controller/commit_plan.h"
#include "tools/tool.h"

#include <QByteArray>
#include <QCoroTask>
#include <QString>

#include <memory>
#include <optional>

namespace kestor {

/// Git's index before a commit prepared it, to go back to when the commit fails.
struct GitIndexCopy {
    QString path{};                      ///< absolute; "" when Git did not tell
    std::optional<QByteArray> content{}; ///< absent when there was none
    QByteArray head{};                   ///< commit that HEAD named
};

/// Reads the index of the repository at `directory`. Throws SVNClientError when Git cannot be started.
QCoro::Task<GitIndexCopy> copyOfGitIndex(std::shared_ptr<Tool> git, QString directory);

/// Puts the index back unless the commit happened after all or another Git holds the lock. Never throws.
QCoro::Task<> restoreGitIndex(std::shared_ptr<Tool> git, QString directory, GitIndexCopy copy);

/// Takes back the additions and deletions that prepared a Subversion commit: unversioned rows become unversioned again
/// and missing ones missing. Never throws.
QCoro::Task<> undoSvnPreparation(std::shared_ptr<Tool> svn, QString directory, QList<WorkingCopyItem> items);

/// Whether a merge or a cherry-pick waits for its commit.
QCoro::Task<bool> isMerging(std::shared_ptr<Tool> git, QString directory);

} // namespace kestor

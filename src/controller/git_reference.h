#pragma once

#include "tools/tool.h"

#include <QCoroTask>
#include <QString>

#include <memory>

namespace kestor {

/// Looks up a commit by a name such as "HEAD". Exit status 0 and its hash printed when there is one, 1 when there is
/// none (HEAD before the first commit), another one outside of a repository. Throws SVNClientError when Git cannot be
/// started.
QCoro::Task<SVNCommandResult> lookedUpReference(std::shared_ptr<Tool> git, QString name, QString directory);

/// The empty tree of the repository's hash kind when it has no commit yet; "" otherwise. Throws SVNClientError when Git
/// cannot be started.
QCoro::Task<QString> emptyTreeBeforeFirstCommit(std::shared_ptr<Tool> git, QString directory);

} // namespace kestor

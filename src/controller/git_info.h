#pragma once

#include "model/repository_info.h"
#include "tools/tool.h"

#include <QCoroTask>

#include <memory>

namespace kestor {

/// The repository information of a Git project from a handful of quick commands: what a later one does not tell stays
/// absent. `relativeURL` is always absent. Throws SVNClientError where Git finds no working copy.
QCoro::Task<RepositoryInfo> gitRepositoryInfo(std::shared_ptr<Tool> git, QString projectPath);

} // namespace kestor

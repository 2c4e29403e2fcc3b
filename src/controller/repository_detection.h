#pragma once

#include "model/project.h"
#include "tools/tool.h"

#include <QCoroTask>

#include <memory>

namespace kestor {

/// The root of a working copy or repository and its kind.
struct DetectedRepository {
    QString root{}; ///< absolute
    RepositoryKind kind = RepositoryKind::svn;

    friend bool operator==(const DetectedRepository &, const DetectedRepository &) = default;
};

/// The root of the Subversion working copy that holds `folder`. Throws SVNClientError when there is none.
QCoro::Task<DetectedRepository> probeSubversion(std::shared_ptr<Tool> svn, QString folder);

/// The top level of the Git repository that holds `folder`. Throws SVNClientError when there is none.
QCoro::Task<DetectedRepository> probeGit(std::shared_ptr<Tool> git, QString folder);

} // namespace kestor

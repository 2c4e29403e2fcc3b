#pragma once

#include "model/project.h"
#include "tools/tool.h"

#include <QCoroTask>

#include <memory>
#include <optional>

namespace kestor {

/// The root of a working copy or repository and its kind.
struct DetectedRepository {
    QString root{}; ///< absolute
    RepositoryKind kind = RepositoryKind::svn;

    friend bool operator==(const DetectedRepository &, const DetectedRepository &) = default;
};

/// The root of the Subversion working copy that holds `folder`. Throws SVNClientError when there is none.
QCoro::Task<DetectedRepository> probeSubversion(std::shared_ptr<Tool> svn, QString folder);

/// The top level of the Git repository that holds `folder`; one that begins above it only with
/// RunPurpose::repositorySearch. Throws SVNClientError when there is none.
QCoro::Task<DetectedRepository> probeGit(std::shared_ptr<Tool> git, QString folder, RunPurpose purpose);

/// Whether both paths lead to one folder, by whatever links. Reads the disk where they differ.
bool isSameFolder(const QString &one, const QString &other);

/// The root that `svn info` reports for `folder`; nothing when it belongs to no working copy.
QCoro::Task<std::optional<QString>> svnWorkingCopyRoot(std::shared_ptr<Tool> svn, QString folder);

/// The top level of the Git repository that holds `folder`; nothing when there is none.
QCoro::Task<std::optional<QString>> gitWorkingCopyRoot(std::shared_ptr<Tool> git, QString folder);

} // namespace kestor

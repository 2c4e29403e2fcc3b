#pragma once

#include "controller/workspace.h"

#include <QCoroTask>
#include <QString>

namespace kestor {

// What Git overwrites without a word when it checks files out. `shared` must outlive the tasks.

/// How many ignored paths a checkout across `range`, such as "HEAD..other", overwrites. 0 as well when Git knows no
/// such range; the checkout then fails and says why. Throws SVNClientError: who does not know what would be lost must
/// not check out. Busy under `title` meanwhile.
QCoro::Task<QStringList> overwrittenIgnoredPaths(Workspace *shared, Project project, QString title, QString range);

/// What the user has to know of such paths.
QString overwritingText(const QStringList &paths);

/// Whether Git may check out across `range`: the user is asked under `title` when ignored files would be overwritten.
/// Throws as overwrittenIgnoredPaths() does.
QCoro::Task<bool> agreesToOverwrite(Workspace *shared, Project project, QString title, QString range);

/// Whether a checkout of `target` as of `revision` overwrites what no commit has, or may do so for all that Git says.
/// Busy under `title` meanwhile.
QCoro::Task<bool> overwritesChanges(Workspace *shared, Project project, QString title, QString revision,
                                    QString target);

} // namespace kestor

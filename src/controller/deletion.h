#pragma once

#include "tools/command_result.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace kestor {

/// What a deletion came to.
struct DeletionResult {
    qsizetype deleted = 0;          ///< paths taken from the disk
    std::optional<QString> error{}; ///< why it stopped, in words for the user

    friend bool operator==(const DeletionResult &, const DeletionResult &) = default;
};

/// The normalised working-copy path of `path` when it may be deleted below `root` (absolute). Throws SVNClientError for
/// the root itself, a path that leaves the root by ".." or through a link, and what is or holds repository metadata.
QString deletablePath(const QString &path, const QString &root);

/// `paths` (normalised) without those below another one of them, sorted.
QStringList topLevelWorkingCopyPaths(QStringList paths);

/// Takes unversioned paths from the disk: into the system's trash, where that fails for good. Links are removed as
/// links. Folders above that became empty go too, never the root. Nothing is touched when any path is refused. Reads
/// and writes the disk; workers.
DeletionResult deleteUnversionedItems(const QStringList &paths, const QString &root);

/// Moves files to the trash, none for good. When one does not go, those that went come back. Workers.
DeletionResult moveToTrash(const QStringList &paths, const QString &root);

} // namespace kestor

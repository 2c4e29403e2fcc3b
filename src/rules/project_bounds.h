#pragma once

#include <QString>
#include <QStringView>

namespace kestor {

// What a tool or a repository says must not lead the program out of the project. Any thread.

/// Whether the working-copy path names its way out of the root by "..".
bool leavesRoot(QStringView path);

/// Whether what the working-copy path names lies below `root` (absolute) on the disk: no ".." and no link among the
/// folders on the way. It may be a link itself. Reads the disk.
bool liesInside(const QString &path, const QString &root);

/// Whether something is there, a link without target included. Reads the disk.
bool standsInside(const QString &path, const QString &root);

/// Whether the file that is read by this path lies below `root`, wherever links lead. Reads the disk.
bool readsInside(const QString &path, const QString &root);

} // namespace kestor

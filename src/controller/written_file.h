#pragma once

#include <QByteArray>
#include <QString>

namespace kestor {

// Writing files that the user asked for. A failure comes back as a text for the user, "" on success, and never leaves
// half a file under the name that the user chose. All block on the disk: workers.

/// Writes `content` to `path`, replacing an older file at the very end.
QString writeFile(const QString &path, const QByteArray &content);

/// An empty file in the folder of the one that a tool shall write, under a name of its own.
struct FileBeside {
    QString path{};
    QString failure{};
};

/// Creates it for `destination`. Fails where no file can be written.
FileBeside createFileBeside(const QString &destination);

/// Gives the file at `path` the name `destination`, replacing an older one. On failure the file is removed.
QString moveIntoPlace(const QString &path, const QString &destination);

/// Removes what createFileBeside created; always "".
QString removedFile(const QString &path);

} // namespace kestor

#pragma once

#include "tools/temporary_folder.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <memory>

namespace kestor {

// Writing files that the user asked for. A failure comes back as a text for the user, "" on success, and never leaves
// half a file under the name that the user chose. All block on the disk: workers.

/// Writes `content` to `path`, replacing an older file at the very end. It then says that it was last changed at
/// `modified`, if that is valid.
QString writeFile(const QString &path, const QByteArray &content, const QDateTime &modified = {});

/// Where a tool shall write a file, on the disk of its destination.
struct FileBeside {
    std::shared_ptr<TemporaryFolder> folder{}; ///< of this file alone
    QString path{};                            ///< in the folder; nothing is there yet
    QString failure{};
};

/// Makes the place for `destination`, and removes those that runs which died left in the same folder. Fails where no
/// file can be written.
FileBeside placeBeside(const QString &destination);

/// Gives the file that was written there the name `destination`, replacing an older one, and removes the place.
QString moveIntoPlace(const FileBeside &file, const QString &destination);

} // namespace kestor

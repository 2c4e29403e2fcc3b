#pragma once

#include "model/file_history.h"

#include <QList>
#include <QString>

namespace kestor {

/// The log turned inside out: its files with the entries that changed them, those changed last first, equally old ones
/// in the localised standard order. Folders are left out. `relativeURL` says, escaped as svn prints it, what the
/// working copy's folder is called in the repository. Two tenths of a second for a million changed paths; workers.
FileHistory groupedByFile(const QList<LogEntry> &entries, const QString &relativeURL);

} // namespace kestor

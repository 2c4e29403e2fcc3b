#pragma once

#include "model/log_entry.h"
#include "model/project.h"

#include <QString>

namespace kestor {

/// `text` as part of a file name: each run of characters other than ASCII letters, digits, "-", "_" and "." becomes one
/// "-"; without "-" and "." at its ends, "Archive" when nothing is left.
QString archiveNameComponent(const QString &text);

/// The name of an archive without ".zip", which is also its one top-level folder: project and revision.
QString archiveRootName(const Project &project, const LogEntry &entry);

/// `path` with ".zip" behind it unless that is its extension.
QString archiveFileName(const QString &path);

/// What names the entry in a command: the number, for Git the full hash. Throws SVNClientError without a hash.
QString archiveRevisionToken(const LogEntry &entry, const Project &project);

} // namespace kestor

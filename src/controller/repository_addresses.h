#pragma once

#include "controller/refusal.h"
#include "model/project.h"

#include <QString>

#include <optional>

namespace kestor {

// Addresses of repositories as users type them. All pure.

/// Which system a URL to check out or to clone belongs to.
RepositoryKind repositoryKindOf(const QString &url);

/// Why the typed URL, or path, goes to no tool: what begins with "-" would be an option, and what is written as on
/// Windows would be taken for the name of a server or of a folder.
std::optional<Refusal> addressRefusal(const QString &typed);

/// The URL, as typed, as svn's target: with "@" at the end when svn would read what follows an "@" as a revision and it
/// is none. A revision typed behind "@" stays one.
QString svnURLTarget(const QString &url);

/// The same where svn takes no revision.
QString svnNewURLTarget(const QString &url);

/// A URL that svn printed as a target, whatever it ends with.
QString svnPrintedURLTarget(const QString &url);

/// The URL of a repository folder of this computer.
QString fileURL(const QString &path);

} // namespace kestor

#pragma once

#include "model/project.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace kestor {

/// A tool run that names paths, perhaps more than a command line may hold.
struct PathCommand {
    QStringList before{}; ///< arguments in front of the paths, for example "commit"
    QStringList paths{};  ///< working-copy paths, as they are
    QStringList after{};  ///< arguments behind the paths

    friend bool operator==(const PathCommand &, const PathCommand &) = default;
};

/// The plain vector: everything in a row, the paths as the tool wants its targets (Git's behind "--").
QStringList plainArguments(RepositoryKind kind, const PathCommand &command);

/// Whether the paths are too long in total to be passed as arguments.
bool needsPathFile(const PathCommand &command);

/// The vector that reads the paths from `file` (absolute), for svn without those that a line of it cannot hold.
QStringList argumentsWithPathFile(RepositoryKind kind, const PathCommand &command, const QString &file);

/// What that file has to hold: one target a line for svn, names ended by NUL for Git.
QByteArray pathFileContent(RepositoryKind kind, const PathCommand &command);

} // namespace kestor

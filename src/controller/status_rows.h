#pragma once

#include "controller/commit_selection.h"
#include "controller/git_status.h"
#include "model/project.h"
#include "model/working_copy_items.h"
#include "rules/folder_reader.h"
#include "tools/command_result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

namespace kestor {

/// The vector that lists the local changes of a project.
QStringList statusArguments(RepositoryKind kind);

/// Whether `svn status` in the project at `root` (absolute) found no working copy there, which it calls a warning and
/// success. Reads the disk then.
bool deniesWorkingCopy(const SVNCommandResult &status, const QString &root);

/// The rows of the Changes list and what belongs to them.
struct StatusRows {
    WorkingCopyItems items{}; ///< filtered by the ignore rules, expanded and sorted
    GitRowFacts git{};
    bool isWhole = true; ///< false when the output breaks off or is no XML, so that rows may be missing
};

/// New rows with the ticks they get.
struct LoadedChanges {
    StatusRows rows{};
    MarkedPaths ticked{};
    TickDecisions decisions{}; ///< those that still count
};

/// The folders of the project at `root` (absolute). Those in which `shown` has unversioned files are read at once, to
/// be done while a status run still works. Workers.
std::shared_ptr<FolderReader> foldersReadAhead(RepositoryKind kind, const QString &root, const WorkingCopyItems &shown);

/// Reads what a status run printed in the project of these folders. Reads ignore files and unversioned folders;
/// workers.
StatusRows statusRows(RepositoryKind kind, const QByteArray &output, FolderReader &folders);

} // namespace kestor

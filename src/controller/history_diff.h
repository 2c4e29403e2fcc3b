#pragma once

#include "model/file_history.h"
#include "model/line_change_summary.h"
#include "model/log_entry.h"
#include "model/project.h"
#include "model/repository_info.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace kestor {

/// The change of the file at `path` (relative to the working copy) in a revision of it; nothing when none is its own.
std::optional<SVNPathChange> changeOf(const QString &path, const FileHistoryRevision &revision,
                                      const QString &relativeURL);

/// What `svn diff -c` of one revision of a file names: the changed path's URL as of that revision, as of the one before
/// for a deletion, so that it does not matter what became of the file since; else the working-copy path.
QString svnHistoryTarget(const RepositoryInfo &info, const QString &path, const FileHistoryRevision &revision);

/// The vector that prints what a revision changed in a file.
QStringList historyDiffArguments(const Project &project, const RepositoryInfo &info, const QString &path,
                                 const FileHistoryRevision &revision);

/// The vector that prints what the line summary of `entries` (newest first, not empty) is counted from.
QStringList historySummaryArguments(RepositoryKind kind, const RepositoryInfo &info, const QList<LogEntry> &entries);

/// The lines in what that vector printed. Linear; workers.
LineChangeSummary historyLineChanges(RepositoryKind kind, const QByteArray &output);

} // namespace kestor

#pragma once

#include "controller/file_versions.h"
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

/// What `svn diff -c` of one revision of a file names: the changed path's URL as of that revision, as of the one before
/// for a deletion, so that it does not matter what became of the file since; else the working-copy path.
QString svnHistoryTarget(const RepositoryInfo &info, const QString &path, const FileHistoryRevision &revision);

/// The vector that prints what a revision changed in a file.
QStringList historyDiffArguments(const Project &project, const RepositoryInfo &info, const QString &path,
                                 const FileHistoryRevision &revision);

/// A file that `action` adds has no version before it, one that it deletes none after it.
SvnVersions svnVersions(const RepositoryInfo &info, const QString &path, const FileHistoryRevision &revision);

/// The same for Git as what gitContent takes for a revision: the first parent, which the first commit lacks, and the
/// commit.
struct GitVersions {
    std::optional<QString> before{};
    std::optional<QString> after{};

    friend bool operator==(const GitVersions &, const GitVersions &) = default;
};
GitVersions gitVersions(const FileHistoryRevision &revision);

/// The vector that prints what the line summary of `entries` (newest first, not empty) is counted from.
QStringList historySummaryArguments(RepositoryKind kind, const RepositoryInfo &info, const QList<LogEntry> &entries);

/// The lines in what that vector printed. Linear; workers.
LineChangeSummary historyLineChanges(RepositoryKind kind, const QByteArray &output);

} // namespace kestor

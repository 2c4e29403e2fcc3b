#pragma once

#include "controller/path_command.h"
#include "model/working_copy_item.h"

#include <QHash>
#include <QList>
#include <QString>

#include <cstdint>

namespace kestor {

/// Whether Git has a commit to go back to.
enum class GitHead : std::uint8_t { exists, unborn };

/// What a revert does to the paths it was given.
struct RevertPlan {
    QList<PathCommand> commands{}; ///< tool runs, in order
    QStringList unversioned{};     ///< deleted from disk
    QStringList deletedByGit{};    ///< new files that Git deletes with their only copy

    /// How many files leave the disk.
    qsizetype deletions() const { return unversioned.size() + deletedByGit.size(); }
    friend bool operator==(const RevertPlan &, const RevertPlan &) = default;
};

/// Svn: everything versioned in one run, added folders after their added contents, deepest first.
RevertPlan svnRevertPlan(const QList<WorkingCopyItem> &items, const QList<WorkingCopyItem> &changes);

/// Git: index and work tree go back to the last commit, old names of renames included. Before the first commit added
/// files are only taken out of the index.
RevertPlan gitRevertPlan(const QList<WorkingCopyItem> &items, const QHash<QString, QString> &oldNames, GitHead head);

/// How a revert is asked for.
enum class RevertScope : std::uint8_t { oneRow, selection, all };

/// The question: what is discarded, and how many files of `deletions` leave the disk.
QString revertQuestion(RevertScope scope, qsizetype count, qsizetype deletions);

} // namespace kestor

#pragma once

#include "controller/deletion.h"
#include "controller/git_revert_rows.h"
#include "controller/path_command.h"
#include "model/working_copy_item.h"

#include <QList>
#include <QSet>
#include <QString>

#include <cstdint>

namespace kestor {

/// Whether Git has a commit to go back to.
enum class GitHead : std::uint8_t { exists, unborn };

/// What a revert does to the paths it was given, whatever stands on the disk.
struct RevertPlan {
    QList<PathCommand> commands{};        ///< tool runs, in order
    QList<UnversionedPath> unversioned{}; ///< deleted from disk
    QStringList overwritten{};            ///< files whose only copy the tool deletes or replaces, if they are on disk
    QStringList displaced{};              ///< paths where the tool leaves nothing of what stands there
    QStringList written{};                ///< paths that the tool writes to, whatever is in the way
    qsizetype leftOut = 0;                ///< rows that are not taken back

    /// How many paths leave the disk, of a plan for what is on it.
    qsizetype deletions() const { return unversioned.size() + overwritten.size(); }
    friend bool operator==(const RevertPlan &, const RevertPlan &) = default;
};

/// The rows that svn added, below no other such one. Whether they are copies decides what a revert leaves of them.
QStringList addedPaths(const QList<WorkingCopyItem> &items);

/// The vector that lists such paths, the whole project when they are too many to name.
QStringList addedPathsArguments(const QStringList &paths);

/// Svn: changes in one run, what was added or is gone in another, in which folders go with all that is in them. Of what
/// was added those in `copied` leave the disk, the others become unversioned.
RevertPlan svnRevertPlan(const QList<WorkingCopyItem> &items, const QSet<QString> &copied);

/// Git: index and work tree go back to the last commit, old names of renames included, but for what is in submodules.
/// Before the first commit added files are only taken out of the index.
RevertPlan gitRevertPlan(const GitRevertRows &rows, GitHead head);

/// Whether the commands of the plan take back every one of the rows.
bool takesBackAll(const RevertPlan &plan, const QList<WorkingCopyItem> &items);

/// The plan for what is on disk now: everything that leaves it is in `unversioned` or `overwritten`, once. Reads the
/// disk below `root` (absolute); workers.
RevertPlan onDisk(RevertPlan plan, const QString &root);

/// How a revert is asked for.
enum class RevertScope : std::uint8_t { oneRow, selection, all };

/// What the user has to know of `count` rows that no revert takes.
QString leftOutText(qsizetype count);

/// The question: what is discarded, how many files of `deletions` leave the disk, and how many rows are left out.
QString revertQuestion(RevertScope scope, qsizetype count, qsizetype deletions, qsizetype leftOut);

} // namespace kestor

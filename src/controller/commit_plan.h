#pragma once

#include "controller/git_status.h"
#include "controller/path_command.h"
#include "model/marked_paths.h"
#include "model/working_copy_items.h"

#include <QList>
#include <QSet>
#include <QString>

#include <cstdint>

namespace kestor {

/// What a commit takes.
struct CommitRequest {
    WorkingCopyItems changes{}; ///< all rows of the list
    MarkedPaths ticked{};       ///< paths to commit, all of them in `changes`
    QString message{};          ///< trimmed, not empty
    GitRowFacts git{};          ///< old names only where nothing else stands now
    QSet<QString> folders{};    ///< ticked paths that are folders on disk
    QStringList keptOnDisk{};   ///< ticked deletions of Git's at whose paths something stands
    QSet<QString> unaddable{};  ///< ticked deletions that `git add` cannot see: these, and those behind a link

    /// The ticked rows in list order.
    QList<WorkingCopyItem> items() const;
};

/// The tool runs of a commit.
struct CommitPlan {
    QList<PathCommand> preparation{}; ///< in order; each stops the commit when it fails
    PathCommand commit{};

    friend bool operator==(const CommitPlan &, const CommitPlan &) = default;
};

/// Whether the message is taken for the name of an existing file, which svn refuses without being told otherwise.
enum class MessageNamesFile : std::uint8_t { no, yes };

/// What holds for `message` where svn runs in `directory`. Looks at the disk.
MessageNamesFile messageNamesFile(const QString &message, const QString &directory);

/// Missing rows are deleted, the topmost for all below them, and unversioned ones added first, neighbours in one run;
/// then everything is committed, with the new folders on the way. A folder goes alone, without what its row does not
/// tell of.
CommitPlan svnCommitPlan(const CommitRequest &request, MessageNamesFile messageNamesFile);

/// The ticked paths that were added or replaced and are gone from the disk: what svn knew only as added it knows no
/// longer once the commit is prepared, and then cannot commit.
QStringList svnPathsInDoubt(const CommitRequest &request);

/// What a commit of Git's takes: paths by name, or the index, as during a merge.
enum class GitCommitExtent : std::uint8_t { paths, index };

/// Everything ticked that is not staged whole is added, and old names that the index still has are taken out of it.
/// Then everything is committed together with the old names of renames, but for what was new in the index and is gone.
/// Unversioned folders are left out: Git keeps none, and would take files in them that no row tells of. A commit of the
/// index names no paths.
CommitPlan gitCommitPlan(const CommitRequest &request, GitCommitExtent extent);

/// Whether a merge can be committed: nothing that belongs to it is left unticked.
bool coversWholeMerge(const CommitRequest &request);

/// The paths of one Subversion commit, in ascending order: the ticked ones and the folders on their way that are added
/// by the same commit.
QStringList svnCommitPaths(const CommitRequest &request);

} // namespace kestor

#pragma once

#include "controller/git_status.h"
#include "controller/path_command.h"
#include "model/working_copy_item.h"

#include <QList>
#include <QSet>
#include <QString>

#include <cstdint>

namespace kestor {

/// What a commit takes.
struct CommitRequest {
    QList<WorkingCopyItem> changes{}; ///< all rows of the list
    QSet<QString> ticked{};           ///< paths to commit, all of them in `changes`
    QString message{};                ///< trimmed, not empty
    GitRowFacts git{};                ///< old names only where nothing else stands now
    QSet<QString> folders{};          ///< ticked paths that are folders on disk

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

/// Missing rows are deleted and unversioned ones added first, neighbours in one run; then everything is committed, with
/// the new folders on the way. A folder goes alone, without what its row does not tell of.
CommitPlan svnCommitPlan(const CommitRequest &request, MessageNamesFile messageNamesFile);

/// Everything ticked that is not staged whole is added, then everything is committed together with the old names of
/// renames.
CommitPlan gitCommitPlan(const CommitRequest &request);

/// The same during a merge, which Git commits as a whole: the commit names no paths.
CommitPlan gitMergeCommitPlan(const CommitRequest &request);

/// Whether a merge can be committed: nothing that belongs to it is left unticked.
bool coversWholeMerge(const CommitRequest &request);

/// The paths of one Subversion commit, in ascending order: the ticked ones and the folders on their way that are added
/// by the same commit.
QStringList svnCommitPaths(const CommitRequest &request);

} // namespace kestor

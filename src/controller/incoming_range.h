#pragma once

#include "model/file_history.h"
#include "model/log_entry.h"
#include "model/repository_info.h"
#include "model/working_copy_item.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace kestor {

/// The revisions between a working copy and its repository.
struct IncomingRange {
    std::optional<qint64> base{}; ///< of the working copy
    std::optional<qint64> head{}; ///< of the repository

    /// Whether no revision lies between both, or one of them is unknown.
    bool isEmpty() const { return !base || !head || *base >= *head; }
    friend bool operator==(const IncomingRange &, const IncomingRange &) = default;
};

/// "r10 to r15"; nothing when one of both is unknown.
std::optional<QString> rangeDescription(const IncomingRange &range);

/// The revision of a working copy's folder; nothing when it is not known.
std::optional<qint64> workingRevision(const RepositoryInfo &info);

/// What a working copy and its repository say of each other.
struct IncomingStatus {
    RepositoryInfo info{};
    IncomingRange range{};
    QList<WorkingCopyItem> outdatedItems{}; ///< sorted by path, those of externals too

    friend bool operator==(const IncomingStatus &, const IncomingStatus &) = default;
};

/// Reads what `svn info --xml` and `svn status --xml -u` printed. The base is the smallest revision of the items that
/// are out of date, externals apart, since those may count the revisions of another repository; without such items it
/// is the revision of the working copy. Workers.
IncomingStatus incomingStatus(const QByteArray &printedInfo, const QByteArray &printedStatus);

/// The vector that prints the log of `range`, which is not empty.
QStringList incomingLogArguments(const IncomingRange &range);

/// The same for the working copy's URL as it is at the head, whatever stood there before; empty when it is not known.
QStringList incomingLogArguments(const RepositoryInfo &info, const IncomingRange &range);

/// The entries of a printed log that lie in `range`, which is not empty, newest first. Where they equal `known` that
/// list is returned, so that publishing it again compares nothing. Workers.
QList<LogEntry> incomingEntriesOf(const QByteArray &printedLog, const IncomingRange &range,
                                  const QList<LogEntry> &known);

/// The vector that prints the diff of all of `range`, which is not empty.
QStringList incomingSummaryArguments(const RepositoryInfo &info, const IncomingRange &range);

/// The vector that prints what a revision changes in the working copy.
QStringList incomingDiffArguments(qint64 revision);

/// The one file that a revision changes.
struct ChangedFile {
    QString path{}; ///< relative to the working copy
    FileHistoryRevision revision{};

    friend bool operator==(const ChangedFile &, const ChangedFile &) = default;
};

/// The file that `entry` changes in the working copy; nothing when it changes a folder or several paths there.
std::optional<ChangedFile> onlyChangedFile(const LogEntry &entry, const RepositoryInfo &info);

} // namespace kestor

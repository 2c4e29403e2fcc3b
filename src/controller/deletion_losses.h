#pragma once

#include "model/working_copy_item.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace kestor {

/// What the tools delete from the disk without a way back, and without a question of their own.
struct DeletionLosses {
    qsizetype inConflict = 0; ///< rows whose conflict may be half resolved by hand
    qsizetype ignored = 0;    ///< ignored paths in versioned folders

    bool any() const { return inConflict > 0 || ignored > 0; }
    friend bool operator==(const DeletionLosses &, const DeletionLosses &) = default;
};

/// The question before a deletion of `count` rows with losses.
QString deletionQuestion(qsizetype count, const DeletionLosses &losses);

/// The paths of the rows that are folders on disk below `root` (absolute). Reads the disk; workers.
QStringList foldersAmong(const QList<WorkingCopyItem> &items, const QString &root);

/// The vector that lists what is ignored in the folders, in the whole project when they are too many to name.
QStringList ignoredFilesArguments(const QStringList &folders);

/// How many ignored paths in the folders such a run printed. Workers.
qsizetype ignoredBelow(const QStringList &folders, const QByteArray &printed);

} // namespace kestor

#pragma once

#include "controller/deletion.h"
#include "model/working_copy_item.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace kestor {

/// What the tools delete from the disk without a way back, and without a question of their own.
struct DeletionLosses {
    qsizetype inConflict = 0; ///< rows whose conflict may be half resolved by hand
    QStringList ignored{};    ///< ignored paths in versioned folders

    bool any() const { return inConflict > 0 || !ignored.isEmpty(); }
    friend bool operator==(const DeletionLosses &, const DeletionLosses &) = default;
};

/// The question before a deletion of `count` rows with losses.
QString deletionQuestion(qsizetype count, const DeletionLosses &losses);

/// The paths of the rows that are folders on disk below `root` (absolute). Reads the disk; workers.
QStringList foldersAmong(const QList<WorkingCopyItem> &items, const QString &root);

/// The vector that lists what is ignored in the folders, in the whole project when they are too many to name.
QStringList ignoredFilesArguments(const QStringList &folders);

/// The ignored paths in the folders that such a run printed. Workers.
QStringList ignoredBelow(const QStringList &folders, const QByteArray &printed);

/// Takes back from the trash what lay in a folder that was not deleted after all. Workers.
void takeBackFromKeptFolders(QList<TrashedPath> moved);

} // namespace kestor

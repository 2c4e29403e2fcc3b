#pragma once

#include "controller/git_status.h"
#include "model/working_copy_item.h"

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

namespace kestor {

/// The rows that a revert takes back with Git, and what only the disk and the last commit tell of them.
struct GitRevertRows {
    QList<WorkingCopyItem> items{};
    GitRowFacts facts{};        ///< old names only where nothing else stands now
    QSet<QString> folders{};    ///< versioned rows that are folders on disk
    QSet<QString> submodules{}; ///< those of them that are submodules in the last commit
    qsizetype leftOut = 0;      ///< rows whose names were no UTF-8, so that Git cannot be told of them
};

/// The rows, without `submodules`. Reads the disk below `root` (absolute); workers.
GitRevertRows gitRevertRows(QList<WorkingCopyItem> items, const GitRowFacts &facts, const QString &root);

/// The vector that lists what the last commit has at these paths, or everywhere when they are too many to name.
QStringList committedEntriesArguments(const QSet<QString> &paths);

/// The submodules in what such a run printed.
QSet<QString> submodulesAmong(const QByteArray &printed);

} // namespace kestor

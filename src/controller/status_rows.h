#pragma once

#include "model/project.h"
#include "model/working_copy_item.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

namespace kestor {

/// The vector that lists the local changes of a project.
QStringList statusArguments(RepositoryKind kind);

/// The rows of the Changes list and what belongs to them.
struct StatusRows {
    QList<WorkingCopyItem> items{};        ///< filtered by the ignore rules, expanded and sorted
    QHash<QString, QString> gitOldNames{}; ///< path of a renamed row to its old path
};

/// The rows of a list with the ticks they had.
struct TickedRows {
    QList<WorkingCopyItem> items{};
    QSet<QString> ticked{};
};

/// New rows with the ticks they get.
struct LoadedChanges {
    StatusRows rows{};
    QSet<QString> ticked{};
};

/// Reads what a status run printed in the project at `root` (absolute). Reads ignore files and unversioned folders;
/// workers.
StatusRows statusRows(RepositoryKind kind, const QString &root, const QByteArray &output);

} // namespace kestor

#pragma once

#include "model/project.h"
#include "model/working_copy_item.h"

#include <QByteArray>
#include <QHash>
#include <QList>
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

/// Reads what a status run printed in the project at `root` (absolute). Reads ignore files and unversioned folders;
/// workers.
StatusRows statusRows(RepositoryKind kind, const QString &root, const QByteArray &output);

} // namespace kestor

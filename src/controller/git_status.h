#pragma once

#include "model/working_copy_item.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringView>

namespace kestor {

/// What Git says of rows and the records have no field for.
struct GitRowFacts {
    QHash<QString, QString> oldNames{}; ///< new path of a rename to its old path
    QSet<QString> notInHead{};          ///< copies, and paths in conflict, that the last commit does not have
    QSet<QString> notInIndex{};         ///< staged deletions
    QSet<QString> notYetRenamed{};      ///< new paths of renames whose old name the index still has
    QSet<QString> retyped{};            ///< paths that were a file, a link or a repository, and are another of these
    QSet<QString> staged{};             ///< paths whose entry in the index is not the last commit's
    QSet<QString> onlyInIndex{};        ///< new there, and gone from the disk

    friend bool operator==(const GitRowFacts &, const GitRowFacts &) = default;
};

/// The facts without the old names at which something stands now: that is no part of the rename. Reads the disk below
/// `root`; workers.
GitRowFacts withVacantOldNames(GitRowFacts facts, const QString &root);

/// Whether a name of the row at `path` was no UTF-8, so that Git cannot be told of it. Reads the disk below `root`.
bool hasLostName(const QString &path, const GitRowFacts &facts, const QString &root);

/// A Git status listing.
struct GitStatus {
    QList<WorkingCopyItem> items{}; ///< unsorted
    GitRowFacts facts{};

    friend bool operator==(const GitStatus &, const GitStatus &) = default;
};

/// Reads `git status --porcelain=v1`, names with quotes, line feeds, tabs or " -> " included. Bytes of names that are
/// no UTF-8 become U+FFFD. Any thread.
GitStatus gitStatus(QStringView text);

} // namespace kestor

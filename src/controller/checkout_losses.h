#pragma once

#include "controller/workspace.h"

#include <QByteArray>
#include <QCoroTask>
#include <QString>
#include <QStringList>

namespace kestor {

/// The vector that lists, as raw entries, the files that come with a checkout across `range`, such as "HEAD..other".
QStringList newFilesArguments(const QString &range);

/// What stands on disk below `root` (absolute) where those files come: something at the path itself, or a file where
/// one of its folders is to be. Reads the disk; workers.
QStringList occupiedPaths(const QByteArray &newFiles, const QString &root);

/// The vector that lists the ignored files at and below these paths, in the whole project when they are too many to
/// name.
QStringList ignoredPathsArguments(const QStringList &paths);

/// How many of the occupied paths are or hold something ignored. Workers.
qsizetype ignoredAmong(const QStringList &occupied, const QByteArray &ignored);

/// Whether Git may check out across `range`: it overwrites ignored files without a word, so the user is asked first
/// when there are any. True as well when Git cannot tell; the checkout then fails and says why. False when the project
/// was left meanwhile. `shared` must outlive the task.
QCoro::Task<bool> agreesToOverwrite(Workspace *shared, Project project, QString title, QString range);

} // namespace kestor

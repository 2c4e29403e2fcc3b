#pragma once

#include "model/file_history.h"
#include "model/project.h"
#include "tools/tool.h"

#include <QByteArray>
#include <QCoroTask>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace kestor {

/// What the program is busy with while it loads a log.
inline constexpr QStringView loadingHistory = u"Loading history";
inline constexpr QStringView loadingArchives = u"Loading archives";
inline constexpr QStringView loadingIncoming = u"Loading incoming";

class ArrivingLog;

/// The vector that prints the whole log of a project.
QStringList logArguments(RepositoryKind kind);

/// Prints the log of the project; nothing for a Git repository without a commit. Throws SVNClientError. `reader` as for
/// Tool::runReading.
QCoro::Task<QByteArray> printedLog(std::shared_ptr<Tool> tool, Project project, OutputReader reader = {});

/// The entries of a log that printed `output`, newest first. Where they equal one of the `known` lists that list is
/// returned, so that its memory is shared and publishing it again compares nothing. Workers.
QList<LogEntry> loadedLog(ArrivingLog &log, const QByteArray &output, const QList<QList<LogEntry>> &known);

/// A log and its files.
struct LoadedHistory {
    QList<LogEntry> entries{};
    FileHistory files{};
};

/// The files of `entries`, shared with `before` where that is the history of the same. Workers.
LoadedHistory loadedHistory(const QList<LogEntry> &entries, const QString &relativeURL, const LoadedHistory &before);

/// The number that the entry `revision` of `before` has in `after`. Git's numbers count from the newest commit, so that
/// each new commit moves them; Subversion's, and those of commits that are gone, stay as they are.
std::optional<qint64> revisionAfterLoad(std::optional<qint64> revision, const QList<LogEntry> &before,
                                        const QList<LogEntry> &after);

/// What is selected on the History tab.
struct HistorySelection {
    std::optional<QString> path{};
    std::optional<qint64> revision{};

    friend bool operator==(const HistorySelection &, const HistorySelection &) = default;
};

/// `revision` when the file has it, else its newest one; nothing without any.
std::optional<qint64> revisionToSelect(const FileHistoryRevisions &revisions, std::optional<qint64> revision);

/// The selection in a list that has just been loaded: as before where that is still there, else the first file, its
/// newest revision, and without files the first entry of the log.
HistorySelection selectionAfterLoad(const LoadedHistory &loaded, const HistorySelection &before);

} // namespace kestor

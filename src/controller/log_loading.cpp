#include "controller/log_loading.h"

#include "controller/arriving_log.h"
#include "controller/file_grouping.h"
#include "controller/git_reference.h"
#include "tools/arguments.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr qint32 gitFatalStatus = 128;

QCoro::Task<bool> isBeforeFirstCommit(std::shared_ptr<Tool> git, QString directory) {
    const SVNCommandResult head = co_await lookedUpReference(git, u"HEAD"_s, directory);
    // Outside of a repository the status is another one.
    co_return head.status == 1;
}

} // namespace

QStringList logArguments(RepositoryKind kind) {
    if (kind == RepositoryKind::svn)
        return args(u"log", u"--xml", u"--verbose");
    return args(u"log", u"--date=iso-strict", u"--name-status",
                u"--format=--KESTOR-GIT-COMMIT--%H%x09%an%x09%aI%x09%s");
}

QCoro::Task<QByteArray> printedLog(std::shared_ptr<Tool> tool, Project project, OutputReader reader) {
    const SVNCommandResult result =
        co_await tool->runReading(logArguments(project.kind), project.path, RunPurpose::backgroundRead, reader);
    if (result.status == 0)
        co_return result.stdoutData;
    bool isEmpty = false;
    // Only what Git itself gives up is worth a second look: a log that broke off is no empty log.
    if (project.kind == RepositoryKind::git && result.status == gitFatalStatus)
        isEmpty = co_await isBeforeFirstCommit(tool, project.path);
    if (!isEmpty)
        throw SVNClientError::commandFailed(result);
    co_return QByteArray();
}

QList<LogEntry> loadedLog(ArrivingLog &log, const QByteArray &output, const QList<QList<LogEntry>> &known) {
    const QList<LogEntry> entries = log.entriesOf(output);
    const qsizetype same = known.indexOf(entries);
    return same < 0 ? entries : known[same];
}

LoadedHistory loadedHistory(const QList<LogEntry> &entries, const QString &relativeURL, const LoadedHistory &before) {
    const bool asBefore = entries.isSharedWith(before.entries) && relativeURL == before.files.relativeURL();
    return {entries, asBefore ? before.files : groupedByFile(entries, relativeURL)};
}

std::optional<qint64> revisionAfterLoad(std::optional<qint64> revision, const QList<LogEntry> &before,
                                        const QList<LogEntry> &after) {
    const std::optional<LogEntry> entry = entryWithRevision(before, revision);
    if (!entry || !entry->commitHash)
        return revision;
    const auto moved = std::find_if(after.begin(), after.end(),
                                    [&entry](const LogEntry &other) { return other.commitHash == entry->commitHash; });
    return moved == after.end() ? revision : moved->revision;
}

std::optional<qint64> revisionToSelect(const FileHistoryRevisions &revisions, std::optional<qint64> revision) {
    if (revision && revisions.indexOf(*revision))
        return revision;
    return revisions.isEmpty() ? std::nullopt : std::optional(revisions.revisionAt(0));
}

HistorySelection selectionAfterLoad(const LoadedHistory &loaded, const HistorySelection &before) {
    if (loaded.files.isEmpty()) {
        const QList<LogEntry> &entries = loaded.entries;
        return {std::nullopt, entries.isEmpty() ? std::nullopt : std::optional(entries.first().revision)};
    }
    const std::optional<qsizetype> known = before.path ? loaded.files.indexOf(*before.path) : std::nullopt;
    const FileHistoryItem item = loaded.files[known.value_or(0)];
    return {item.path, revisionToSelect(item.revisions, before.revision)};
}

} // namespace kestor

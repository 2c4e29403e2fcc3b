#pragma once

#include "model/git_branch.h"
#include "model/log_entry.h"
#include "model/status_kind.h"
#include "model/working_copy_item.h"

#include <QList>
#include <QString>
#include <QStringView>

#include <memory>
#include <optional>

/// What turns the text output of `git` into records. Nothing fails; malformed lines are skipped. Any thread.
namespace kestor::GitParsers {

/// What a run with -z printed: names, and entries among them, each ended by a zero byte.
QStringList namesEndedByNul(QByteArrayView printed);
/// Reads `git status --porcelain=v1`; in the localised standard order of the paths. A rename yields its new name.
QList<WorkingCopyItem> parseStatus(QStringView text);
/// The kind that the two letters of a porcelain line stand for.
SVNStatusKind statusKind(QChar index, QChar workTree);
/// Takes the quotes off a quoted path and the backslash off every escape; escapes are not interpreted.
QString unquotePath(QStringView text);
/// Reads a log printed with "--format=--KESTOR-GIT-COMMIT--%H%x09%an%x09%aI%x09%s" and --name-status. Revisions count
/// down from 1000000 in output order.
QList<LogEntry> parseLog(QStringView text);
/// Reads such a log in pieces that end between two entries. What comes again shares its characters over all of them.
/// One thread at a time.
class LogReader {
public:
    LogReader();
    ~LogReader();
    Q_DISABLE_COPY_MOVE(LogReader)

    void read(QStringView piece);
    /// How many of the bytes printed hold entries that have ended.
    static qsizetype wholeEntries(QByteArrayView printed);
    /// Those so far.
    QList<LogEntry> entries() const;

private:
    class Lines;
    std::unique_ptr<Lines> lines;
};

/// One line of --name-status; nothing when it has no tab.
std::optional<SVNPathChange> parseNameStatusLine(QStringView line);
std::optional<QDateTime> parseDate(QStringView text);
/// Reads for-each-ref lines of HEAD marker, reference and short name. The current branch first, local before remote
/// ones, then by name. Lines with fewer than three pieces are skipped.
QList<GitBranch> parseBranches(QStringView text);

} // namespace kestor::GitParsers

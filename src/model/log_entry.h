#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

namespace kestor {

/// One changed path of a log entry.
struct SVNPathChange {
    QString action{};              ///< the tool's letter, for example "M"
    QString path{};                ///< repository path (Subversion) or path from the top level (Git)
    std::optional<QString> kind{}; ///< "file" or "dir", when reported

    /// `action`, ":", `path`.
    QString id() const { return action + u':' + path; }
    friend bool operator==(const SVNPathChange &, const SVNPathChange &) = default;
};

/// One revision or commit. Identified by `revision`, which for Git is a running number within one listing.
struct LogEntry {
    qint64 revision = 0;
    std::optional<QString> commitHash{}; ///< full hash; absent for Subversion
    QString author{};
    std::optional<QDateTime> date{};
    QString message{};
    QList<SVNPathChange> paths{}; ///< in the tool's order

    /// The first seven characters of the hash, or "r" and the number.
    QString displayRevision() const;
    /// The whole trimmed message, "(no message)" when blank.
    QString summary() const;
    friend bool operator==(const LogEntry &, const LogEntry &) = default;
};

/// The entry of that revision; nothing when there is none, or no revision. Linear.
std::optional<LogEntry> entryWithRevision(const QList<LogEntry> &entries, std::optional<qint64> revision);

/// The first seven characters of `commitHash`, or "r" and `revision` when there is no hash.
QString displayRevision(qint64 revision, const std::optional<QString> &commitHash);

} // namespace kestor

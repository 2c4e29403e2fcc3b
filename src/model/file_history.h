#pragma once

#include "model/log_entry.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

namespace kestor {

/// One revision of one file. Identified by `revision`.
struct FileHistoryRevision {
    qint64 revision = 0;
    std::optional<QString> commitHash{};
    QString action{}; ///< what happened to this file in the revision
    QString author{};
    std::optional<QDateTime> date{};
    QString message{};
    QList<SVNPathChange> paths{}; ///< every path the revision changed

    /// The first seven characters of the hash, or "r" and the number.
    QString displayRevision() const;
    /// The whole trimmed message, "(no message)" when blank.
    QString summary() const;
    friend bool operator==(const FileHistoryRevision &, const FileHistoryRevision &) = default;
};

/// One file of the History tab. Identified by `path`.
struct FileHistoryItem {
    QString path{};
    QList<FileHistoryRevision> revisions{}; ///< newest first

    const QString &id() const { return path; }
    friend bool operator==(const FileHistoryItem &, const FileHistoryItem &) = default;
};

} // namespace kestor

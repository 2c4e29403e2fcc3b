#pragma once

#include "model/log_entry.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringView>

#include <memory>
#include <optional>
#include <vector>

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

/// A log and where each of its files is in it: what all slices of one FileHistory share.
struct FileHistorySource {
    /// One changed path: its place in the log.
    struct Change {
        quint32 entry = 0;
        quint32 path = 0;
    };
    struct File {
        QStringView path{}; ///< in `paths`
        quint32 firstChange = 0;
        quint32 changeCount = 0;
    };

    QList<LogEntry> entries{};
    QString relativeURL{};         ///< of the working copy the paths are relative to
    QString paths{};               ///< of all files one after another: a pass over them reads on through memory
    std::vector<File> files{};     ///< in the order of the list
    std::vector<Change> changes{}; ///< the changes of each file one after another, in the order of the log
};

/// The revisions of one file, newest first. They are put together from the log on each call; none is stored.
class FileHistoryRevisions {
public:
    FileHistoryRevisions() = default;
    FileHistoryRevisions(std::shared_ptr<const FileHistorySource> shared, qsizetype file);

    qsizetype size() const { return count; }
    bool isEmpty() const { return count == 0; }
    /// The revision at `index`, from 0 to size() - 1. Its texts are shared with the log.
    FileHistoryRevision operator[](qsizetype index) const;
    FileHistoryRevision first() const { return (*this)[0]; }
    /// The number of the revision at `index` alone.
    qint64 revisionAt(qsizetype index) const { return entryAt(index).revision; }
    /// The position of the revision with that number; nothing when the file has none. Linear.
    std::optional<qsizetype> indexOf(qint64 revision) const;
    /// Equal only to slices of the same log.
    friend bool operator==(const FileHistoryRevisions &, const FileHistoryRevisions &) = default;

private:
    const FileHistorySource::Change &changeAt(qsizetype index) const;
    const LogEntry &entryAt(qsizetype index) const;

    std::shared_ptr<const FileHistorySource> source{};
    qsizetype start = 0;
    qsizetype count = 0;
};

/// One file of the History tab. Identified by `path`.
struct FileHistoryItem {
    QString path{};                   ///< relative to the working copy, or the whole repository path outside of it
    FileHistoryRevisions revisions{}; ///< newest first

    const QString &id() const { return path; }
};

/// The files of a log, those changed last first. A cheap copy that shares the log; equal only to its copies. Any
/// thread.
class FileHistory {
public:
    FileHistory() = default;
    explicit FileHistory(std::shared_ptr<const FileHistorySource> shared) : source(std::move(shared)) {}

    qsizetype size() const { return source ? static_cast<qsizetype>(source->files.size()) : 0; }
    bool isEmpty() const { return size() == 0; }
    /// The file at `index`, from 0 to size() - 1. Constant time.
    FileHistoryItem operator[](qsizetype index) const;
    /// The path of that file alone. Valid as long as this history or a copy of it.
    QStringView pathAt(qsizetype index) const { return source->files.at(static_cast<std::size_t>(index)).path; }
    /// The position of the file; nothing when there is none. Linear, a few milliseconds for a million files.
    std::optional<qsizetype> indexOf(const QString &path) const;
    /// What the paths are relative to, for example "^/trunk"; "" for the repository root.
    QString relativeURL() const { return source ? source->relativeURL : QString(); }

    friend bool operator==(const FileHistory &, const FileHistory &) = default;

private:
    std::shared_ptr<const FileHistorySource> source{};
};

} // namespace kestor

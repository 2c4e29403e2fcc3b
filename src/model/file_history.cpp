#include "model/file_history.h"

#include "model/trimmed.h"

#include <algorithm>

namespace kestor {

QString FileHistoryRevision::displayRevision() const {
    return kestor::displayRevision(revision, commitHash);
}

QString FileHistoryRevision::summary() const {
    return messageSummary(message);
}

FileHistoryRevisions::FileHistoryRevisions(std::shared_ptr<const FileHistorySource> shared, qsizetype file)
    : source(std::move(shared)) {
    const FileHistorySource::File &slice = source->files.at(static_cast<std::size_t>(file));
    start = slice.firstChange;
    count = slice.changeCount;
}

const FileHistorySource::Change &FileHistoryRevisions::changeAt(qsizetype index) const {
    return source->changes.at(static_cast<std::size_t>(start + index));
}

const LogEntry &FileHistoryRevisions::entryAt(qsizetype index) const {
    return source->entries.at(changeAt(index).entry);
}

FileHistoryRevision FileHistoryRevisions::operator[](qsizetype index) const {
    const LogEntry &entry = entryAt(index);
    return {entry.revision, entry.commitHash, entry.paths.at(changeAt(index).path).action, entry.author, entry.date,
            entry.message,  entry.paths};
}

std::optional<qsizetype> FileHistoryRevisions::indexOf(qint64 revision) const {
    for (qsizetype i = 0; i < count; ++i) {
        if (revisionAt(i) == revision)
            return i;
    }
    return std::nullopt;
}

FileHistoryItem FileHistory::operator[](qsizetype index) const {
    return {pathAt(index).toString(), FileHistoryRevisions(source, index)};
}

std::optional<qsizetype> FileHistory::indexOf(const QString &path) const {
    if (!source)
        return std::nullopt;
    const std::vector<FileHistorySource::File> &files = source->files;
    const auto hasPath = [&path](const FileHistorySource::File &file) {
        return file.path == path;
    };
    const auto found = std::find_if(files.begin(), files.end(), hasPath);
    return found == files.end() ? std::nullopt : std::optional<qsizetype>(found - files.begin());
}

} // namespace kestor

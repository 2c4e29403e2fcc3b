#include "model/log_entry.h"

#include "model/trimmed.h"

#include <algorithm>

namespace kestor {

QString displayRevision(qint64 revision, const std::optional<QString> &commitHash) {
    return commitHash ? commitHash->left(7) : u'r' + QString::number(revision);
}

QString LogEntry::displayRevision() const {
    return kestor::displayRevision(revision, commitHash);
}

QString LogEntry::summary() const {
    return messageSummary(message);
}

std::optional<LogEntry> entryWithRevision(const QList<LogEntry> &entries, std::optional<qint64> revision) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [revision](const LogEntry &entry) { return entry.revision == revision; });
    return found == entries.end() ? std::nullopt : std::optional(*found);
}

} // namespace kestor

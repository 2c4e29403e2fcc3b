#include "model/log_entry.h"

#include "model/trimmed.h"

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

} // namespace kestor

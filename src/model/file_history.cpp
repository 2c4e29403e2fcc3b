#include "model/file_history.h"

#include "model/trimmed.h"

namespace kestor {

QString FileHistoryRevision::displayRevision() const {
    return kestor::displayRevision(revision, commitHash);
}

QString FileHistoryRevision::summary() const {
    return messageSummary(message);
}

} // namespace kestor

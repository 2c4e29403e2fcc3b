#pragma once

#include "model/file_history.h"
#include "model/log_entry.h"

#include <QString>

#include <optional>

namespace kestor {

/// What a revision head says.
struct RevisionText {
    QString revision{}; ///< "r1234" or the beginning of a hash
    QString copied{};   ///< what names the revision outside of the window: the full hash of a commit, else "r1234"
    QString author{};
    QString date{};
    QString message{}; ///< as the log has it; "" and blanks alone read "(no message)"

    friend bool operator==(const RevisionText &, const RevisionText &) = default;
};

RevisionText revisionText(const LogEntry &entry);
RevisionText revisionText(const FileHistoryRevision &revision);

} // namespace kestor

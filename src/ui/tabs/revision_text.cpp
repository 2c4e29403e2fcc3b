#include "ui/tabs/revision_text.h"

#include "controller/display_date.h"

namespace kestor {

namespace {

template <typename Revision>
RevisionText textOf(const Revision &revision) {
    return {.revision = revision.displayRevision(),
            .copied = revision.commitHash.value_or(revision.displayRevision()),
            .author = revision.author,
            .date = revision.date ? displayDate(*revision.date) : QString(),
            .message = revision.message};
}

} // namespace

RevisionText revisionText(const LogEntry &entry) {
    return textOf(entry);
}

RevisionText revisionText(const FileHistoryRevision &revision) {
    return textOf(revision);
}

} // namespace kestor

#include "ui/tabs/revision_rows.h"

#include "model/trimmed.h"
#include "ui/tabs/revision_text.h"

namespace kestor {

namespace {

QString firstLine(const QString &text) {
    return text.left(text.indexOf(u'\n')).trimmed();
}

RevisionRow plainRow(const RevisionText &text) {
    return {.message = firstLine(messageSummary(text.message)),
            .revision = text.revision,
            .author = text.author,
            .date = text.date};
}

} // namespace

QString revisionId(qint64 revision) {
    return QString::number(revision);
}

qint64 revisionOfId(const QString &id) {
    return id.toLongLong();
}

RevisionRow revisionRow(const LogEntry &entry) {
    return plainRow(revisionText(entry));
}

RevisionRow revisionRow(const FileHistoryRevision &revision, const Theme &theme) {
    RevisionRow row = plainRow(revisionText(revision));
    row.badge = badgeForAction(revision.action, theme);
    row.status = displayName(statusKindOfAction(revision.action)).toString();
    return row;
}

void LogRows::publish(const QList<LogEntry> &published) {
    if (entries.isSharedWith(published))
        return;
    replaceRecords([&] { entries = published; });
}

RowContent LogRows::content(int record, const Theme &) const {
    return revisionRow(entries.at(record));
}

QString LogRows::filterText(int record) const {
    const LogEntry &entry = entries.at(record);
    return entry.displayRevision() + u'\n' + entry.author + u'\n' + entry.message;
}

QString LogRows::copiedText(int record) const {
    return revisionText(entries.at(record)).copied;
}

void FileRevisionRows::publish(const FileHistoryRevisions &published) {
    replaceRecords([&] { revisions = published; });
}

RowContent FileRevisionRows::content(int record, const Theme &theme) const {
    return revisionRow(revisions[record], theme);
}

QString FileRevisionRows::copiedText(int record) const {
    return revisionText(revisions[record]).copied;
}

} // namespace kestor

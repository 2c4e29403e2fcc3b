#include "ui/tabs/revision_rows.h"

#include "model/trimmed.h"
#include "ui/tabs/revision_text.h"

namespace kestor {

namespace {

QString firstLine(const QString &text) {
    return text.left(text.indexOf(u'\n')).trimmed();
}

template <typename Revision>
QString identityOf(const Revision &revision) {
    return revision.commitHash ? *revision.commitHash : QString::number(revision.revision);
}

RevisionRow shownRow(const RevisionText &text) {
    return {.message = firstLine(messageSummary(text.message)),
            .revision = text.revision,
            .author = text.author,
            .date = text.date};
}

} // namespace

QString RevisionRows::idOf(std::optional<qint64> revision) const {
    for (int record = 0; record < recordCount(); ++record) {
        if (revisionAt(record) == revision)
            return recordId(record);
    }
    return {};
}

std::optional<qint64> RevisionRows::revisionOf(const QString &id) const {
    for (int record = 0; record < recordCount(); ++record) {
        if (recordId(record) == id)
            return revisionAt(record);
    }
    return std::nullopt;
}

void LogRows::publish(const QList<LogEntry> &published) {
    if (entries.isSharedWith(published))
        return;
    replaceRecords([&] { entries = published; });
}

QString LogRows::recordId(int record) const {
    return identityOf(entries.at(record));
}

RowContent LogRows::content(int record, const Theme &) const {
    return shownRow(revisionText(entries.at(record)));
}

/// What narrow columns cut, then the message.
QString LogRows::toolTip(int record) const {
    const LogEntry &entry = entries.at(record);
    const RevisionText text = revisionText(entry);
    QStringList origin{text.revision, text.author, text.date};
    origin.removeAll(QString());
    return origin.join(u" · ") + u'\n' + entry.summary();
}

QStringView LogRows::filterText(int record, QString &made) const {
    const LogEntry &entry = entries.at(record);
    return made = entry.commitHash.value_or(entry.displayRevision()) + u'\n' + entry.author + u'\n' + entry.message;
}

QString LogRows::copiedText(int record) const {
    return revisionText(entries.at(record)).copied;
}

void FileRevisionRows::publish(const FileHistoryRevisions &published) {
    if (revisions != published)
        replaceRecords([&] { revisions = published; });
}

QString FileRevisionRows::recordId(int record) const {
    return identityOf(revisions[record]);
}

RowContent FileRevisionRows::content(int record, const Theme &theme) const {
    const FileHistoryRevision revision = revisions[record];
    RevisionRow row = shownRow(revisionText(revision));
    row.badge = badgeForAction(revision.action, theme);
    row.status = displayName(statusKindOfAction(revision.action)).toString();
    return row;
}

QString FileRevisionRows::copiedText(int record) const {
    return revisionText(revisions[record]).copied;
}

} // namespace kestor

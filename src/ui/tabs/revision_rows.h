#pragma once

#include "model/file_history.h"
#include "model/log_entry.h"
#include "ui/list/row_model.h"

#include <QList>
#include <QString>

namespace kestor {

/// The identity of a revision in a list, and back.
QString revisionId(qint64 revision);
qint64 revisionOfId(const QString &id);

/// The row of a log entry; without a badge.
RevisionRow revisionRow(const LogEntry &entry);
/// The row of one revision of a file, with what it did to the file.
RevisionRow revisionRow(const FileHistoryRevision &revision, const Theme &theme);

/// A log, newest first. Rows match a filter by revision, author and message. Identified by the revision number.
class LogRows final : public RowModel {
    Q_OBJECT

public:
    explicit LogRows(RowShape wanted) : rowShape(wanted) {}

    /// A list that shares its entries with the one shown changes nothing.
    void publish(const QList<LogEntry> &published);
    const LogEntry &entryAt(int record) const { return entries.at(record); }

    RowShape shape() const override { return rowShape; }
    int recordCount() const override { return static_cast<int>(entries.size()); }
    QString recordId(int record) const override { return revisionId(entries.at(record).revision); }
    RowContent content(int record, const Theme &theme) const override;
    QString filterText(int record) const override;
    QString copiedText(int record) const override;
    QString toolTip(int record) const override { return entries.at(record).summary(); }
    QString searchText(int record) const override { return entries.at(record).summary(); }

private:
    QList<LogEntry> entries{};
    RowShape rowShape;
};

/// The revisions of one file, newest first. Identified by the revision number.
class FileRevisionRows final : public RowModel {
    Q_OBJECT

public:
    using RowModel::RowModel;

    void publish(const FileHistoryRevisions &published);
    FileHistoryRevision revisionAt(int record) const { return revisions[record]; }

    RowShape shape() const override { return RowShape::twoLines; }
    int recordCount() const override { return static_cast<int>(revisions.size()); }
    QString recordId(int record) const override { return revisionId(revisions.revisionAt(record)); }
    RowContent content(int record, const Theme &theme) const override;
    QString copiedText(int record) const override;
    QString toolTip(int record) const override { return revisions[record].summary(); }
    QString searchText(int record) const override { return revisions[record].summary(); }

private:
    FileHistoryRevisions revisions{};
};

} // namespace kestor

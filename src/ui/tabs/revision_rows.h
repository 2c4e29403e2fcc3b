#pragma once

#include "model/file_history.h"
#include "model/log_entry.h"
#include "ui/list/row_model.h"

#include <QList>
#include <QString>

#include <optional>

namespace kestor {

/// Rows of revisions. Identified by what stays when others come: the hash of a commit, whose number counts from the
/// newest, else the number.
class RevisionRows : public RowModel {
    Q_OBJECT

public:
    using RowModel::RowModel;

    /// The identity of the revision with that number, "" when there is none. Linear.
    QString idOf(std::optional<qint64> revision) const;
    /// The number of the revision with that identity. Linear.
    std::optional<qint64> revisionOf(const QString &id) const;

    virtual qint64 revisionAt(int record) const = 0;
};

/// A log, newest first. Rows match a filter by revision, author and message.
class LogRows final : public RevisionRows {
    Q_OBJECT

public:
    explicit LogRows(RowShape wanted) : rowShape(wanted) {}

    /// A list that shares its entries with the one shown changes nothing.
    void publish(const QList<LogEntry> &published);

    RowShape shape() const override { return rowShape; }
    int recordCount() const override { return static_cast<int>(entries.size()); }
    qint64 revisionAt(int record) const override { return entries.at(record).revision; }
    QString recordId(int record) const override;
    RowContent content(int record, const Theme &theme) const override;
    QStringView filterText(int record, QString &made) const override;
    QString copiedText(int record) const override;
    QString toolTip(int record) const override;
    QString searchText(int record) const override { return entries.at(record).summary(); }

private:
    QList<LogEntry> entries{};
    RowShape rowShape;
};

/// The revisions of one file, newest first, each with what it did to the file.
class FileRevisionRows final : public RevisionRows {
    Q_OBJECT

public:
    using RevisionRows::RevisionRows;

    void publish(const FileHistoryRevisions &published);

    RowShape shape() const override { return RowShape::twoLines; }
    int recordCount() const override { return static_cast<int>(revisions.size()); }
    qint64 revisionAt(int record) const override { return revisions.revisionAt(record); }
    QString recordId(int record) const override;
    RowContent content(int record, const Theme &theme) const override;
    QString copiedText(int record) const override;
    QString toolTip(int record) const override { return revisions[record].summary(); }
    QString searchText(int record) const override { return revisions[record].summary(); }

private:
    FileHistoryRevisions revisions{};
};

} // namespace kestor

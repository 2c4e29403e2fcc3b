#pragma once

#include "model/log_entry.h"
#include "ui/list/row_model.h"

#include <QList>

namespace kestor {

/// The paths that a revision changed, in the tool's order.
class PathChangeRows final : public RowModel {
    Q_OBJECT

public:
    using RowModel::RowModel;

    void publish(const QList<SVNPathChange> &published);

    int recordCount() const override { return static_cast<int>(changes.size()); }
    QString recordId(int record) const override { return changes.at(record).id(); }
    RowContent content(int record, const Theme &theme) const override;
    QString copiedText(int record) const override { return changes.at(record).path; }
    QString toolTip(int record) const override { return changes.at(record).path; }

private:
    QList<SVNPathChange> changes{};
};

} // namespace kestor

#pragma once

#include "model/working_copy_item.h"
#include "ui/list/row_model.h"

#include <QList>

namespace kestor {

/// The items of a working copy that its repository has changed, each with what an update would do to it.
class OutdatedRows final : public RowModel {
    Q_OBJECT

public:
    using RowModel::RowModel;

    /// Equal items change nothing.
    void publish(const QList<WorkingCopyItem> &published);

    int recordCount() const override { return static_cast<int>(items.size()); }
    QString recordId(int record) const override { return items.at(record).path; }
    RowContent content(int record, const Theme &theme) const override;

private:
    QList<WorkingCopyItem> items{};
};

} // namespace kestor

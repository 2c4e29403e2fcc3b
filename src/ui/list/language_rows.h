#pragma once

#include "model/language.h"
#include "ui/list/row_model.h"

#include <QList>

namespace kestor {

/// The languages of a project, the largest first.
class LanguageRows final : public RowModel {
    Q_OBJECT

public:
    using RowModel::RowModel;

    void publish(const QList<LanguageDistributionEntry> &published);

    int recordCount() const override { return static_cast<int>(shares.size()); }
    QString recordId(int record) const override { return shares.at(record).name; }
    RowContent content(int record, const Theme &theme) const override;
    QString copiedText(int record) const override;
    QString toolTip(int record) const override { return copiedText(record); }
    QString searchText(int record) const override { return recordId(record); }

private:
    QList<LanguageDistributionEntry> shares{};
    qint64 total = 0;
};

} // namespace kestor

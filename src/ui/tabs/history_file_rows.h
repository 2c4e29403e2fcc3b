#pragma once

#include "model/file_history.h"
#include "ui/list/row_model.h"

namespace kestor {

/// The files of the History tab. Each shows its newest revision: what that did to the file, and its number.
class HistoryFileRows final : public RowModel {
    Q_OBJECT

public:
    using RowModel::RowModel;

    /// Shares the files, which an equal history lets alone.
    void publish(const FileHistory &published);

    int recordCount() const override { return static_cast<int>(files.size()); }
    QString recordId(int record) const override { return files.pathAt(record).toString(); }
    QStringView idView(int record, QString &) const override { return files.pathAt(record); }
    RowContent content(int record, const Theme &theme) const override;

private:
    FileHistory files{};
};

} // namespace kestor

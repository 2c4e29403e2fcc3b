#pragma once

#include "model/marked_paths.h"
#include "model/working_copy_items.h"
#include "ui/list/row_model.h"

#include <QString>

#include <vector>

class QLocale;

namespace kestor {

/// What a row of the Changes list says.
PathRow changeRow(const WorkingCopyItem &item, Tick tick, const Theme &theme);

/// How many rows have a tick box and how many of these are ticked: of all, and of those that the filter leaves.
struct TickCounts {
    int tickable = 0;
    int ticked = 0;
    int shownTickable = 0;
    int shownTicked = 0;

    friend bool operator==(const TickCounts &, const TickCounts &) = default;
};

/// "13 of 17 ticked", and ", 10 not shown" when the filter hides ticked rows; "" where nothing can be ticked.
QString tickedText(const TickCounts &counts, const QLocale &locale);

/// "Commit 13 Changes", "Commit 1 Change", or "Commit" for none.
QString commitText(int ticked, const QLocale &locale);

/// The rows of the Changes list over the published items and ticks, which it shares and does not copy.
class ChangeRows final : public RowModel {
    Q_OBJECT

public:
    using RowModel::RowModel;

    /// Equal items change nothing.
    void publish(const WorkingCopyItems &published);
    void setTicked(const MarkedPaths &paths);

    const WorkingCopyItems &published() const { return items; }
    TickCounts tickCounts() const;

    int recordCount() const override { return static_cast<int>(items.size()); }
    QString recordId(int record) const override { return items.pathAt(record).toString(); }
    QStringView idView(int record, QString &) const override { return items.pathAt(record); }
    RowContent content(int record, const Theme &theme) const override;

private:
    void lookUpTicks();

    WorkingCopyItems items{};
    MarkedPaths ticked{};
    std::vector<Tick> ticks{}; ///< of each item
};

} // namespace kestor

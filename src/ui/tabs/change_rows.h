#pragma once

#include "model/working_copy_item.h"
#include "ui/list/row_model.h"

#include <QList>
#include <QSet>
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
    void publish(const QList<WorkingCopyItem> &published);
    void setTicked(const QSet<QString> &paths);

    const WorkingCopyItem &itemAt(int record) const { return items.at(record); }
    TickCounts tickCounts() const;

    int recordCount() const override { return static_cast<int>(items.size()); }
    QString recordId(int record) const override { return items.at(record).path; }
    RowContent content(int record, const Theme &theme) const override;

private:
    void lookUpTicks();

    QList<WorkingCopyItem> items{};
    QSet<QString> ticked{};
    std::vector<Tick> ticks{}; ///< of each item
};

} // namespace kestor

#pragma once

#include "model/working_copy_items.h"

#include <QBitArray>

namespace kestor {

/// Some of the paths of a list that has none twice, a bit for each row. Copies share the list. Any thread.
class MarkedPaths {
public:
    MarkedPaths() = default;
    /// None of the rows.
    explicit MarkedPaths(const WorkingCopyItems &rows) : list(rows), marks(rows.size()) {}
    static MarkedPaths all(const WorkingCopyItems &rows);

    qsizetype size() const { return marks.count(true); }
    bool isEmpty() const { return size() == 0; }
    bool isMarked(qsizetype row) const { return marks.testBit(row); }
    void mark(qsizetype row, bool marked) { marks.setBit(row, marked); }
    /// The marked rows in list order.
    QList<WorkingCopyItem> items() const;
    /// The marks of those of these paths that `rows` has, too.
    MarkedPaths in(const WorkingCopyItems &rows) const;
    /// The marks of the others, in the same list.
    MarkedPaths without(const MarkedPaths &paths) const;

    /// Equal only for equal lists.
    friend bool operator==(const MarkedPaths &, const MarkedPaths &) = default;

private:
    WorkingCopyItems list{};
    QBitArray marks{}; ///< of the rows of `list`
};

} // namespace kestor

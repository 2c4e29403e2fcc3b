#include "model/marked_paths.h"

#include <QSet>

#include <algorithm>

namespace kestor {

MarkedPaths MarkedPaths::all(const WorkingCopyItems &rows) {
    MarkedPaths marked(rows);
    marked.marks.fill(true);
    return marked;
}

QList<WorkingCopyItem> MarkedPaths::items() const {
    QList<WorkingCopyItem> marked;
    marked.reserve(size());
    for (qsizetype row = 0; row < list.size(); ++row) {
        if (isMarked(row))
            marked.append(list[row]);
    }
    return marked;
}

MarkedPaths MarkedPaths::in(const WorkingCopyItems &rows) const {
    MarkedPaths found(rows);
    if (list == rows) {
        found.marks = marks;
        return found;
    }
    // Most lists differ in a few rows: what both begin and end with needs no look-up.
    const qsizetype more = rows.size() - list.size();
    const qsizetype shorter = std::min(list.size(), rows.size());
    qsizetype begin = 0;
    for (; begin < shorter && list.pathAt(begin) == rows.pathAt(begin); ++begin)
        found.mark(begin, isMarked(begin));
    qsizetype end = list.size();
    for (; std::min(end, end + more) > begin && list.pathAt(end - 1) == rows.pathAt(end + more - 1); --end)
        found.mark(end + more - 1, isMarked(end - 1));
    QSet<QStringView> paths;
    for (qsizetype row = begin; row < end; ++row) {
        if (isMarked(row))
            paths.insert(list.pathAt(row));
    }
    for (qsizetype row = begin; !paths.isEmpty() && row < end + more; ++row)
        found.mark(row, paths.contains(rows.pathAt(row)));
    return found;
}

MarkedPaths MarkedPaths::without(const MarkedPaths &paths) const {
    MarkedPaths others = *this;
    others.marks &= ~paths.in(list).marks;
    return others;
}

} // namespace kestor

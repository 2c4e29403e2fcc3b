#include "model/marked_paths.h"

#include <QSet>

namespace kestor {

MarkedPaths MarkedPaths::all(const WorkingCopyItems &rows) {
    MarkedPaths marked(rows);
    marked.marks.fill(true);
    return marked;
}

bool MarkedPaths::contains(QStringView path) const {
    const std::optional<qsizetype> row = list.indexOf(path);
    return row && isMarked(*row);
}

QList<WorkingCopyItem> MarkedPaths::items() const {
    QList<WorkingCopyItem> marked;
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
    QSet<QStringView> paths;
    paths.reserve(size());
    for (qsizetype row = 0; row < list.size(); ++row) {
        if (isMarked(row))
            paths.insert(list.pathAt(row));
    }
    for (qsizetype row = 0; !paths.isEmpty() && row < rows.size(); ++row)
        found.mark(row, paths.contains(rows.pathAt(row)));
    return found;
}

MarkedPaths MarkedPaths::without(const MarkedPaths &paths) const {
    MarkedPaths others = *this;
    others.marks &= ~paths.in(list).marks;
    return others;
}

} // namespace kestor

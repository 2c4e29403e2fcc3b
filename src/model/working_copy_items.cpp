#include "model/working_copy_items.h"

#include <QHash>

namespace kestor {

WorkingCopyItems::WorkingCopyItems(const QList<WorkingCopyItem> &items) {
    qsizetype length = 0;
    for (const WorkingCopyItem &item : items)
        length += item.path.size();
    paths.reserve(length);
    rows.reserve(items.size());
    QHash<Source, quint32> known;
    for (const WorkingCopyItem &item : items) {
        const Source source{item.revision, item.author, item.unversionedRoot};
        const auto next = static_cast<quint32>(sources.size());
        const bool repeats = !rows.isEmpty() && sources.at(rows.constLast().source) == source;
        const quint32 place = repeats ? rows.constLast().source : known.value(source, next);
        if (place == next) {
            sources.append(source);
            known.insert(source, next);
        }
        paths.append(item.path);
        rows.append({static_cast<quint32>(paths.size()), place, item.kind, item.propertiesKind, item.treeConflict});
    }
}

WorkingCopyItem WorkingCopyItems::operator[](qsizetype index) const {
    WorkingCopyItem item = statusAt(index);
    const Source &source = sources.at(rows.at(index).source);
    item.path = pathAt(index).toString();
    item.revision = source.revision;
    item.author = source.author;
    item.unversionedRoot = source.unversionedRoot;
    return item;
}

QStringView WorkingCopyItems::pathAt(qsizetype index) const {
    const qsizetype start = index == 0 ? 0 : rows.at(index - 1).pathEnd;
    return QStringView(paths).sliced(start, rows.at(index).pathEnd - start);
}

WorkingCopyItem WorkingCopyItems::statusAt(qsizetype index) const {
    const Row &row = rows.at(index);
    return {.kind = row.kind, .propertiesKind = row.propertiesKind, .treeConflict = row.treeConflict};
}

std::optional<qsizetype> WorkingCopyItems::indexOf(QStringView path) const {
    for (qsizetype index = 0; index < size(); ++index) {
        if (pathAt(index) == path)
            return index;
    }
    return std::nullopt;
}

bool operator==(const WorkingCopyItems &left, const WorkingCopyItems &right) {
    const bool isCopy = left.rows.isSharedWith(right.rows);
    return isCopy || (left.rows == right.rows && left.sources == right.sources && left.paths == right.paths);
}

QList<WorkingCopyItem> WorkingCopyItems::toList() const {
    QList<WorkingCopyItem> items;
    items.reserve(size());
    for (qsizetype index = 0; index < size(); ++index)
        items.append((*this)[index]);
    return items;
}

} // namespace kestor

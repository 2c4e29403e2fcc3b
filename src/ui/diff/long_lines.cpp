#include "ui/diff/long_lines.h"

#include <algorithm>
#include <functional>

namespace kestor {

namespace {

constexpr qsizetype checkpointStep = 4096;

} // namespace

qint64 LongLines::add(QStringView line) {
    if (line.size() <= checkpointStep)
        return columnAfter(line);
    ColumnPosition end;
    for (qsizetype next = checkpointStep; next < line.size(); next = end.index + checkpointStep) {
        while (end.index < next) {
            const Cell cell = cellAt(line, end.index, end.column);
            end.index += cell.length;
            end.column += cell.columns;
        }
        checkpoints.push_back({line.data() + end.index, end.column});
    }
    return columnAfter(line.sliced(end.index), end.column);
}

ColumnPosition LongLines::fromLastCheckpoint(QStringView line, const Checkpoint *end) const {
    if (end == checkpoints.data() || std::less()((end - 1)->place, line.data()))
        return {};
    return {(end - 1)->place - line.data(), (end - 1)->column};
}

qint64 LongLines::columnOf(QStringView line, qsizetype index) const {
    const Checkpoint *const last = checkpoints.data() + checkpoints.size();
    const Checkpoint *const end =
        std::upper_bound(checkpoints.data(), last, line.data() + index,
                         [](const QChar *place, const Checkpoint &next) { return std::less()(place, next.place); });
    const ColumnPosition from = fromLastCheckpoint(line, end);
    return columnAfter(line.sliced(from.index, index - from.index), from.column);
}

ColumnPosition LongLines::positionAt(QStringView line, qint64 column) const {
    const Checkpoint *const last = checkpoints.data() + checkpoints.size();
    const QChar *const lineEnd = line.data() + line.size();
    const Checkpoint *const end = std::partition_point(checkpoints.data(), last, [&](const Checkpoint &next) {
        return std::less()(next.place, line.data()) ||
               (std::less_equal()(next.place, lineEnd) && next.column <= column);
    });
    return positionAtColumn(line, column, fromLastCheckpoint(line, end));
}

} // namespace kestor

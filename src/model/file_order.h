#pragma once

#include <QCollator>
#include <QList>
#include <QStringView>

#include <algorithm>
#include <numeric>
#include <vector>

namespace kestor {

/// A collator with the order of a file manager in every locale: case-insensitive, runs of digits compared by value.
/// Building one costs about a millisecond; one belongs to one thread.
QCollator standardCollator();

/// Negative, zero or positive, in the localised standard order. Builds a collator: for single comparisons only.
int localizedStandardCompare(QStringView left, QStringView right);

/// Sorts `records` stably and ascending by the text that `textOf` gives, in the localised standard order. Computes one
/// sort key per record, so long lists cost one collation each instead of one per comparison.
template <typename Record, typename TextOf>
void sortInStandardOrder(QList<Record> &records, TextOf textOf) {
    const QCollator collator = standardCollator();
    std::vector<QCollatorSortKey> keys;
    keys.reserve(static_cast<std::size_t>(records.size()));
    for (const Record &record : records)
        keys.push_back(collator.sortKey(textOf(record)));
    std::vector<std::size_t> order(keys.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&keys](std::size_t a, std::size_t b) { return keys[a].compare(keys[b]) < 0; });
    QList<Record> sorted;
    sorted.reserve(records.size());
    for (const std::size_t index : order)
        sorted.append(std::move(records[static_cast<qsizetype>(index)]));
    records = std::move(sorted);
}

} // namespace kestor

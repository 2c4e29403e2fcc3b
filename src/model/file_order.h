#pragma once

#include <QCollator>
#include <QList>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace kestor {

/// A collator with the order of a file manager in every locale: case-insensitive, runs of digits compared by value.
/// Building one costs about a millisecond; one belongs to one thread.
QCollator standardCollator();

/// The positions of `texts` in ascending localised standard order; equal texts keep their order. Computes one sort key
/// per text, so that long lists cost no collation per comparison.
std::vector<qsizetype> standardOrder(const QStringList &texts);

/// Puts many lists into that order, one after another, with the one collator that they need at most. One thread.
class StandardOrder {
public:
    /// As standardOrder.
    std::vector<qsizetype> positions(const QStringList &texts);

private:
    std::optional<QCollator> collator{};
};

/// Puts the record at `positions[i]` to place i, for all i. Moves them where they are: long lists need no second one.
template <typename Record>
void arrange(QList<Record> &records, std::vector<qsizetype> positions) {
    Record *const record = records.data();
    const auto positionFor = [&positions](qsizetype place) -> qsizetype & {
        return positions[static_cast<std::size_t>(place)];
    };
    for (qsizetype start = 0; start < records.size(); ++start) {
        if (positionFor(start) == start)
            continue;
        Record first = std::move(record[start]);
        qsizetype place = start;
        while (positionFor(place) != start) {
            record[place] = std::move(record[positionFor(place)]);
            place = std::exchange(positionFor(place), place);
        }
        record[place] = std::move(first);
        positionFor(place) = place;
    }
}

/// Sorts `records` stably and ascending by the text that `textOf` gives, in the localised standard order.
template <typename Record, typename TextOf>
void sortInStandardOrder(QList<Record> &records, TextOf textOf) {
    QStringList texts;
    texts.reserve(records.size());
    for (const Record &record : std::as_const(records))
        texts.append(std::invoke(textOf, record));
    arrange(records, standardOrder(texts));
}

} // namespace kestor

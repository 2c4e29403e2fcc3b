#pragma once

#include <QCollator>
#include <QList>
#include <QStringList>
#include <QStringView>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace kestor {

/// A collator with the order of a file manager in every locale: case-insensitive, runs of digits compared by value.
/// Building one costs about a millisecond; one belongs to one thread.
QCollator standardCollator();

/// Negative, zero or positive, in the localised standard order. Builds a collator: for single comparisons only.
int localizedStandardCompare(QStringView left, QStringView right);

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

/// Sorts `records` stably and ascending by the text that `textOf` gives, in the localised standard order.
template <typename Record, typename TextOf>
void sortInStandardOrder(QList<Record> &records, TextOf textOf) {
    QStringList texts;
    texts.reserve(records.size());
    for (const Record &record : std::as_const(records))
        texts.append(std::invoke(textOf, record));
    QList<Record> sorted;
    sorted.reserve(records.size());
    for (const qsizetype position : standardOrder(texts))
        sorted.append(std::move(records[position]));
    records = std::move(sorted);
}

} // namespace kestor

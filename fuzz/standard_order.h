#pragma once

#include "model/file_order.h"

#include <QList>

#include <algorithm>
#include <functional>

namespace kestor::fuzz {

/// Sorts by the collator alone. By its keys, as its comparison puts an empty text before one of ignored characters.
template <typename Record, typename TextOf>
void sortByCollator(QList<Record> &records, TextOf textOf) {
    static const QCollator collator = standardCollator();
    std::stable_sort(records.begin(), records.end(), [&](const Record &left, const Record &right) {
        return collator.sortKey(std::invoke(textOf, left)).compare(collator.sortKey(std::invoke(textOf, right))) < 0;
    });
}

/// Whether `part` is what is left of `whole` without some of its records.
template <typename Record>
bool isSubsequence(const QList<Record> &part, const QList<Record> &whole) {
    auto next = part.cbegin();
    for (const Record &record : whole) {
        if (next != part.cend() && *next == record)
            ++next;
    }
    return next == part.cend();
}

} // namespace kestor::fuzz

#pragma once

#include "analysis/text_range.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>
#include <vector>

namespace kestor {

/// What was typed to narrow a list: words between blanks that must all occur, in any order and case.
class ListFilter {
public:
    ListFilter() = default;
    explicit ListFilter(const QString &typed);

    /// No words: everything matches.
    bool isEmpty() const { return words.isEmpty(); }
    bool matches(QStringView text) const;
    /// Whether all that this matches was matched by `older` as well.
    bool narrows(const ListFilter &older) const;
    /// Where the words stand in `text`, in order; neighbours and overlaps are one range.
    QList<TextRange> ranges(QStringView text) const;

    friend bool operator==(const ListFilter &, const ListFilter &) = default;

private:
    QStringList words{};
};

/// The text of a record that a filter looks at; in `made` where it does not exist yet.
using RecordText = std::function<QStringView(int record, QString &made)>;

/// The records 0 to `count` - 1 that match, in order.
std::vector<int> matchingRecords(const ListFilter &filter, int count, const RecordText &text);
/// Those of `records` that match.
std::vector<int> matchingRecords(const ListFilter &filter, const std::vector<int> &records, const RecordText &text);

} // namespace kestor

#pragma once

#include <QtGlobal>

namespace kestor {

/// Counts of added and removed lines.
struct LineChangeSummary {
    qint64 additions = 0;
    qint64 deletions = 0;

    friend bool operator==(const LineChangeSummary &, const LineChangeSummary &) = default;
};

} // namespace kestor

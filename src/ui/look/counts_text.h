#pragma once

#include "model/line_change_summary.h"

#include <QString>

namespace kestor {

/// The counts of a diff as they are shown: "+1,214" and "−87", grouped by the locale.
struct CountsText {
    QString additions{};
    QString deletions{};
};
CountsText countsText(const LineChangeSummary &changes);

} // namespace kestor

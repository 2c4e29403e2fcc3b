#pragma once

#include "model/line_change_summary.h"
#include "model/working_copy_item.h"
#include "ui/look/theme.h"

#include <QFont>
#include <QRect>
#include <QString>

#include <optional>

class QPainter;

namespace kestor {

/// What the bar above a diff and the head of one of its files say.
struct DiffTitle {
    std::optional<WorkingCopyItem> badge{}; ///< whose badge stands in front
    QString path{};
    std::optional<LineChangeSummary> changes{};
};

/// Paints badge, bold path and counts from the left edge of `area` on; the path loses its middle first.
void paintTitle(QPainter &painter, const QRect &area, const DiffTitle &title, const QFont &font, const Theme &theme);

} // namespace kestor

#pragma once

#include "ui/list/list_filter.h"
#include "ui/list/path_runs.h"
#include "ui/look/theme.h"

#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

namespace kestor {

/// Paints the texts of a row, each on one line in the vertical middle of its rectangle, with what the filter found in
/// bold.
class RowTextPainter {
public:
    /// All must outlive the painter.
    RowTextPainter(QPainter &rowPainter, const Theme &rowTheme, const ListFilter &rowFilter)
        : painter(rowPainter), theme(rowTheme), filter(rowFilter) {}

    /// A path that loses its middle when it is too long.
    void paintPath(const QRect &rect, const QString &path, const QFont &font);
    /// A text that loses its end when it is too long.
    void paintText(const QRect &rect, const QString &text, const QFont &font, RunRole role);
    /// The whole text at the right end; returns its width.
    int paintAtRight(const QRect &rect, const QString &text, const QFont &font, RunRole role);

private:
    double width(const QString &text, const QFont &font) const;
    void paintRuns(const QRect &rect, const QList<TextRun> &runs, const QFont &font, RunRole plainRole);

    QPainter &painter;
    const Theme &theme;
    const ListFilter &filter;
};

} // namespace kestor

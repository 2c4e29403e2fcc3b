#pragma once

#include "ui/list/list_filter.h"
#include "ui/list/path_runs.h"
#include "ui/look/theme.h"

#include <QFont>
#include <QRect>
#include <QString>

#include <utility>

class QPainter;

namespace kestor {

/// Paints the texts of a row, each on one line in the vertical middle of its rectangle, with what the filter found in
/// bold.
class RowTextPainter {
public:
    /// Painter and theme must outlive it.
    RowTextPainter(QPainter &rowPainter, const Theme &rowTheme, ListFilter rowFilter)
        : painter(rowPainter), theme(rowTheme), filter(std::move(rowFilter)) {}

    /// The same for texts that the filter does not look at.
    RowTextPainter unsearched() const { return {painter, theme, {}}; }

    /// A path that loses its middle when it is too long.
    void paintPath(const QRect &rect, const QString &path, const QFont &font);
    /// A text that loses its end, or its middle, when it is too long; returns its width.
    int paintText(const QRect &rect, const QString &text, const QFont &font, RunRole role,
                  Qt::TextElideMode mode = Qt::ElideRight);
    /// The whole text at the right end; returns its width.
    int paintAtRight(const QRect &rect, const QString &text, const QFont &font, RunRole role);

private:
    double width(const QString &text, const QFont &font) const;
    int paintRuns(const QRect &rect, const QList<TextRun> &runs, const QFont &font, RunRole plainRole);

    QPainter &painter;
    const Theme &theme;
    ListFilter filter;
};

} // namespace kestor

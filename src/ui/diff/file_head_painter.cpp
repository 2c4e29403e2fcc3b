#include "ui/diff/file_head_painter.h"

#include "ui/diff/file_heading.h"
#include "ui/diff/title_painter.h"
#include "ui/look/icons.h"
#include "ui/look/metrics.h"

#include <QPainter>

namespace kestor {

namespace {

constexpr int foldMargin = 16;
constexpr int foldIcon = 16;

void paintFrame(QPainter &painter, const QRect &area, HeadEdge edge, const Theme &theme) {
    painter.fillRect(area, theme.alternate);
    painter.fillRect(QRect(area.left(), area.bottom(), area.width(), 1), theme.separator);
    if (edge == HeadEdge::bothSides)
        painter.fillRect(QRect(area.left(), area.top(), area.width(), 1), theme.separator);
}

void paintFold(QPainter &painter, const QRect &area, HeadFold fold) {
    const QRect place(area.right() + 1 - foldMargin - foldIcon, area.top() + (area.height() - foldIcon) / 2, foldIcon,
                      foldIcon);
    icon(fold == HeadFold::folded ? Icon::chevronRight : Icon::chevronDown).paint(&painter, place);
}

} // namespace

void paintFileHead(QPainter &painter, const DiffFile &file, const QRect &area, HeadLook look, const QFont &font,
                   const Theme &theme) {
    paintFrame(painter, area, look.edge, theme);
    paintFold(painter, area, look.fold);
    const FileHeading heading = fileHeading(file);
    const DiffTitle title{WorkingCopyItem{.path = heading.path, .kind = heading.kind}, heading.title(),
                          LineChangeSummary{file.additions, file.deletions}};
    paintTitle(painter, area.adjusted(paneEdge, 0, -foldMargin - foldIcon - gap, 0), title, font, theme);
}

} // namespace kestor

#include "ui/diff/diff_painter.h"

#include "ui/diff/colored_parts.h"
#include "ui/diff/file_head_painter.h"
#include "ui/look/metrics.h"

#include <QPainter>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

/// The colors of a line.
struct LineColors {
    QColor background, gutter, marker, mark;
    QString sign{};
};

LineColors lineColors(DiffLineKind kind, const Theme &theme) {
    switch (kind) {
    case DiffLineKind::addition:
        return {theme.addLine, theme.addGutter, theme.addText, theme.addWord, u"+"_s};
    case DiffLineKind::deletion:
        return {theme.delLine, theme.delGutter, theme.delText, theme.delWord, u"−"_s};
    case DiffLineKind::context:
    case DiffLineKind::hunk:
    case DiffLineKind::note:
        break;
    }
    return {theme.base, theme.gutter, theme.muted, theme.base};
}

/// Paints the rows of one scene; `area` is always the row in the viewport.
class DiffPainter {
public:
    DiffPainter(QPainter &target, const DiffScene &shown)
        : painter(target), scene(shown), metrics(shown.metrics), theme(shown.theme) {}

    void paint(const QRect &exposed) {
        painter.fillRect(exposed, theme.base);
        const qint64 firstY = scene.scrolled.y() + exposed.top();
        for (qint64 row = scene.rows.rowAt(firstY); row >= 0 && row < scene.rows.count(); ++row) {
            const auto top = static_cast<int>(scene.rows.top(row) - scene.scrolled.y());
            if (top > exposed.bottom())
                break;
            paintRow(scene.rows.at(row), QRect(0, top, scene.size.width(), scene.rows.rowHeight(row)));
        }
        const auto sticky = stickyHead(scene.rows, metrics, scene.scrolled.y());
        if (sticky)
            paintFileHead(sticky->file, QRect(0, sticky->top, scene.size.width(), metrics.rows.fileHead));
    }

private:
    void paintRow(const DiffRow &row, const QRect &area) {
        switch (row.kind) {
        case DiffRowKind::fileHead:
            paintFileHead(row.file, area);
            break;
        case DiffRowKind::noText:
            paintNoText(area);
            break;
        case DiffRowKind::hunkHead:
            paintHunkHead(scene.rows.hunk(row.hunk), area);
            break;
        case DiffRowKind::line:
            if (metrics.hasGutters()) {
                paintDiffLine(row, area);
            } else {
                paintPlainLine(row.line, area);
            }
            break;
        }
        if (row.hunk >= 0 && row.hunk == scene.currentHunk)
            paintCurrentBar(area);
    }

    void paintCurrentBar(const QRect &area) {
        painter.fillRect(QRect(area.left(), area.top(), currentHunkBar, area.height()), theme.accent);
    }

    void paintFileHead(qint64 file, const QRect &area) {
        const HeadLook look{file > 0 ? HeadEdge::bothSides : HeadEdge::below,
                            scene.rows.isFolded(file) ? HeadFold::folded : HeadFold::open};
        kestor::paintFileHead(painter, scene.document.diff.files[file], area, look, metrics.uiFont, theme);
        if (file == scene.currentFile)
            paintCurrentBar(area);
    }

    void paintNoText(const QRect &area) {
        painter.setFont(metrics.uiFont);
        painter.setPen(theme.muted);
        painter.drawText(area.adjusted(paneEdge, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, u"(no text diff)"_s);
    }

    ColumnView columnsOf(const QRect &area) const {
        const int left = metrics.hasGutters() ? metrics.textLeft : 0;
        return {static_cast<double>(metrics.textLeft - scene.scrolled.x()), metrics.advance,
                area.adjusted(left, 0, 0, 0)};
    }

    void paintHunkHead(const DiffHunk &hunk, const QRect &area) {
        painter.fillRect(area, theme.hunkBand);
        const ColumnView columns = columnsOf(area);
        painter.save();
        painter.setClipRect(columns.area, Qt::IntersectClip);
        const QStringView header = hunk.header;
        const qsizetype close = header.indexOf(u" @@", 2);
        const qsizetype rangeEnd = close < 0 ? header.size() : close + 3;
        const int baseline = DiffMetrics::baseline(metrics.text, area.top(), area.height());
        const auto paintPart = [&](qsizetype begin, qsizetype end, const QColor &color) {
            paintStretch(painter, header, {}, {begin, end, metrics.text, &metrics.textGlyphs, color, theme.muted},
                         columns, baseline);
        };
        paintPart(0, rangeEnd, theme.hunkText);
        paintPart(rangeEnd, header.size(), theme.text);
        painter.restore();
    }

    void paintDiffLine(const DiffRow &row, const QRect &area) {
        const DiffHunk &hunk = scene.rows.hunk(row.hunk);
        const DiffLine line = hunk.line(row.line - hunk.firstLine);
        const LineColors look = lineColors(line.kind, theme);
        painter.fillRect(area, look.background);
        paintGutters(line, look, area);
        const bool isNote = line.kind == DiffLineKind::note;
        const TextLook textLook{isNote ? metrics.note : metrics.text,
                                isNote ? nullptr : &metrics.textGlyphs,
                                isNote ? mutedOn(look.background, look.mark) : theme.text,
                                scene.looks.find(row.line),
                                look.background,
                                look.mark};
        paintText(row.line, line.text, area, textLook);
    }

    /// For notes, and for signs in place of characters that cannot be seen: readable wherever in a line they stand.
    QColor mutedOn(const QColor &background, const QColor &mark) const {
        QColor color = theme.muted;
        for (const QColor &ground : {background, mark, selectionColor()})
            color = scene.colors.on(color, ground);
        return color;
    }

    void paintGutters(const DiffLine &line, const LineColors &look, const QRect &area) {
        const int width = metrics.gutterWidth;
        const QRect oldArea(area.left(), area.top(), width, area.height());
        const QRect newArea = oldArea.translated(width, 0);
        painter.fillRect(oldArea.united(newArea).adjusted(0, 0, 1, 0), look.gutter);
        if (look.sign.isEmpty())
            painter.fillRect(QRect(2 * width, area.top(), 1, area.height()), theme.separator);
        paintNumber(line.oldLineNumber, oldArea);
        paintNumber(line.newLineNumber, newArea);
        painter.setFont(metrics.marker);
        painter.setPen(look.marker);
        painter.drawText(QRect(2 * width + 1, area.top(), markerWidth, area.height()), Qt::AlignCenter, look.sign);
    }

    void paintNumber(const std::optional<qint64> &number, const QRect &area) {
        if (!number)
            return;
        painter.setFont(metrics.number);
        painter.setPen(theme.gutterText);
        const QString digits = QString::number(*number);
        const double left = area.right() + 1 - gap - static_cast<double>(digits.size()) * metrics.digitAdvance;
        const QPointF origin(left, DiffMetrics::baseline(metrics.number, area.top(), area.height()));
        if (!metrics.numberGlyphs.draw(painter, origin, digits))
            painter.drawText(origin, digits);
    }

    void paintPlainLine(qint64 line, const QRect &area) {
        const QStringView text = scene.document.lineText(line);
        const QColor background = lineColors(signOf(text), theme).background;
        painter.fillRect(area, background);
        if (scene.document.isError(line))
            paintErrorBar(area);
        if (line == scene.document.errorHeading)
            paintText(
                line, text, area,
                {metrics.errorHeading, nullptr, mutedOn(background, background), nullptr, background, background});
        else
            paintText(line, text, area,
                      {metrics.text, &metrics.textGlyphs, theme.text, nullptr, background, background});
    }

    DiffLineKind signOf(QStringView text) const {
        if (scene.tint == PlainTint::none)
            return DiffLineKind::context;
        if (text.startsWith(u'+'))
            return DiffLineKind::addition;
        return text.startsWith(u'-') ? DiffLineKind::deletion : DiffLineKind::context;
    }

    void paintErrorBar(const QRect &area) {
        const int left = metrics.textLeft - scene.scrolled.x();
        painter.fillRect(QRect(left, area.top(), currentHunkBar, area.height()), theme.delMark);
    }

    /// How the text of a line looks.
    struct TextLook {
        QFont font{};
        const GridGlyphs *glyphs = nullptr; ///< as in TextStretch
        QColor color{};                     ///< outside of its spans
        const LineLook *parts = nullptr;    ///< null for none
        QColor background{};
        QColor mark{};
    };

    /// The text of a line over its changed words and its selected part.
    void paintText(qint64 line, QStringView text, const QRect &area, const TextLook &look) {
        ColumnView columns = columnsOf(area);
        columns.left += scene.document.isError(line) ? errorIndent : 0;
        painter.save();
        painter.setClipRect(columns.area, Qt::IntersectClip);
        const LongLines &longLines = scene.document.longLines;
        if (look.parts)
            paintGround(painter, text, longLines, look.parts->marks, look.mark, columns);
        paintSelection(line, text, columns);
        std::vector<ColoredPart> parts;
        if (look.parts)
            parts = visibleParts(line, text, columns, look);
        const QColor sign = mutedOn(look.background, look.mark);
        paintStretch(painter, text, longLines, {0, text.size(), look.font, look.glyphs, look.color, sign, parts},
                     columns, DiffMetrics::baseline(metrics.text, area.top(), area.height()));
        painter.restore();
    }

    std::vector<ColoredPart> visibleParts(qint64 line, QStringView text, const ColumnView &columns,
                                          const TextLook &look) {
        const VisiblePart visible = visiblePart(text, scene.document.longLines, columns);
        const SelectedPart selected =
            scene.selection ? selectedPart(*scene.selection, line, text.size()) : SelectedPart();
        return coloredParts(*look.parts, visible.begin, visible.end, selected,
                            {look.background, look.mark, selectionColor()}, scene.colors);
    }

    const QColor &selectionColor() const {
        return scene.focus == DiffFocus::focused ? theme.selection : theme.selectionIdle;
    }

    void paintSelection(qint64 line, QStringView text, const ColumnView &columns) {
        if (!scene.selection)
            return;
        const SelectedPart part = selectedPart(*scene.selection, line, text.size());
        if (part.begin < part.end || part.goesOn)
            paintSelectedPart(part, text, columns);
        if (scene.focus == DiffFocus::focused && scene.selection->caret.line == line)
            paintCaret(xOf(scene.selection->caret.index, text, columns), columns.area);
    }

    void paintSelectedPart(const SelectedPart &part, QStringView text, const ColumnView &columns) {
        const double left = xOf(part.begin, text, columns);
        const double right = xOf(part.end, text, columns) + (part.goesOn ? metrics.advance : 0);
        QRectF selected(left, columns.area.top(), right - left, columns.area.height());
        painter.fillRect(selected.intersected(columns.area), selectionColor());
    }

    void paintCaret(double x, const QRect &area) {
        painter.fillRect(QRectF(x, area.top() + 2, 1, area.height() - 4).toRect(), theme.focusRing);
    }

    double xOf(qsizetype index, QStringView text, const ColumnView &columns) const {
        return columns.xOf(scene.document.longLines.columnOf(text, index));
    }

    QPainter &painter;
    const DiffScene &scene;
    const DiffMetrics &metrics;
    const Theme &theme;
};

} // namespace

std::optional<StickyHead> stickyHead(const DiffRows &rows, const DiffMetrics &metrics, qint64 y) {
    if (!rows.hasFileHeads())
        return std::nullopt;
    const qint64 file = rows.at(rows.rowAt(y)).file;
    const qint64 end = rows.endOfFile(file);
    const qint64 room = end - y - metrics.rows.fileHead;
    return StickyHead{file, static_cast<int>(std::min<qint64>(0, room))};
}

void paintDiff(QPainter &painter, const DiffScene &scene, const QRect &exposed) {
    DiffPainter(painter, scene).paint(exposed);
}

} // namespace kestor

#include "ui/look/icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

namespace kestor {

namespace {

constexpr double side = 16;

/// Lines to be stroked and areas to be filled, in a square of 16 units.
struct Drawing {
    QPainterPath lines{};
    QPainterPath areas{};

    void polyline(std::initializer_list<QPointF> points) {
        lines.moveTo(*points.begin());
        for (const QPointF *point = points.begin() + 1; point != points.end(); ++point)
            lines.lineTo(*point);
    }
    void closed(std::initializer_list<QPointF> points) {
        polyline(points);
        lines.closeSubpath();
    }
    void circle(QPointF center, double radius) { lines.addEllipse(center, radius, radius); }
    void dot(QPointF center, double radius) { areas.addEllipse(center, radius, radius); }
    void box(QRectF rect, double radius) { lines.addRoundedRect(rect, radius, radius); }
    /// Degrees as in QPainterPath: 0 is at three o'clock, positive turns are counter-clockwise.
    void arc(QRectF rect, double start, double sweep) {
        lines.arcMoveTo(rect, start);
        lines.arcTo(rect, start, sweep);
    }
};

Drawing branchDrawing() {
    Drawing drawing;
    drawing.circle({4.5, 3.5}, 1.75);
    drawing.circle({4.5, 12.5}, 1.75);
    drawing.circle({11.5, 4.5}, 1.75);
    drawing.polyline({{4.5, 5.25}, {4.5, 10.75}});
    drawing.lines.moveTo(11.5, 6.25);
    drawing.lines.cubicTo(11.5, 9.5, 4.5, 7.5, 4.5, 10.75);
    return drawing;
}

Drawing folderDrawing() {
    Drawing drawing;
    drawing.closed({{1.75, 3.25}, {6, 3.25}, {7.75, 5.25}, {14.25, 5.25}, {14.25, 12.75}, {1.75, 12.75}});
    return drawing;
}

Drawing warningDrawing() {
    Drawing drawing;
    drawing.closed({{8, 2}, {14.75, 13.75}, {1.25, 13.75}});
    drawing.polyline({{8, 6.5}, {8, 9.75}});
    drawing.dot({8, 11.75}, 0.9);
    return drawing;
}

Drawing drawingOf(Icon icon) { // NOLINT(readability-function-size): a table, a few lines for each icon
    Drawing drawing;
    switch (icon) {
    case Icon::search:
        drawing.circle({7, 7}, 4.5);
        drawing.polyline({{10.25, 10.25}, {14, 14}});
        break;
    case Icon::clear:
        drawing.polyline({{4.5, 4.5}, {11.5, 11.5}});
        drawing.polyline({{11.5, 4.5}, {4.5, 11.5}});
        break;
    case Icon::plus:
        drawing.polyline({{8, 2.5}, {8, 13.5}});
        drawing.polyline({{2.5, 8}, {13.5, 8}});
        break;
    case Icon::minus:
        drawing.polyline({{2.5, 8}, {13.5, 8}});
        break;
    case Icon::sidebar:
        drawing.box({1.75, 2.75, 12.5, 10.5}, 1.5);
        drawing.polyline({{6.25, 2.75}, {6.25, 13.25}});
        break;
    case Icon::refresh:
        drawing.arc({2.75, 2.75, 10.5, 10.5}, 40, 285);
        drawing.polyline({{13.25, 1.75}, {13.25, 5.25}, {9.75, 5.25}});
        break;
    case Icon::update:
        drawing.polyline({{8, 1.75}, {8, 10.25}});
        drawing.polyline({{4.25, 6.75}, {8, 10.5}, {11.75, 6.75}});
        drawing.polyline({{2.25, 13.75}, {13.75, 13.75}});
        break;
    case Icon::terminal:
        drawing.box({1.75, 2.75, 12.5, 10.5}, 1.5);
        drawing.polyline({{4.5, 6}, {6.75, 8}, {4.5, 10}});
        drawing.polyline({{8.25, 10.25}, {11.25, 10.25}});
        break;
    case Icon::folder:
        return folderDrawing();
    case Icon::more:
        for (const double x : {3.0, 8.0, 13.0})
            drawing.dot({x, 8}, 1.25);
        break;
    case Icon::branch:
        return branchDrawing();
    case Icon::chevronDown:
        drawing.polyline({{4.25, 6.25}, {8, 10}, {11.75, 6.25}});
        break;
    case Icon::chevronRight:
        drawing.polyline({{6.25, 4.25}, {10, 8}, {6.25, 11.75}});
        break;
    case Icon::arrowUp:
        drawing.polyline({{8, 13.5}, {8, 3}});
        drawing.polyline({{3.75, 7}, {8, 2.75}, {12.25, 7}});
        break;
    case Icon::arrowDown:
        drawing.polyline({{8, 2.5}, {8, 13}});
        drawing.polyline({{3.75, 9}, {8, 13.25}, {12.25, 9}});
        break;
    case Icon::copy:
        drawing.box({5.75, 5.75, 8, 8}, 1.25);
        drawing.polyline({{3.5, 10.25}, {2.25, 10.25}, {2.25, 2.25}, {10.25, 2.25}, {10.25, 3.5}});
        break;
    case Icon::close:
        drawing.polyline({{3.5, 3.5}, {12.5, 12.5}});
        drawing.polyline({{12.5, 3.5}, {3.5, 12.5}});
        break;
    case Icon::check:
        drawing.polyline({{2.75, 8.5}, {6.5, 12.25}, {13.25, 4.25}});
        break;
    case Icon::warning:
        return warningDrawing();
    case Icon::play:
        drawing.areas.addPolygon(QPolygonF({{4.5, 2.5}, {13, 8}, {4.5, 13.5}}));
        break;
    case Icon::pause:
        drawing.areas.addRect(4, 3, 2.75, 10);
        drawing.areas.addRect(9.25, 3, 2.75, 10);
        break;
    case Icon::archive:
        drawing.closed({{3, 1.75}, {9.5, 1.75}, {13, 5.25}, {13, 14.25}, {3, 14.25}});
        drawing.polyline({{7.25, 2}, {7.25, 3.75}});
        drawing.polyline({{7.25, 6}, {7.25, 7.25}});
        drawing.box({6.25, 9.25, 2, 2.5}, 0.5);
        break;
    }
    return drawing;
}

QColor colorFor(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::WindowText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    default:
        return palette.color(QPalette::Active, QPalette::WindowText);
    }
}

/// Paints afresh for every size and palette, so nothing needs to be told about either.
class LineIconEngine final : public QIconEngine {
public:
    explicit LineIconEngine(Icon shownIcon) : shown(shownIcon), drawing(drawingOf(shownIcon)) {}

    QIconEngine *clone() const override { return new LineIconEngine(shown); }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override {
        const double scale = qMin(rect.width(), rect.height()) / side;
        const QColor color = colorFor(mode);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(QRectF(rect).center() - QPointF(side, side) * scale / 2);
        painter->scale(scale, scale);
        painter->strokePath(drawing.lines, QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->fillPath(drawing.areas, color);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

private:
    Icon shown;
    Drawing drawing;
};

} // namespace

QIcon icon(Icon icon) {
    return QIcon(new LineIconEngine(icon));
}

} // namespace kestor

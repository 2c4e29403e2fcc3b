#include "ui/preview/image_view.h"

#include "ui/look/focus_frame.h"
#include "ui/preview/worker_release.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtConcurrentRun>

#include <algorithm>
#include <utility>

namespace kestor {

namespace {

constexpr int padding = 12;
constexpr int tile = 8;
/// From here on the pixels themselves are to be seen.
constexpr double squarePixelsFrom = 4;
/// Larger images are not smoothed when they are magnified: it would take long, and much memory.
constexpr qint64 mostSmoothPixels = 4'000'000;
/// What is larger is stretched.
constexpr int largestDrawnSide = 8192;

/// Tiles from the upper left corner of `place` on. A brush with a pattern would be painted by Qt's own pool of threads.
void paintCheckerboard(QPainter &painter, const QRectF &place, const QRectF &visible, const Theme &theme) {
    painter.fillRect(visible, theme.checkA);
    const auto firstTile = [](double from, double seen) {
        return static_cast<int>((seen - from) / tile);
    };
    for (int row = firstTile(place.top(), visible.top()); place.top() + row * tile < visible.bottom(); ++row) {
        int column = firstTile(place.left(), visible.left());
        column += (row + column + 1) % 2;
        for (; place.left() + column * tile < visible.right(); column += 2) {
            const QRectF square(place.left() + column * tile, place.top() + row * tile, tile, tile);
            painter.fillRect(square & visible, theme.checkB);
        }
    }
}

} // namespace

ImageView::ImageView(QWidget *parent) : QAbstractScrollArea(parent), theme(themeFor(palette())) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Base);
    connect(&scaling, &QFutureWatcher<QImage>::finished, this, [this] {
        if (scaling.isCanceled())
            return;
        releaseOnWorker(std::exchange(picture, scaling.result()));
        viewport()->update();
    });
}

ImageView::~ImageView() {
    scaling.cancel();
}

QSize ImageView::roomIn(QSize size) {
    return (size - QSize(2 * padding, 2 * padding)).expandedTo({1, 1});
}

void ImageView::setImage(const DecodedImage &shownImage, const QImage &scaled) {
    scaling.setFuture({});
    releaseOnWorker(std::exchange(image, shownImage));
    releaseOnWorker(std::exchange(picture, scaled));
    updateScrollBars();
    prepareScaled();
    viewport()->update();
}

void ImageView::setFactor(double newFactor) {
    if (newFactor == factor)
        return;
    // What is in the middle stays there.
    const auto middle = [](const QScrollBar &bar) {
        const int whole = bar.maximum() + bar.pageStep();
        return whole > 0 ? (bar.value() + bar.pageStep() / 2.0) / whole : 0.5;
    };
    const double x = middle(*horizontalScrollBar());
    const double y = middle(*verticalScrollBar());
    factor = newFactor;
    updateScrollBars();
    const auto restore = [](QScrollBar &bar, double place) {
        bar.setValue(qRound(place * (bar.maximum() + bar.pageStep()) - bar.pageStep() / 2.0));
    };
    restore(*horizontalScrollBar(), x);
    restore(*verticalScrollBar(), y);
    prepareScaled();
    viewport()->update();
}

/// The pixels of the device that the image takes.
QSize ImageView::target() const {
    return scaledSize(image.size, factor);
}

QSizeF ImageView::contentSize() const {
    return QSizeF(target()) / devicePixelRatioF() + QSizeF(2 * padding, 2 * padding);
}

void ImageView::updateScrollBars() {
    const QSize content = contentSize().toSize();
    const QSize room = maximumViewportSize();
    const bool fits = content.width() <= room.width() && content.height() <= room.height();
    const QSize page = fits ? room : viewport()->size();
    horizontalScrollBar()->setRange(0, std::max(0, content.width() - page.width()));
    verticalScrollBar()->setRange(0, std::max(0, content.height() - page.height()));
    horizontalScrollBar()->setPageStep(page.width());
    verticalScrollBar()->setPageStep(page.height());
    horizontalScrollBar()->setSingleStep(tile * 2);
    verticalScrollBar()->setSingleStep(tile * 2);
}

/// Whether the image is computed for its scale, or its pixels are painted as squares.
bool ImageView::isScaled() const {
    const QSize size = target();
    const bool isSmall = qint64{size.width()} * size.height() <= mostSmoothPixels;
    return !image.drawing.isEmpty() || factor < 1 || (factor > 1 && factor < squarePixelsFrom && isSmall);
}

void ImageView::prepareScaled() {
    scaling.cancel();
    scaling.setFuture({});
    if (image.size.isEmpty() || !isScaled())
        return;
    QSize wanted = target();
    if (std::max(wanted.width(), wanted.height()) > largestDrawnSide)
        wanted = wanted.scaled(QSize(largestDrawnSide, largestDrawnSide), Qt::KeepAspectRatio).expandedTo({1, 1});
    if (picture.size() != wanted)
        scaling.setFuture(QtConcurrent::run([shown = image, wanted] { return scaledImage(shown, wanted); }));
}

/// On whole pixels of the device, so that nothing blurs.
QRectF ImageView::imagePlace() const {
    const double ratio = devicePixelRatioF();
    const QSizeF size = QSizeF(target()) / ratio;
    const auto start = [ratio](double room, double length, int scrolled) {
        const double wanted = room >= length + 2 * padding ? (room - length) / 2 : padding - scrolled;
        return qRound(wanted * ratio) / ratio;
    };
    return {QPointF(start(viewport()->width(), size.width(), horizontalScrollBar()->value()),
                    start(viewport()->height(), size.height(), verticalScrollBar()->value())),
            size};
}

void ImageView::paintEvent(QPaintEvent *event) {
    paintContent(event->rect());
    if (hasFocus())
        paintFocusFrame(*viewport());
}

void ImageView::paintContent(const QRect &exposed) {
    QPainter painter(viewport());
    painter.fillRect(exposed, theme.base);
    if (image.size.isEmpty())
        return;
    const QRectF place = imagePlace();
    painter.fillRect(place.adjusted(-1, -1, 1, 1), theme.separator);
    const QRectF visible = place & QRectF(viewport()->rect());
    if (image.pixels.isNull() || image.pixels.hasAlphaChannel())
        paintCheckerboard(painter, place, visible, theme);
    paintImage(painter, place, visible);
}

void ImageView::paintImage(QPainter &painter, const QRectF &place, const QRectF &visible) const {
    const bool fromPicture = isScaled() && !picture.isNull();
    const QImage &source = fromPicture ? picture : image.pixels;
    if (source.isNull())
        return;
    const double across = source.width() / place.width();
    const double down = source.height() / place.height();
    const QRectF part((visible.x() - place.x()) * across, (visible.y() - place.y()) * down, visible.width() * across,
                      visible.height() * down);
    // Not smoothly, which takes longer than the main thread may.
    painter.drawImage(visible, source, part);
}

void ImageView::resizeEvent(QResizeEvent *event) {
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

void ImageView::focusInEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void ImageView::focusOutEvent(QFocusEvent *event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void ImageView::wheelEvent(QWheelEvent *event) {
    if (!(event->modifiers() & Qt::ControlModifier))
        return QAbstractScrollArea::wheelEvent(event);
    if (const int turned = event->angleDelta().y(); turned != 0)
        emit zoomRequested(turned > 0 ? 1 : -1);
    event->accept();
}

void ImageView::changeEvent(QEvent *event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        theme = themeFor(palette());
}

void ImageView::mousePressEvent(QMouseEvent *event) {
    dragged = event->position().toPoint();
    const bool scrolls = horizontalScrollBar()->maximum() > 0 || verticalScrollBar()->maximum() > 0;
    if (event->button() == Qt::LeftButton && scrolls)
        viewport()->setCursor(Qt::ClosedHandCursor);
}

void ImageView::mouseMoveEvent(QMouseEvent *event) {
    if (!(event->buttons() & Qt::LeftButton))
        return;
    const QPoint moved = event->position().toPoint() - dragged;
    dragged = event->position().toPoint();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - moved.y());
}

void ImageView::mouseReleaseEvent(QMouseEvent *) {
    viewport()->unsetCursor();
}

} // namespace kestor

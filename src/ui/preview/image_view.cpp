#include "ui/preview/image_view.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtConcurrentRun>

#include <algorithm>

namespace kestor {

namespace {

constexpr int padding = 12;
constexpr int tile = 8;
/// From here on the pixels themselves are to be seen.
constexpr double squarePixelsFrom = 4;
/// Larger drawings are stretched.
constexpr double largestDrawnSide = 8192;

QPixmap checkerboard(const Theme &theme) {
    QPixmap board(2 * tile, 2 * tile);
    board.fill(theme.checkA);
    QPainter painter(&board);
    painter.fillRect(tile, 0, tile, tile, theme.checkB);
    painter.fillRect(0, tile, tile, tile, theme.checkB);
    return board;
}

} // namespace

ImageView::ImageView(QWidget *parent) : QAbstractScrollArea(parent), theme(themeFor(palette())) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Base);
    connect(&scaling, &QFutureWatcher<QImage>::finished, this, [this] {
        if (scaling.isCanceled())
            return;
        picture = scaling.result();
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
    image = shownImage;
    picture = scaled;
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

/// Raster images are scaled down on a worker; where they are shown larger, painting what is in view is quick.
void ImageView::prepareScaled() {
    if (image.size.isEmpty())
        return;
    QSize wanted = target();
    if (!image.drawing.isEmpty() && std::max(wanted.width(), wanted.height()) > largestDrawnSide)
        wanted = wanted.scaled(QSize(largestDrawnSide, largestDrawnSide), Qt::KeepAspectRatio).expandedTo({1, 1});
    const bool needed = !image.drawing.isEmpty() || factor < 1;
    scaling.cancel();
    scaling.setFuture({});
    if (needed && picture.size() != wanted)
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
    QPainter painter(viewport());
    painter.fillRect(event->rect(), theme.base);
    if (image.size.isEmpty())
        return;
    const QRectF place = imagePlace();
    painter.fillRect(place.adjusted(-1, -1, 1, 1), theme.separator);
    const QRectF visible = place & QRectF(viewport()->rect());
    painter.setBrushOrigin(place.topLeft());
    painter.fillRect(visible, QBrush(checkerboard(theme)));
    paintImage(painter, place, visible);
}

void ImageView::paintImage(QPainter &painter, const QRectF &place, const QRectF &visible) const {
    const bool fromPixels = image.drawing.isEmpty() && (factor >= 1 || picture.isNull());
    const QImage &source = fromPixels ? image.pixels : picture;
    if (source.isNull())
        return;
    const double across = source.width() / place.width();
    const double down = source.height() / place.height();
    const QRectF part((visible.x() - place.x()) * across, (visible.y() - place.y()) * down, visible.width() * across,
                      visible.height() * down);
    const bool stretched = source.size() != target();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, stretched && (!fromPixels || factor < squarePixelsFrom));
    painter.drawImage(visible, source, part);
}

void ImageView::resizeEvent(QResizeEvent *event) {
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
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

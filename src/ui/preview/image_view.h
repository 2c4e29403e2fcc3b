#pragma once

#include "ui/look/theme.h"
#include "ui/preview/image_decoding.h"

#include <QAbstractScrollArea>
#include <QFutureWatcher>
#include <QRectF>

namespace kestor {

/// One image on a checkerboard, at any scale: whole in the middle, or scrolled. Smaller scales of it are computed on a
/// worker; until they are ready the last one is stretched. Main thread only.
class ImageView final : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit ImageView(QWidget *parent = nullptr);
    ~ImageView() override;

    /// `scaled` is the image at some scale that is known already, or null.
    void setImage(const DecodedImage &shownImage, const QImage &scaled);
    /// Device pixels for each pixel of the image.
    void setFactor(double newFactor);
    /// Where an image of this view would be fitted in, of a view of `size`; in logical pixels.
    static QSize roomIn(QSize size);

signals:
    /// Steps of the wheel with Ctrl, ahead to larger scales.
    void zoomRequested(int steps);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QSize target() const;
    QSizeF contentSize() const;
    QRectF imagePlace() const;
    void updateScrollBars();
    bool isScaled() const;
    void prepareScaled();
    void paintContent(const QRect &exposed);
    void paintImage(QPainter &painter, const QRectF &place, const QRectF &visible) const;

    Theme theme;
    DecodedImage image;
    QImage picture; ///< the image at some scale
    double factor = 1;
    QFutureWatcher<QImage> scaling;
    QPoint dragged{};
};

} // namespace kestor

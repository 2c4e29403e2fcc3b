#include "ui/preview/image_decoding.h"

#include "ui/preview/image_shrinking.h"

#include <QBuffer>
#include <QImageReader>
#include <QPixelFormat>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// A packed drawing can become a thousand times as large, and all of it is unpacked at once.
constexpr qsizetype largestPackedDrawing = qsizetype{64} << 10;
constexpr qsizetype largestDrawing = qsizetype{32} << 20;

/// A reader over bytes that outlive it.
class BytesReader {
public:
    BytesReader(const QByteArray &data, const QString &path) : reader(opened(data), suffixOf(path)) {
        reader.setAutoTransform(true);
    }

    QImageReader *operator->() { return &reader; }
    bool isDrawing() const { return reader.format().startsWith("svg"); }
    /// As it is to be seen: turned as the camera was held.
    QSize seenSize() const {
        const QSize size = reader.size();
        return reader.transformation() & QImageIOHandler::TransformationRotate90 ? size.transposed() : size;
    }

private:
    static QByteArray suffixOf(const QString &path) { return path.section(u'.', -1).toLower().toLatin1(); }
    QBuffer *opened(const QByteArray &data) {
        buffer.setData(data);
        buffer.open(QIODevice::ReadOnly);
        return &buffer;
    }

    QBuffer buffer;
    QImageReader reader;
};

bool isTooLargeDrawing(const QByteArray &data, const QString &path) {
    if (data.startsWith("\x1f\x8b"))
        return data.size() > largestPackedDrawing;
    return data.size() > largestDrawing && path.endsWith(u".svg", Qt::CaseInsensitive);
}

bool isTooLarge(QSize size, QImage::Format format) {
    const qint64 pixels = qint64{size.width()} * size.height();
    const int bits = std::max(32, int{QImage::toPixelFormat(format).bitsPerPixel()});
    return pixels > mostPixels || pixels / 8 * bits > qint64{mostDecodedMegabytes} << 20;
}

bool magnifies(QSize size, QSize target) {
    return target.width() > size.width() || target.height() > size.height();
}

} // namespace

void boundImageMemory() {
    QImageReader::setAllocationLimit(mostDecodedMegabytes);
}

QSize imageSize(const QByteArray &data, const QString &path) {
    return isTooLargeDrawing(data, path) ? QSize() : BytesReader(data, path).seenSize();
}

DecodedImage decodedImage(const QByteArray &data, const QString &path) {
    if (isTooLargeDrawing(data, path))
        return {.state = DecodeState::tooLarge};
    BytesReader reader(data, path);
    DecodedImage image{.size = reader.seenSize()};
    if (reader.isDrawing()) {
        if (!image.size.isEmpty())
            image = {.state = DecodeState::shown, .size = image.size, .drawing = data};
        return image;
    }
    if (isTooLarge(image.size, reader->imageFormat())) {
        image.state = DecodeState::tooLarge;
        return image;
    }
    image.pixels = reader->read();
    if (image.pixels.isNull())
        return image;
    image.pixels = paintable(std::move(image.pixels));
    image.pixels.setDevicePixelRatio(1); // from names like "icon@2x.png" in the data
    image.state = DecodeState::shown;
    image.size = image.pixels.size();
    return image;
}

QImage scaledImage(const DecodedImage &image, QSize target) {
    if (image.drawing.isEmpty())
        return magnifies(image.size, target)
                   ? image.pixels.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                   : shrunk(image.pixels, target);
    BytesReader reader(image.drawing, u".svg"_s);
    reader->setScaledSize(target);
    return reader->read();
}

double fitFactor(std::span<const QSize> sizes, QSize box) {
    double factor = mostMagnified;
    for (const QSize &size : sizes) {
        if (!size.isEmpty())
            factor = std::min({factor, double(box.width()) / size.width(), double(box.height()) / size.height()});
    }
    return factor;
}

QSize scaledSize(QSize size, double factor) {
    const auto scaled = [factor](int length) {
        return std::max(1, static_cast<int>(std::lround(length * factor)));
    };
    return {scaled(size.width()), scaled(size.height())};
}

} // namespace kestor

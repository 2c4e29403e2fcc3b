#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <cstdint>
#include <span>

namespace kestor {

/// Larger images are described, not decoded.
inline constexpr qint64 mostPixels = 256'000'000;
inline constexpr int mostDecodedMegabytes = 1024;
/// Small images are not magnified more than this to fill a pane.
inline constexpr double mostMagnified = 4;

enum class DecodeState : std::uint8_t { shown, unreadable, tooLarge };

/// What the data of an image turned out to be.
struct DecodedImage {
    DecodeState state = DecodeState::unreadable;
    QSize size{};         ///< in pixels, as it is to be seen; of a drawing the size it asks for
    QImage pixels{};      ///< null for a drawing, which is drawn anew in every size
    QByteArray drawing{}; ///< the data of an SVG image
};

/// To be called once before anything is decoded: holds Qt's readers to `mostDecodedMegabytes`.
void boundImageMemory();

// All of these may take long; workers.

/// Decodes the first frame, its header first. The name in `path` helps with formats that have no signature.
DecodedImage decodedImage(const QByteArray &data, const QString &path);
/// The size that the header speaks of; invalid for what is no image.
QSize imageSize(const QByteArray &data, const QString &path);
/// The image in exactly `target` pixels.
QImage scaledImage(const DecodedImage &image, QSize target);

/// The factor at which every one of `sizes` fits into `box`.
double fitFactor(std::span<const QSize> sizes, QSize box);
/// Never empty.
QSize scaledSize(QSize size, double factor);

} // namespace kestor

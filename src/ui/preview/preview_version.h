#pragma once

#include "model/diff_preview.h"
#include "ui/preview/image_decoding.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace kestor {

/// One version of a previewed file, ready to be shown.
struct PreviewVersion {
    DiffPreviewKind kind = DiffPreviewKind::empty;
    bool exists = false;
    DecodeState state = DecodeState::unreadable;
    qint64 bytes = 0;
    QString style{};      ///< of a font
    DecodedImage image{}; ///< of an image
    QImage picture{};     ///< the image scaled to fit, or the sample of a font
    QByteArray sound{};   ///< of a sound, undecoded

    bool isShown() const { return exists && state == DecodeState::shown; }
};

/// What is known about the place for a preview, in device pixels.
struct PreviewPlace {
    QSize box{}; ///< for one image
    double devicePixelRatio = 1;
};

/// Decodes the data of one version; `other` is that of its neighbour, as both are shown at one scale. Takes long;
/// workers.
PreviewVersion previewVersion(DiffPreviewKind kind, const QString &path, const std::optional<QByteArray> &data,
                              const std::optional<QByteArray> &other, const PreviewPlace &place);

/// The right end of a version's head: "128 × 128 · 3.4 KB", "Medium · 184 KB", "61 KB"; "" without a version.
QString versionText(const PreviewVersion &version);
/// What stands where the version would be when it cannot be shown; "" when it is.
QString missingText(const PreviewVersion &version);
/// The sentence that compares two images: "Same size, 0.5 KB smaller"; "" unless there are two.
QString differenceText(const PreviewVersion &before, const PreviewVersion &after);

} // namespace kestor

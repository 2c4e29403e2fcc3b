#include "ui/preview/preview_version.h"

#include "model/size_text.h"
#include "ui/preview/font_sample.h"

#include <QLocale>
#include <QStringList>

#include <array>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QString pixelText(QSize size) {
    const QLocale locale;
    return u"%1 × %2"_s.arg(locale.toString(size.width()), locale.toString(size.height()));
}

void decodeImage(PreviewVersion &version, const QString &path, const QByteArray &data,
                 const std::optional<QByteArray> &other, QSize box) {
    version.image = decodedImage(data, path);
    version.state = version.image.state;
    if (version.state != DecodeState::shown || box.isEmpty())
        return;
    const std::array sizes{version.image.size, other ? imageSize(*other, path) : QSize()};
    const double factor = fitFactor(sizes, box);
    if (factor < mostMagnified || !version.image.drawing.isEmpty())
        version.picture = scaledImage(version.image, scaledSize(version.image.size, factor));
}

void decodeFont(PreviewVersion &version, const QByteArray &data, double devicePixelRatio) {
    const FontSample sample = fontSample(data, devicePixelRatio);
    version.style = sample.style;
    version.picture = sample.lines;
    version.state = sample.lines.isNull() ? DecodeState::unreadable : DecodeState::shown;
}

QString missingVersionText(DiffPreviewKind kind) {
    switch (kind) {
    case DiffPreviewKind::font:
        return u"No font in this revision"_s;
    case DiffPreviewKind::audio:
        return u"No audio in this revision"_s;
    default:
        return u"No image in this revision"_s;
    }
}

QString bytesDifference(qint64 before, qint64 after) {
    if (before == after)
        return u"same number of bytes"_s;
    return (after < before ? u"%1 smaller"_s : u"%1 larger"_s).arg(sizeText(std::abs(after - before)));
}

} // namespace

PreviewVersion previewVersion(DiffPreviewKind kind, const QString &path, const std::optional<QByteArray> &data,
                              const std::optional<QByteArray> &other, const PreviewPlace &place) {
    PreviewVersion version{.kind = kind, .exists = data.has_value()};
    if (!data)
        return version;
    version.bytes = data->size();
    if (kind == DiffPreviewKind::image) {
        decodeImage(version, path, *data, other, place.box);
    } else if (kind == DiffPreviewKind::font) {
        decodeFont(version, *data, place.devicePixelRatio);
    } else if (kind == DiffPreviewKind::audio && !data->isEmpty()) {
        version.sound = *data;
        version.state = DecodeState::shown;
    }
    return version;
}

QString versionText(const PreviewVersion &version) {
    if (!version.exists)
        return {};
    QStringList parts;
    if (!version.image.size.isEmpty())
        parts.append(pixelText(version.image.size));
    if (!version.style.isEmpty())
        parts.append(version.style);
    parts.append(sizeText(version.bytes));
    return parts.join(u" · "_s);
}

QString missingText(const PreviewVersion &version) {
    if (!version.exists)
        return missingVersionText(version.kind);
    switch (version.state) {
    case DecodeState::shown:
        return {};
    case DecodeState::tooLarge:
        return u"Too large to be shown."_s;
    case DecodeState::unreadable:
        break;
    }
    return u"This file cannot be shown."_s;
}

QString differenceText(const PreviewVersion &before, const PreviewVersion &after) {
    if (!before.exists || !after.exists || before.image.size.isEmpty() || after.image.size.isEmpty())
        return {};
    const QString size = before.image.size == after.image.size
                             ? u"Same size"_s
                             : u"%1 → %2"_s.arg(pixelText(before.image.size), pixelText(after.image.size));
    return u"%1, %2"_s.arg(size, bytesDifference(before.bytes, after.bytes));
}

} // namespace kestor

#include "sample_media.h"
#include "support/window_test.h"
#include "ui/preview/image_shrinking.h"
#include "ui/preview/preview_version.h"

namespace kestor {
namespace {

constexpr PreviewPlace place{{300, 400}, 1};

PreviewVersion decoded(DiffPreviewKind kind, const QString &path, const QByteArray &data) {
    return previewVersion(kind, path, data, std::nullopt, place);
}

/// gzip data that says it is a drawing and unpacks to much more than it is.
QByteArray packedBomb() {
    return QByteArray("\x1f\x8b\x08", 3) + QByteArray(100'000, '\0');
}

QByteArray fontWithBrokenTables() {
    QByteArray font = anyFont();
    for (qsizetype i = 64; i < font.size(); i += 3)
        font[i] = static_cast<char>(i * 7);
    return font;
}

TEST(PreviewVersion, HostileDataIsDescribed) {
    constexpr auto image = DiffPreviewKind::image;
    const QString cannot = u"This file cannot be shown."_s;
    const QString tooLarge = u"Too large to be shown."_s;
    const QByteArray whole = png({64, 64});
    const Rows<DiffPreviewKind, QByteArray, QString, QString> rows{
        {"whole image", image, whole, u"64 × 64 · %1 bytes"_s.arg(whole.size()), {}},
        {"no bytes", image, "", u"0 bytes"_s, cannot},
        {"renamed text", image, "not an image\n", u"13 bytes"_s, cannot},
        {"truncated image", image, whole.chopped(40), u"64 × 64 · %1 bytes"_s.arg(whole.size() - 40), cannot},
        {"header of 20,000 by 20,000", image, "P6 20000 20000 255\n", u"20,000 × 20,000 · 19 bytes"_s, tooLarge},
        {"header of 16,000 by 16,001", image, "P6 16000 16001 255\n", u"16,000 × 16,001 · 19 bytes"_s, tooLarge},
        {"header of two billion", image, "P6 2000000000 2000000000 255\n", {}, {}},
        {"packed bomb", image, packedBomb(), u"100 KB"_s, tooLarge},
        {"drawing", image, svg({16, 16}), u"16 × 16 · 98 bytes"_s, {}},
        {"no font", DiffPreviewKind::font, "no font", u"7 bytes"_s, cannot},
        {"font with broken tables", DiffPreviewKind::font, fontWithBrokenTables(), {}, {}},
        {"half a font", DiffPreviewKind::font, anyFont().first(anyFont().size() / 2), {}, {}},
    };
    boundImageMemory();
    for (const auto &[name, kind, data, head, text] : rows) {
        const QString extension = data.startsWith("<svg") ? u"svg"_s : data.startsWith("P6") ? u"ppm"_s : u"png"_s;
        const PreviewVersion version = decoded(kind, u"a."_s + extension, data);
        if (head.isEmpty())
            continue; // to survive it is enough
        EXPECT_EQ(versionText(version), head);
        EXPECT_EQ(missingText(version), text);
        EXPECT_EQ(version.isShown(), text.isEmpty());
    }
}

TEST(PreviewVersion, ImagesAreScaledToFitTogether) {
    const Rows<QByteArray, std::optional<QByteArray>, QSize> rows{
        {"large image fits", png({600, 400}), {}, {300, 200}},
        {"small image at full magnification is left to the painter", png({16, 16}), {}, {0, 0}},
        {"image is magnified to fit", png({200, 200}), {}, {300, 300}},
        {"scale is that of the larger one", png({300, 100}), png({600, 100}), {150, 50}},
        {"drawing is drawn in its size on the screen", svg({16, 16}), {}, {64, 64}},
        {"drawing beside a larger one", svg({16, 16}), svg({150, 150}), {32, 32}},
    };
    for (const auto &[name, data, other, picture] : rows) {
        const QString path = data.startsWith("<svg") ? u"a.svg"_s : u"a.png"_s;
        EXPECT_EQ(previewVersion(DiffPreviewKind::image, path, data, other, place).picture.size(), picture);
    }
}

} // namespace
} // namespace kestor

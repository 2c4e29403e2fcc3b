#include "sample_media.h"
#include "support/printers.h"
#include "ui/preview/image_shrinking.h"
#include "ui/preview/preview_version.h"
#include "ui/preview/zoom_bar.h"

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::anyFont;
using testing::png;
using testing::pngHeader;
using testing::svg;

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
    struct Row {
        const char *name;
        DiffPreviewKind kind;
        QByteArray data;
        QString head;
        QString text;
    };
    const QString cannot = u"This file cannot be shown."_s;
    const QString tooLarge = u"Too large to be shown."_s;
    const QByteArray whole = png({64, 64});
    const Row rows[] = {
        {"whole image", image, whole, u"64 × 64 · %1 bytes"_s.arg(whole.size()), {}},
        {"no bytes", image, "", u"0 bytes"_s, cannot},
        {"renamed text", image, "not an image\n", u"13 bytes"_s, cannot},
        {"truncated image", image, whole.chopped(40), u"64 × 64 · %1 bytes"_s.arg(whole.size() - 40), cannot},
        {"header of 20,000 by 20,000", image, pngHeader({20'000, 20'000}), u"20,000 × 20,000 · 45 bytes"_s, tooLarge},
        {"header of 16,000 by 16,001", image, pngHeader({16'000, 16'001}), u"16,000 × 16,001 · 45 bytes"_s, tooLarge},
        {"header of two billion", image, pngHeader({2'000'000'000, 2'000'000'000}), {}, {}},
        {"packed bomb", image, packedBomb(), u"100 KB"_s, tooLarge},
        {"drawing", image, svg({16, 16}), u"16 × 16 · 98 bytes"_s, {}},
        {"half a drawing", image, svg({16, 16}).first(80), {}, {}},
        {"no font", DiffPreviewKind::font, "no font", u"7 bytes"_s, cannot},
        {"no font at all", DiffPreviewKind::font, "", u"0 bytes"_s, cannot},
        {"font with broken tables", DiffPreviewKind::font, fontWithBrokenTables(), {}, {}},
        {"half a font", DiffPreviewKind::font, anyFont().first(anyFont().size() / 2), {}, {}},
    };
    boundImageMemory();
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const PreviewVersion version =
            decoded(row.kind, row.data.startsWith("<svg") ? u"a.svg"_s : u"a.png"_s, row.data);
        if (row.head.isEmpty())
            continue; // to survive it is enough
        EXPECT_EQ(versionText(version), row.head);
        EXPECT_EQ(missingText(version), row.text);
        EXPECT_EQ(version.isShown(), row.text.isEmpty());
    }
}

TEST(PreviewVersion, ImagesAreScaledToFitTogether) {
    struct Row {
        const char *name;
        QByteArray data;
        std::optional<QByteArray> other;
        QSize picture; ///< zero: the pixels themselves are stretched
    };
    const Row rows[] = {
        {"large image fits", png({600, 400}), {}, {300, 200}},
        {"small image at full magnification is left to the painter", png({16, 16}), {}, {0, 0}},
        {"image is magnified to fit", png({200, 200}), {}, {300, 300}},
        {"scale is that of the larger one", png({300, 100}), png({600, 100}), {150, 50}},
        {"drawing is drawn in its size on the screen", svg({16, 16}), {}, {64, 64}},
        {"drawing beside a larger one", svg({16, 16}), svg({150, 150}), {32, 32}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const QString path = row.data.startsWith("<svg") ? u"a.svg"_s : u"a.png"_s;
        EXPECT_EQ(previewVersion(DiffPreviewKind::image, path, row.data, row.other, place).picture.size(), row.picture);
    }
}

TEST(ImageShrinking, KeepsColorsAndTheMeanOfEveryArea) {
    QImage source(700, 30, QImage::Format_ARGB32);
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x)
            source.setPixel(x, y, x < 350 ? qRgba(255, 10, 200, 255) : qRgba(0, 0, (x + y) % 2 * 255, 128));
    }
    struct Row {
        const char *name;
        QSize target;
    };
    const Row rows[] = {{"to a few pixels", {2, 1}},
                        {"by a fraction", {490, 21}},
                        {"in one direction", {700, 3}},
                        {"not at all", {700, 30}}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const QImage small = shrunk(paintable(source), row.target);
        ASSERT_EQ(small.size(), row.target);
        EXPECT_EQ(small.pixelColor(0, 0), QColor(255, 10, 200));
        QImage right =
            small.copy(row.target.width() - row.target.width() / 2, 0, row.target.width() / 2, row.target.height());
        right = shrunk(right, {1, 1});
        EXPECT_NEAR(qAlpha(right.pixel(0, 0)), 128, 1);
        EXPECT_NEAR(right.pixelColor(0, 0).blue(), 128, 2);
    }
}

TEST(PreviewVersion, FontsHaveFiveLinesAndAStyle) {
    const QByteArray font = anyFont();
    ASSERT_FALSE(font.isEmpty());
    const PreviewVersion version = decoded(DiffPreviewKind::font, u"a.ttf"_s, font);
    ASSERT_TRUE(version.isShown());
    EXPECT_FALSE(version.style.isEmpty());
    int lines = 0;
    bool wasBlank = true;
    for (int y = 0; y < version.picture.height(); ++y) {
        bool blank = true;
        for (int x = 0; x < version.picture.width(); ++x)
            blank = blank && qAlpha(version.picture.pixel(x, y)) == 0;
        lines += wasBlank && !blank ? 1 : 0;
        wasBlank = blank;
    }
    EXPECT_GE(lines, 5); // dots and accents may stand alone
}

TEST(PreviewVersion, SaysTheDifferenceInOneSentence) {
    const auto version = [](QSize size, qint64 bytes) {
        PreviewVersion made{.kind = DiffPreviewKind::image, .exists = true, .bytes = bytes};
        made.image.size = size;
        return made;
    };
    EXPECT_EQ(differenceText(version({128, 128}, 3400), version({128, 128}, 2300)), u"Same size, 1.1 KB smaller"_s);
    EXPECT_EQ(differenceText(version({16, 16}, 1), version({32, 16}, 2)), u"16 × 16 → 32 × 16, 1 byte larger"_s);
    EXPECT_EQ(differenceText(version({8, 8}, 9), version({8, 8}, 9)), u"Same size, same number of bytes"_s);
    EXPECT_EQ(differenceText({}, version({8, 8}, 9)), QString());
    EXPECT_EQ(missingText({.kind = DiffPreviewKind::audio}), u"No audio in this revision"_s);
}

TEST(Zoom, StepsThroughRoundFactors) {
    EXPECT_EQ(steppedFactor(1, 1), 1.5);
    EXPECT_EQ(steppedFactor(1, -1), 0.75);
    EXPECT_EQ(steppedFactor(2.25, 1), 3);
    EXPECT_EQ(steppedFactor(2.25, -1), 2);
    EXPECT_EQ(steppedFactor(16, 1), 16);
    EXPECT_EQ(steppedFactor(0.01, -1), 0.01);
}

} // namespace
} // namespace kestor

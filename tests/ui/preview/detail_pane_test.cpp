#include "sample_media.h"
#include "support/window_test.h"
#include "ui/look/segmented_switch.h"
#include "ui/preview/detail_pane.h"
#include "ui/preview/image_view.h"
#include "ui/preview/preview_pane.h"
#include "ui/preview/preview_side.h"

namespace kestor {
namespace {

const QString diff = u"Index: a.svg\n--- a\n+++ b\n@@ -1,1 +1,1 @@\n-old\n+new\n"_s;
const QString binary = u"Cannot display: file marked as a binary type.\n"_s;

DiffSubject subjectOf(const QString &path) {
    return {path, WorkingCopyItem{.path = path, .kind = SVNStatusKind::modified}};
}

DiffPreview preview(DiffPreviewKind kind, const QString &path, std::optional<QByteArray> before,
                    std::optional<QByteArray> after) {
    return {kind, path, {}, {}, std::move(before), std::move(after)};
}

class DetailPaneTest : public ::testing::Test {
protected:
    DetailPaneTest() {
        pane.resize(800, 500);
        activate(pane);
    }

    void showImages(const QString &path, std::optional<QByteArray> before, std::optional<QByteArray> after,
                    const QString &text = binary) {
        pane.showFile(subjectOf(path), text,
                      preview(DiffPreviewKind::image, path, std::move(before), std::move(after)));
        waitUntil([this] { return !previews().isLoading(); });
        QCoreApplication::processEvents();
    }
    PreviewPane &previews() { return *pane.findChild<PreviewPane *>(); }
    bool showsPreview() { return pane.findChild<PreviewPane *>() != nullptr && previews().isVisible(); }
    bool showsDiff() { return pane.findChild<DiffView *>()->isVisible(); }
    SegmentedSwitch &formSwitch() { return *pane.findChild<DiffBar *>()->findChild<SegmentedSwitch *>(); }
    QList<ImageView *> images() {
        QList<ImageView *> visible;
        for (ImageView *view : pane.findChildren<ImageView *>()) {
            if (view->isVisible())
                visible.append(view);
        }
        return visible;
    }
    bool says(const QString &text) { return testing::says(pane, text); }
    QColor colorInTheMiddle(QWidget *view) {
        const QImage picture = view->grab().toImage();
        return picture.pixelColor(picture.rect().center());
    }

    DetailPane pane;
};

TEST_F(DetailPaneTest, ImagesStandSideBySide) {
    showImages(u"a.png"_s, png({40, 40}, Qt::red), png({40, 40}, Qt::blue));
    ASSERT_TRUE(showsPreview());
    ASSERT_EQ(images().size(), 2);
    EXPECT_EQ(colorInTheMiddle(images().first()), QColor(Qt::red));
    EXPECT_EQ(colorInTheMiddle(images().last()), QColor(Qt::blue));
    EXPECT_TRUE(says(u"Same size, same number of bytes"_s));
    EXPECT_FALSE(formSwitch().isVisible());
    EXPECT_EQ(images().first()->accessibleName().first(13), u"Before: a.png"_s);
    const QList<PreviewSide *> sides = pane.findChildren<PreviewSide *>();
    EXPECT_LT(sides.first()->geometry().right(), sides.last()->x());
    pane.resize(500, 500);
    EXPECT_LT(sides.first()->geometry().bottom(), sides.last()->y());
}

TEST_F(DetailPaneTest, VersionsThatAreNotThereSaySo) {
    showImages(u"a.png"_s, std::nullopt, png({4, 4}));
    EXPECT_TRUE(says(u"No image in this revision"_s));
    EXPECT_EQ(images().size(), 1);
    showImages(u"a.png"_s, png({4, 4}), "broken");
    EXPECT_TRUE(says(u"This file cannot be shown."_s));
    pane.showFile(subjectOf(u"a.ttf"_s), binary, preview(DiffPreviewKind::font, u"a.ttf"_s, "broken", std::nullopt));
    EXPECT_TRUE(waitUntil([&] { return says(u"No font in this revision"_s); }));
}

TEST_F(DetailPaneTest, ADrawingHasBothFormsAndTheChoiceIsKept) {
    showImages(u"a.svg"_s, svg({16, 16}), svg({32, 32}), diff);
    ASSERT_TRUE(showsPreview());
    EXPECT_TRUE(formSwitch().isVisible());
    pane.diffPane().takeFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V);
    EXPECT_TRUE(showsDiff());
    showImages(u"b.svg"_s, svg({16, 16}), svg({32, 32}), diff);
    EXPECT_TRUE(showsDiff());
    EXPECT_EQ(pane.formChoices(), (FormChoices{{DiffPreviewKind::image, DetailForm::text}}));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V);
    EXPECT_TRUE(waitUntil([&] { return showsPreview(); }));
    // What cannot be shown as text has no choice.
    pane.setFormChoices({{DiffPreviewKind::image, DetailForm::text}});
    showImages(u"c.png"_s, png({4, 4}), png({4, 4}));
    EXPECT_TRUE(showsPreview());
}

TEST_F(DetailPaneTest, ATextThatOnlySharesItsExtensionWithASoundIsAText) {
    pane.showFile(subjectOf(u"go.mod"_s), diff, preview(DiffPreviewKind::audio, u"go.mod"_s, "old\n", "new\n"));
    EXPECT_TRUE(showsDiff());
    EXPECT_TRUE(formSwitch().isVisible());
}

TEST_F(DetailPaneTest, ASupersededPreviewIsNeverShown) {
    const QByteArray large = png({4000, 3000}, Qt::red);
    pane.showFile(subjectOf(u"a.png"_s), binary, preview(DiffPreviewKind::image, u"a.png"_s, large, large));
    pane.showFile(subjectOf(u"b.c"_s), diff, {});
    QTest::qWait(150);
    EXPECT_TRUE(showsDiff());
    pane.showFile(subjectOf(u"a.png"_s), binary, preview(DiffPreviewKind::image, u"a.png"_s, large, large));
    showImages(u"c.png"_s, png({40, 40}, Qt::blue), png({40, 40}, Qt::green));
    EXPECT_EQ(colorInTheMiddle(images().first()), QColor(Qt::blue));
}

} // namespace
} // namespace kestor

#include "sample_diffs.h"
#include "support/window_test.h"
#include "ui/diff/diff_view.h"
#include "ui/look/syntax_colors.h"
#include "ui/look/theme.h"

#include <QImage>

namespace kestor {
namespace {

constexpr auto ahead = CaretDirection::ahead;
constexpr auto back = CaretDirection::back;

class DiffViewTest : public ::testing::Test {
protected:
    DiffViewTest() {
        view.resize(600, 200);
        view.show();
    }
    void show(const QString &text) { view.setDocument(diffDocument(text), DocumentChange::otherSubject); }

    int scrolled() const { return view.verticalScrollBar()->value(); }
    /// A point in the middle of a row, at a column.
    QPoint pointAt(qint64 row, int column) const {
        const DiffMetrics &metrics = view.metrics();
        const qint64 y = view.rows().top(row) + view.rows().rowHeight(row) / 2 - scrolled();
        return {metrics.textLeft + static_cast<int>(column * metrics.advance) + 1, static_cast<int>(y)};
    }
    void click(const QPoint &point, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, point);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&view, key, modifiers);
    }
    QString copied() {
        QGuiApplication::clipboard()->clear();
        press(Qt::Key_C, Qt::ControlModifier);
        return QGuiApplication::clipboard()->text();
    }

    DiffView view;
};

TEST_F(DiffViewTest, SelectsByMouse) {
    show(oneFileDiff());
    click(pointAt(2, 3));
    EXPECT_EQ(copied(), u""_s);
    click(pointAt(3, 6), Qt::ShiftModifier);
    EXPECT_EQ(copied(), u"ond line\nsecond"_s);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, pointAt(3, 8));
    EXPECT_EQ(copied(), u"long"_s);
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, pointAt(1, 2));
    QTest::mouseMove(view.viewport(), pointAt(4, 2));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, pointAt(4, 2));
    EXPECT_EQ(copied(), u"rst\nsecond line\nsecond long line\nth"_s);
}

TEST_F(DiffViewTest, PaintsChangedWordsAndColors) {
    view.setPalette(fallbackPalette(ColorScheme::light));
    const Theme theme = themeFor(view.palette());
    show(
        u"Index: a.c\n--- a.c\n+++ a.c\n@@ -1,3 +1,3 @@\n if\n-\t日 value one\n+\t日 value second\n same\n-val\n+val+\tx\n"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return view.lineLooks().find(5) != nullptr; }));
    QImage image = view.viewport()->grab().toImage();
    const auto ground = [&](qint64 row, int column) {
        return image.pixelColor(pointAt(row, column).x(), static_cast<int>(view.rows().top(row)) + 1);
    };
    EXPECT_EQ(ground(2, 16), theme.delLine);
    EXPECT_EQ(ground(2, 17), theme.delWord);
    EXPECT_EQ(ground(3, 22), theme.addWord);
    EXPECT_EQ(ground(3, 23), theme.addLine);
    const auto hasRed = [&](int column) {
        for (int y = static_cast<int>(view.rows().top(1)); y < view.rows().top(2); ++y) {
            const QColor pixel = image.pixelColor(pointAt(1, column).x() + 2, y);
            if (pixel.red() > pixel.green() + 40 && pixel.blue() > pixel.green() + 20)
                return true;
        }
        return false;
    };
    EXPECT_TRUE(hasRed(0)) << "the keyword";
    const int beside = view.width() - view.viewport()->width();
    view.resize(view.metrics().textLeft + static_cast<int>(6 * view.metrics().advance) + beside, view.height());
    image = view.viewport()->grab().toImage();
    EXPECT_EQ(ground(6, 5), theme.addWord) << "a tab that the right edge cuts";
}

TEST_F(DiffViewTest, ScrollsWhileTheMouseSelectsBeyondTheEdge) {
    show(longDiff(500));
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, pointAt(2, 0));
    QTest::mouseMove(view.viewport(), QPoint(200, 400));
    EXPECT_TRUE(QTest::qWaitFor([&] { return scrolled() > 400; }));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, QPoint(200, 400));
    EXPECT_GT(view.selection()->caret.line, 20);
    const int stopped = scrolled();
    QTest::qWait(80);
    EXPECT_EQ(scrolled(), stopped);
}

TEST_F(DiffViewTest, SelectsByKeyboard) {
    show(oneFileDiff());
    press(Qt::Key_Left, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Right, Qt::ShiftModifier);
    press(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(copied(), u"first\nsecond "_s);
    press(Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier);
    press(Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(view.selection()->caret.line, 8);
    EXPECT_GT(scrolled(), 0) << "the caret comes into view";
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(copied().startsWith(u"first\nsecond line\n"));
    view.copyPrinted();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), oneFileDiff());
}

TEST_F(DiffViewTest, WalksThroughHunks) {
    show(oneFileDiff());
    QList<CaretDirection> ended;
    QObject::connect(&view, &DiffView::hunksEnded, [&ended](CaretDirection direction) { ended += direction; });
    QSignalSpy leave(&view, &DiffView::leaveRequested);
    EXPECT_EQ(view.currentHunk(), 0);
    press(Qt::Key_N);
    EXPECT_EQ(view.currentHunk(), 1);
    const qint64 end = view.rows().top(view.rows().endOfHunk(1));
    EXPECT_LE(end, scrolled() + view.viewport()->height()) << "all of the hunk is in view";
    press(Qt::Key_N);
    EXPECT_EQ(view.currentHunk(), 1);
    press(Qt::Key_P);
    press(Qt::Key_P);
    EXPECT_EQ(view.currentHunk(), 0);
    EXPECT_EQ(ended, (QList{CaretDirection::ahead, CaretDirection::back}));
    press(Qt::Key_Escape);
    EXPECT_EQ(leave.count(), 1);
}

TEST_F(DiffViewTest, FoldsFilesAndSkipsWhatIsFolded) {
    show(threeFileDiff());
    const qint64 rows = view.rows().count();
    EXPECT_EQ(view.stepFile(ahead), StepResult::moved);
    EXPECT_EQ(view.currentFile(), 1);
    EXPECT_GT(scrolled(), 0) << "the file comes into view";
    press(Qt::Key_Return);
    EXPECT_EQ(view.rows().count(), rows - 1);
    press(Qt::Key_Return);
    EXPECT_EQ(view.rows().count(), rows);
    press(Qt::Key_Home);
    click(pointAt(0, 0));
    EXPECT_TRUE(view.rows().isFolded(0));
    EXPECT_EQ(view.stepHunk(ahead), StepResult::moved);
    EXPECT_EQ(view.currentHunk(), 2) << "both hunks of the folded file are passed over";
    EXPECT_EQ(view.stepHunk(ahead), StepResult::outside);
    EXPECT_EQ(view.stepHunk(back), StepResult::outside);
}

TEST_F(DiffViewTest, LineOfMegabytesIsPaintedWhereItIsInView) {
    const QString text = u"Index: a\n@@ -1 +1 @@\n+"_s + u"0123456789\tä日 "_s.repeated(300'000) + u"end\n"_s;
    show(text);
    QScrollBar *const right = view.horizontalScrollBar();
    right->setValue(right->maximum());
    view.grab();
    const QPoint end(view.viewport()->width() - 1, static_cast<int>(view.rows().top(1)) + 3);
    EXPECT_EQ(view.positionAt(end).index, view.document().lineText(0).size());
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(copied(), view.document().lineText(0).toString());
}

} // namespace
} // namespace kestor

#include "sample_diffs.h"
#include "support/window_test.h"
#include "ui/diff/accessible_diff.h"
#include "ui/diff/diff_pane.h"
#include "ui/diff/plain_text_view.h"

#include <QAccessible>

namespace kestor {
namespace {

DiffSubject subjectOf(const QString &path) {
    return {path, WorkingCopyItem{.path = path, .kind = SVNStatusKind::modified}};
}

class DiffPaneTest : public ::testing::Test {
protected:
    DiffPaneTest() {
        pane.resize(600, 300);
        activate(pane);
    }

    DiffView &view() const { return *pane.findChild<DiffView *>(); }
    QScrollBar &bar() const { return *view().verticalScrollBar(); }
    bool isWhole() const { return view().document().part == DocumentPart::whole; }
    QStringList shownLabels() const {
        QStringList texts;
        for (const QLabel *label : pane.findChildren<QLabel *>()) {
            if (label->isVisible())
                texts.append(label->text());
        }
        return texts;
    }

    void takeFocus() {
        pane.takeFocus();
        ASSERT_TRUE(waitUntil([&] { return view().hasFocus(); }));
    }

    DiffPane pane;
};

TEST_F(DiffPaneTest, SaysInTheMiddleWhatThereIsInsteadOfADiff) {
    pane.showNothing(u"(select a changed file)"_s);
    EXPECT_EQ(shownLabels(), u"(select a changed file)"_list);
    for (const QString &text : u"(no text diff)|(file not found)|(unversioned directory)|"
                               "(binary or unreadable file)"_list) {
        pane.showDiff(subjectOf(u"a"_s), text);
        EXPECT_EQ(shownLabels(), QStringList{text});
    }
    pane.showNotice(subjectOf(u"data/places.db"_s), u"Unknown file type."_s);
    EXPECT_EQ(shownLabels(), u"places.db|Unknown file type."_list);
    EXPECT_EQ(pane.stepHunk(CaretDirection::ahead), StepResult::outside);
    pane.showDiff(subjectOf(u"a"_s), u"(no text diff) or more"_s);
    EXPECT_TRUE(view().isVisible()) << "any other text is shown as it is";
}

TEST_F(DiffPaneTest, SamePathKeepsTheScrollPositionAndAnotherBeginsAnew) {
    pane.showDiff(subjectOf(u"a"_s), longDiff(300));
    bar().setValue(1000);
    pane.showDiff(subjectOf(u"a"_s), longDiff(301));
    EXPECT_EQ(bar().value(), 1000);
    pane.showDiff(subjectOf(u"b"_s), longDiff(302));
    EXPECT_EQ(bar().value(), 0);
}

TEST_F(DiffPaneTest, LongTextIsShownAtOnceAndCompletedUnnoticed) {
    pane.showDiff(subjectOf(u"b"_s), oneFileDiff());
    takeFocus();
    const QString text = longDiff(20'000);
    pane.showDiff(subjectOf(u"a"_s), text);
    EXPECT_FALSE(isWhole());
    EXPECT_LT(view().document().lineCount, 2000);
    EXPECT_EQ(shownLabels(), u"Hunk 1"_list) << "no count that is not known yet";
    EXPECT_EQ(pane.stepHunk(CaretDirection::ahead), StepResult::waiting);
    QCoreApplication::sendPostedEvents(&view(), QEvent::MetaCall); // the scroll bar takes its place
    bar().setValue(4000);
    QTest::mouseDClick(view().viewport(), Qt::LeftButton, {}, QPoint(150, 50));
    const auto selection = view().selection();
    const auto image = [this] {
        return view().viewport()->grab().toImage();
    };
    QImage before = image();
    for (int i = 0; i < 20; ++i) // on a busy machine some lines get their colors later
        before = image();
    ASSERT_TRUE(waitUntil([&] { return isWhole(); }));
    EXPECT_EQ(view().document().lineCount, 20'000);
    EXPECT_EQ(bar().value(), 4000);
    EXPECT_EQ(view().selection(), selection);
    EXPECT_TRUE(waitUntil([&] { return image() == before; }));
    EXPECT_EQ(view().accessibleName(), u"Diff of a, 20000 added, 0 removed"_s);
    pane.showDiff(subjectOf(u"a"_s), text);
    EXPECT_TRUE(isWhole()) << "what is shown already is not read again";
}

TEST_F(DiffPaneTest, SupersededTextIsDropped) {
    pane.showDiff(subjectOf(u"a"_s), longDiff(50'000));
    pane.showDiff(subjectOf(u"b"_s), oneFileDiff());
    QTest::qWait(150);
    EXPECT_EQ(view().document().lineCount, 9);
    pane.showDiff(subjectOf(u"a"_s), longDiff(50'000));
    pane.showNothing(u"(select a changed file)"_s);
    QTest::qWait(150);
    EXPECT_FALSE(view().isVisible());
}

TEST_F(DiffPaneTest, KeyboardStaysInThePane) {
    pane.showDiff(subjectOf(u"a"_s), oneFileDiff());
    takeFocus();
    QSignalSpy leave(&pane, &DiffPane::leaveRequested);
    pane.showDiff(subjectOf(u"b"_s), u"(no text diff)"_s);
    ASSERT_TRUE(pane.isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(leave.count(), 1);
    QList<CaretDirection> ended;
    QObject::connect(&pane, &DiffPane::hunksEnded, [&ended](CaretDirection direction) { ended += direction; });
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_N);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_P);
    EXPECT_EQ(ended, (QList{CaretDirection::ahead, CaretDirection::back})) << "on through files without a diff";
    pane.showDiff(subjectOf(u"a"_s), oneFileDiff());
    EXPECT_TRUE(view().hasFocus());
    view().clearFocus();
    pane.setFocus();
    EXPECT_TRUE(view().hasFocus());
}

TEST_F(DiffPaneTest, LinesAreReadOutWithWhatTheyAre) {
    pane.showDiff(subjectOf(u"a"_s), threeFileDiff());
    QAccessibleInterface *const accessible = QAccessible::queryAccessibleInterface(&view());
    ASSERT_NE(accessible->textInterface(), nullptr);
    QAccessibleTextInterface &text = *accessible->textInterface();
    const QStringList lines = text.text(0, text.characterCount()).split(u'\n');
    EXPECT_EQ(lines.first(7), u"file one.txt, 2 added, 1 removed|hunk 1, @@ -1,2 +1,2 @@|line 1, same|"
                              "removed, line 2, old|added, line 2, new|hunk 2, @@ -9 +9 @@|"
                              "added, line 9, nine"_list);
    EXPECT_EQ(text.text(text.cursorPosition(), text.characterCount()).left(6), u"hunk 1"_s);
}

TEST(PlainTextView, ShowsOutputOfAnyLengthAndItsErrors) {
    PlainTextView view;
    view.resize(400, 200);
    QSignalSpy changed(&view, &PlainTextView::textChanged);
    view.setOutput(u"a\nb\n"_s, u"e\n"_s);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(view.naturalHeight(), 4 * view.metrics().rows.line + 2 * view.metrics().rows.margin);
    view.selectAll();
    view.copySelection();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"a\nb\nStandard error\ne"_s);
    view.setOutput(u"line\n"_s.repeated(50'000), u"e\n"_s);
    EXPECT_EQ(view.document().lineCount, 2000);
    ASSERT_TRUE(waitUntil([&] { return view.document().lineCount == 50'002; }));
    EXPECT_EQ(view.document().errorHeading, 50'000);
}

} // namespace
} // namespace kestor

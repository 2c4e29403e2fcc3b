#include "support/marked.h"
#include "support/window_test.h"
#include "ui/list/row_list_view.h"
#include "ui/look/metrics.h"
#include "ui/tabs/change_rows.h"

namespace kestor {
namespace {

WorkingCopyItem item(const QString &path) {
    return {.path = path, .kind = SVNStatusKind::modified};
}

/// "f00" to "f99", without those whose number `leftOut` divides.
QList<WorkingCopyItem> hundredFiles(int leftOut = 1000) {
    QList<WorkingCopyItem> items;
    for (int number = 0; number < 100; ++number) {
        if (number == 0 || number % leftOut != 0)
            items += item(u"f%1"_s.arg(number, 2, 10, QChar(u'0')));
    }
    return items;
}

class RowListViewTest : public ::testing::Test {
protected:
    RowListViewTest() : view(rows) {
        view.resize(400, 240);
        QObject::connect(&view, &RowListView::ticksRequested, [this](const QList<int> &records, Tick wanted) {
            QStringList ids;
            for (const int record : records)
                ids += rows.recordId(record);
            asked = (wanted == Tick::ticked ? u"tick "_s : u"untick "_s) + ids.join(u' ');
        });
    }
    void show() {
        view.show();
        view.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    }
    void publish(const QStringList &paths) {
        QList<WorkingCopyItem> items;
        for (const QString &path : paths)
            items += item(path);
        rows.publish(items);
    }
    int topOf(const QString &id) const { return view.visualRect(rows.index(rows.rowOf(id))).top(); }
    void pressRepeating(Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(&view, &event);
    }

    ChangeRows rows;
    RowListView view;
    QSignalSpy chosen{&view, &RowListView::rowChosen};
    QString asked{};
};

TEST_F(RowListViewTest, APublishKeepsCurrentRowAndPlaceAndAnnouncesNothing) {
    rows.publish(hundredFiles());
    show();
    view.setCurrentId(u"f50"_s);
    view.scrollTo(view.currentIndex(), QAbstractItemView::PositionAtTop);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() - 30);
    const int top = topOf(u"f50"_s);
    rows.publish(hundredFiles(7));
    EXPECT_EQ(view.currentIndex().data().toString(), u"f50"_s);
    EXPECT_EQ(topOf(u"f50"_s), top);
    EXPECT_TRUE(view.selectionModel()->isSelected(view.currentIndex()));

    view.setCurrentId(u"f01"_s); // out of view: the rows in view keep their place then
    view.verticalScrollBar()->setValue(1000);
    const QString atTop = view.indexAt(QPoint(0, 0)).data().toString();
    const int offset = topOf(atTop);
    rows.publish(hundredFiles());
    EXPECT_EQ(view.indexAt(QPoint(0, 0)).data().toString(), atTop);
    EXPECT_EQ(topOf(atTop), offset);
    view.setCurrentId(u"f00"_s);
    EXPECT_EQ(topOf(atTop), offset) << "a row that a publish makes current is not scrolled to";
    EXPECT_EQ(chosen.size(), 0);
}

TEST_F(RowListViewTest, AFilterThatHidesTheCurrentRowGivesItBack) {
    publish({u"apple"_s, u"bread"_s, u"cherry"_s});
    show();
    view.setCurrentId(u"bread"_s);
    rows.setFilter(ListFilter(u"c"_s));
    EXPECT_FALSE(view.currentIndex().isValid());
    view.clearFocus();
    view.setFocus();
    EXPECT_FALSE(view.currentIndex().isValid());
    rows.setFilter(ListFilter());
    EXPECT_EQ(view.currentIndex().data().toString(), u"bread"_s);
    EXPECT_EQ(chosen.size(), 0);
}

TEST_F(RowListViewTest, AStepFromARowThatTheFilterHidesLeadsToTheEndsOfTheMatches) {
    publish({u"a1"_s, u"b"_s, u"a2"_s, u"a3"_s});
    for (const auto &[distance, expected] : {std::pair(1, u"a1"_s), std::pair(-1, u"a3"_s)}) {
        rows.setFilter(ListFilter());
        view.setCurrentId(u"b"_s);
        rows.setFilter(ListFilter(u"a"_s));
        EXPECT_TRUE(view.chooseBeside(distance));
        EXPECT_EQ(view.currentId(), expected);
    }
    rows.setFilter(ListFilter(u"none"_s));
    EXPECT_FALSE(view.chooseBeside(1));
}

TEST_F(RowListViewTest, ARepeatingKeyMovesAtOnceAndAnnouncesTheLastRowOnly) {
    rows.publish(hundredFiles());
    show();
    QTest::keyClick(&view, Qt::Key_Down);
    chosen.clear();
    for (int step = 0; step < 5; ++step)
        pressRepeating(Qt::Key_Down);
    EXPECT_EQ(view.currentIndex().row(), 5);
    EXPECT_EQ(chosen.size(), 0);
    ASSERT_TRUE(waitUntil([&] { return !chosen.isEmpty(); }));
    EXPECT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen.first().first().toString(), u"f05"_s);
}

TEST_F(RowListViewTest, TicksByKeyAndMouse) {
    rows.publish(QList<WorkingCopyItem>{
        item(u"a"_s), item(u"b"_s), item(u"c"_s), {.path = u"x"_s, .kind = SVNStatusKind::external}});
    rows.setTicked(marked({u"a"_s}));
    show();
    view.setCurrentId(u"a"_s);
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        asked.clear();
        QTest::keyClick(&view, key, modifiers);
        return asked;
    };
    const auto click = [this](const QString &id, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        asked.clear();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, QPoint(paneEdge + 8, topOf(id) + 12));
        return asked;
    };
    EXPECT_EQ(press(Qt::Key_Space), u"untick a"_s);
    EXPECT_EQ(click(u"b"_s), u"tick b"_s);
    EXPECT_EQ(view.currentId(), u"a"_s) << "a click on a tick box selects nothing";
    EXPECT_EQ(click(u"c"_s, Qt::ShiftModifier), u"tick b c"_s);
    EXPECT_EQ(press(Qt::Key_Space, Qt::ShiftModifier), u"tick a b c"_s);
    EXPECT_EQ(press(Qt::Key_A, Qt::ControlModifier), u"tick a b c x"_s);
    rows.setFilter(ListFilter(u"b"_s));
    EXPECT_EQ(press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier), u"untick b"_s);
    view.setTickAccess(TickAccess::readOnly);
    EXPECT_EQ(press(Qt::Key_A, Qt::ControlModifier), u""_s);
    view.setTickAccess(TickAccess::editable);
    rows.setFilter(ListFilter());
    view.setCurrentId(u"x"_s);
    EXPECT_EQ(press(Qt::Key_Space), u""_s) << "there is no box";
}

TEST_F(RowListViewTest, LeavesByKeysAndCopiesThePath) {
    publish({u"src/a.c"_s});
    show();
    view.setCurrentId(u"src/a.c"_s);
    QSignalSpy detail(&view, &RowListView::detailRequested);
    QSignalSpy filter(&view, &RowListView::filterRequested);
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(detail.size(), 1);
    QTest::keyClick(&view, Qt::Key_Slash);
    QTest::keyClick(&view, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(filter.size(), 2);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"src/a.c"_s);
}

} // namespace
} // namespace kestor

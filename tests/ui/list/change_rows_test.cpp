#include "support/marked.h"
#include "support/window_test.h"
#include "ui/tabs/change_rows.h"

#include <QAbstractItemModelTester>
#include <QLocale>

namespace kestor {
namespace {

using Kind = SVNStatusKind;

WorkingCopyItem item(const QString &path, Kind kind = Kind::modified, Kind properties = Kind::none) {
    return {.path = path, .kind = kind, .propertiesKind = properties};
}

QStringList shownIds(const ChangeRows &rows) {
    QStringList ids;
    for (int row = 0; row < rows.rowCount(); ++row)
        ids += rows.idAt(row);
    return ids;
}

TEST(ChangeRows, SaysWhatEachStatusMeans) {
    WorkingCopyItem victim = item(u"a"_s, Kind::deleted);
    victim.treeConflict = true;
    const Rows<WorkingCopyItem, Tick, QChar, bool, LabelKind, QString> rows{
        {"modified", item(u"a"_s), Tick::ticked, u'M', true, LabelKind::plain, u"a, Modified, ticked"_s},
        {"properties alone are outlined", item(u"a"_s, Kind::normal, Kind::added), Tick::unticked, u'A', false,
         LabelKind::plain, u"a, Normal, Props A, not ticked"_s},
        {"conflict", item(u"a"_s, Kind::conflicted), Tick::unticked, u'C', true, LabelKind::conflict,
         u"a, Conflict, not ticked"_s},
        {"tree conflict", victim, Tick::unticked, u'C', true, LabelKind::conflict, u"a, Tree Conflict, not ticked"_s},
        {"without a tick box", item(u"a"_s, Kind::external), Tick::none, u'X', true, LabelKind::plain,
         u"a, External"_s},
    };
    const Theme theme = themeFor(fallbackPalette(ColorScheme::light));
    for (const auto &[name, wantedItem, tick, letter, filled, labelKind, read] : rows) {
        const PathRow shown = changeRow(wantedItem, tick, theme);
        EXPECT_EQ(shown.badge.letter, letter);
        EXPECT_EQ(shown.badge.colors.tile.isValid(), filled);
        EXPECT_EQ(shown.labelKind, labelKind);
        EXPECT_EQ(accessibleText(shown), read);
    }
}

TEST(ChangeRows, KeepsTheModelContractWhilePublishedFilteredAndTicked) {
    ChangeRows rows;
    const QAbstractItemModelTester tester(&rows, QAbstractItemModelTester::FailureReportingMode::Fatal);
    rows.publish(QList{item(u"a.c"_s), item(u"b.c"_s), item(u"b.h"_s)});
    rows.setFilter(ListFilter(u"b"_s));
    EXPECT_EQ(shownIds(rows), u"b.c|b.h"_list);
    rows.setFilter(ListFilter(u"b h"_s));
    EXPECT_EQ(shownIds(rows), u"b.h"_list);
    rows.setTicked(marked({u"b.h"_s}));
    rows.publish(QList{item(u"b.h"_s), item(u"bach"_s), item(u"c.c"_s)});
    EXPECT_EQ(shownIds(rows), u"b.h|bach"_list);
    rows.setFilter(ListFilter(u"c"_s));
    EXPECT_EQ(shownIds(rows), u"bach|c.c"_list);
    rows.publish({});
    EXPECT_EQ(rows.rowCount(), 0);
}

TEST(ChangeRows, CountsTicksOfAllRowsAndOfThoseShown) {
    ChangeRows rows;
    rows.publish(QList{item(u"a1"_s), item(u"a2"_s), item(u"b1"_s), item(u"b2"_s, Kind::external)});
    rows.setTicked(marked({u"a1"_s, u"b1"_s}));
    EXPECT_EQ(tickedText(rows.tickCounts(), QLocale::c()), u"2 of 3 ticked"_s);
    rows.setFilter(ListFilter(u"a"_s));
    EXPECT_EQ(rows.tickCounts(), (TickCounts{.tickable = 3, .ticked = 2, .shownTickable = 2, .shownTicked = 1}));
    EXPECT_EQ(tickedText(rows.tickCounts(), QLocale::c()), u"2 of 3 ticked, 1 not shown"_s);
    EXPECT_EQ(tickedText({}, QLocale::c()), u""_s);
}

} // namespace
} // namespace kestor

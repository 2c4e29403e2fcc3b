#include "analysis/language_distribution.h"
#include "support/printers.h"
#include "ui/list/language_bar.h"
#include "ui/list/language_texts.h"
#include "ui/list/language_view.h"
#include "ui/list/row_list_view.h"
#include "ui/look/theme.h"

#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

QList<LanguageDistributionEntry> sharesOf(const QList<qint64> &bytes) {
    QList<LanguageDistributionEntry> shares;
    for (const qint64 size : bytes)
        shares.append({u"L%1"_s.arg(shares.size()), size, u"#123456"_s});
    return shares;
}

TEST(LanguageBar, DividesItsWidth) {
    struct Row {
        const char *name;
        QList<qint64> bytes;
        QList<LanguageSegment> expected;
    };
    const Row rows[] = {
        {"one language fills the bar", {7}, {{0, 0, 100}}},
        {"a pixel stands between two", {50, 30, 20}, {{0, 0, 49}, {1, 50, 29}, {2, 80, 20}}},
        {"the smallest has a pixel", {49, 48, 2}, {{0, 0, 48}, {1, 49, 48}, {2, 98, 2}}},
        {"those that cannot be seen leave their place", {500, 500, 1, 1}, {{0, 0, 49}, {1, 50, 50}}},
        {"terabytes", {qint64(1) << 60, qint64(1) << 60}, {{0, 0, 49}, {1, 50, 50}}},
        {"empty files", {0, 0}, {}},
        {"no language", {}, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(languageSegments(sharesOf(row.bytes), 100), row.expected);
    }
    const QList<LanguageSegment> many = languageSegments(sharesOf(QList<qint64>(400, 1)), 100);
    EXPECT_EQ(many.size(), 50);
    EXPECT_EQ(many.last(), (LanguageSegment{49, 98, 2}));
}

TEST(LanguageBar, PaintsEachLanguageOnAGroundThatShowsIt) {
    const Theme theme = themeFor(fallbackPalette(ColorScheme::dark));
    LanguageBar bar;
    bar.setPalette(fallbackPalette(ColorScheme::dark));
    bar.resize(100, bar.height());
    bar.setShares({{u"Dim"_s, 50, theme.base.name()}, {u"Odd"_s, 50, u"no color"_s}});
    const QImage picture = bar.grab().toImage();
    EXPECT_EQ(picture.pixelColor(49, 8), theme.base) << "the gap";
    EXPECT_EQ(picture.pixelColor(70, 8), QColor(LanguageDistributionAnalyzer::fallbackColor(u"Odd")));
    EXPECT_EQ(picture.pixelColor(20, 0), theme.outline);
}

TEST(LanguageView, TellsWhatIsKnown) {
    LanguageView view;
    view.resize(400, 300);
    view.show();
    const auto shown = [&view] {
        QStringList texts;
        for (const QLabel *label : view.findChildren<QLabel *>()) {
            if (label->isVisible())
                texts.append(label->text());
        }
        for (int row = 0; row < view.list().model()->rowCount(); ++row)
            texts.append(view.list().model()->index(row, 0).data(Qt::AccessibleTextRole).toString());
        return texts;
    };
    EXPECT_EQ(shown(), QStringList(u"Counting source files"_s));
    view.setShares(QList<LanguageDistributionEntry>());
    EXPECT_EQ(shown(), QStringList(u"No Recognized Source Files"_s));
    view.setShares(QList<LanguageDistributionEntry>{{u"C++"_s, 1843000, {}}, {u"C"_s, 1, {}}, {u"Go"_s, 0, {}}});
    EXPECT_EQ(shown(), (QStringList{u"C++, 1.8 MB, 100.0%"_s, u"C, 1 byte, 0.0%"_s, u"Go, 0 bytes, 0.0%"_s}));
    view.list().setFocus();
    QTest::keyClick(&view.list(), Qt::Key_G);
    EXPECT_EQ(view.list().currentId(), u"Go"_s);
    view.setShares(QList<LanguageDistributionEntry>{{u"Go"_s, 0, {}}});
    EXPECT_EQ(shown(), QStringList(u"Go, 0 bytes, 0.0%"_s)) << "nothing is divided by";
    EXPECT_EQ(view.list().currentIndex().row(), 0) << "the current language stays current";
}

} // namespace
} // namespace kestor

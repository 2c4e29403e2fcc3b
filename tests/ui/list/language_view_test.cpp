#include "analysis/language_distribution.h"
#include "support/window_test.h"
#include "ui/list/language_bar.h"
#include "ui/list/language_texts.h"
#include "ui/list/language_view.h"
#include "ui/list/row_list_view.h"
#include "ui/look/theme.h"

namespace kestor {
namespace {

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
    EXPECT_EQ(shown(), u"Counting source files"_list);
    view.setShares(QList<LanguageDistributionEntry>());
    EXPECT_EQ(shown(), u"No Recognized Source Files"_list);
    view.setShares(QList<LanguageDistributionEntry>{{u"C++"_s, 1843000, {}}, {u"C"_s, 1, {}}, {u"Go"_s, 0, {}}});
    EXPECT_EQ(shown(), u"C++, 1.8 MB, 100.0%|C, 1 byte, 0.0%|Go, 0 bytes, 0.0%"_list);
    view.list().setFocus();
    QTest::keyClick(&view.list(), Qt::Key_G);
    EXPECT_EQ(view.list().currentId(), u"Go"_s);
    view.setShares(QList<LanguageDistributionEntry>{{u"Go"_s, 0, {}}});
    EXPECT_EQ(shown(), u"Go, 0 bytes, 0.0%"_list) << "nothing is divided by";
    EXPECT_EQ(view.list().currentIndex().row(), 0) << "the current language stays current";
}

} // namespace
} // namespace kestor

#include "support/app_test.h"
#include "support/window_test.h"
#include "ui/frame/main_window.h"
#include "ui/frame/output_sheet.h"
#include "ui/frame/tab_pages.h"
#include "ui/list/row_list_view.h"
#include "ui/tabs/configuration_tab.h"
#include "ui/tabs/rule_table.h"

namespace kestor {
namespace {

/// The real window over a project of two languages, on the Configuration tab.
class ConfigurationWindow : public ::testing::Test {
protected:
    ConfigurationWindow() {
        project.writeAll({{u"a.c"_s, "123456"}, {u"b.py"_s, "12"}});
        fixture.open(project.path(), RepositoryKind::git);
        activate(window);
        QTest::keyClick(&window, Qt::Key_5, Qt::ControlModifier);
        waitUntil([this] { return app.languageDistribution.value().has_value(); });
    }

    RowListView &list() const {
        return *qobject_cast<RowListView *>(window.findChild<ConfigurationTab *>()->focusPanes().first());
    }
    OutputSheet &sheet() const { return *window.findChild<OutputSheet *>(); }
    void showSheet() const {
        for (QAction *action : window.findChildren<QAction *>()) {
            if (action->text() == u"Language Distribution"_s)
                action->trigger();
        }
    }

    GitFixture project{};
    AppFixture fixture{};
    AppState &app = fixture.app;
    MainWindow window{app, fixture.settings};
};

TEST_F(ConfigurationWindow, ShowsTheLanguagesInTheOutputSheetToo) {
    ASSERT_EQ(list().model()->rowCount(), 2);
    list().setFocus();
    showSheet();
    ASSERT_TRUE(sheet().isVisible());
    EXPECT_TRUE(list().hasFocus()) << "the sheet takes no focus";
    EXPECT_EQ(sheet().accessibleName(), u"Language Distribution"_s);
    EXPECT_GE(sheet().height(), sheet().wantedHeight()) << "all rows are seen";
    EXPECT_FALSE(says(sheet(), u"Exit status 0"_s)) << "nothing ran";
    clickButton(sheet(), u"Copy"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"C\t6 bytes\t75.0%\nPython\t2 bytes\t25.0%\n"_s);

    sheet().pane().setFocus();
    app.commandOutput = CommandOutput{.id = QUuid::createUuid(), .title = u"Update"_s, .stdoutText = u"At 7."_s};
    EXPECT_EQ(sheet().accessibleName(), u"Update, Exit status 0"_s);
    EXPECT_TRUE(sheet().pane().hasFocus()) << "the focus stays in the sheet";
    QTest::keyClick(&sheet().pane(), Qt::Key_Escape);
    EXPECT_FALSE(sheet().isVisible());
}

TEST_F(ConfigurationWindow, EscEndsTheTypingBeforeItClosesTheSheet) {
    app.languageRules.addCustomLanguageRule();
    showSheet();
    auto &table = *window.findChild<RuleTable *>();
    table.setFocus();
    QTest::keyClick(&window, Qt::Key_F6);
    EXPECT_TRUE(sheet().pane().hasFocus());
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_F2);
    auto *field = table.viewport()->findChild<QLineEdit *>();
    ASSERT_NE(field, nullptr);
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_TRUE(sheet().isVisible());
}

} // namespace
} // namespace kestor

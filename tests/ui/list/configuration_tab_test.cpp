#include "model/language_configuration_store.h"
#include "support/app_test.h"
#include "support/window_test.h"
#include "ui/list/row_list_view.h"
#include "ui/tabs/configuration_tab.h"
#include "ui/tabs/repository_fields.h"
#include "ui/tabs/rule_table.h"

#include <QScrollArea>

namespace kestor {
namespace {

class ShownConfiguration {
public:
    ShownConfiguration() {
        tab.resize(1000, 700);
        activate(tab);
    }

    RuleTable &table() { return *tab.findChild<RuleTable *>(); }
    template <typename Part>
    Part &named(const QString &name) const {
        for (Part *part : tab.findChildren<Part *>()) {
            if (part->accessibleName() == name || part->property("text") == name)
                return *part;
        }
        throw std::runtime_error(qPrintable(name));
    }
    void addRule(const QString &extension, const QString &name, const QString &color) {
        LanguageRules &rules = fixture.app.languageRules;
        rules.updateCustomLanguageRule({rules.addCustomLanguageRule(), extension, name, color, {}});
    }
    /// The cells of every row, as shown.
    QStringList rows() {
        QStringList texts;
        const QAbstractItemModel &model = *table().model();
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < model.columnCount(); ++column)
                cells.append(model.index(row, column).data().toString());
            texts.append(cells.join(u'|'));
        }
        return texts;
    }
    void goTo(int row, int column) {
        table().setFocus();
        table().setCurrentIndex(table().model()->index(row, column));
    }
    /// The field that is being typed in, nullptr when none is.
    QLineEdit *field() { return table().viewport()->findChild<QLineEdit *>(); }
    /// Types over the current cell and ends with the key.
    void type(const QString &text, Qt::Key end) {
        QTest::keyClick(&table(), Qt::Key_F2);
        field()->selectAll();
        QTest::keyClicks(field(), text);
        QTest::keyClick(field(), end);
        waitUntil([this] { return field() == nullptr; });
    }
    QList<CustomLanguageRule> savedRules() { return LanguageConfigurationStore(fixture.settings).load(); }

    AppFixture fixture{};
    QAction choose{u"Set svn Executable..."_s};
    QAction fromPath{u"Use svn From PATH"_s};
    ConfigurationTab tab{fixture.app, {&choose, &fromPath}};
};

TEST(ConfigurationTab, ARuleIsAddedTypedAndRemovedByKeyboard) {
    ShownConfiguration shown;
    shown.addRule(u"h"_s, u"C Header"_s, u"#555555"_s);
    shown.named<QPushButton>(u"Add Rule"_s).setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    ASSERT_TRUE(shown.field()) << "a new rule is typed at once";
    QTest::keyClicks(shown.field(), u"glsl"_s);
    QTest::keyClick(shown.field(), Qt::Key_Tab);
    ASSERT_TRUE(waitUntil([&] { return shown.field() && shown.field()->text() == u"Text"_s; }));
    QTest::keyClicks(shown.field(), u"Shader"_s);
    QTest::keyClick(shown.field(), Qt::Key_Return);
    ASSERT_TRUE(waitUntil([&] { return !shown.field(); }));
    EXPECT_EQ(shown.rows(), (QStringList{u"h|C Header|#555555|None"_s, u"glsl|Shader|#6e7781|None"_s}));
    EXPECT_EQ(shown.savedRules(), shown.fixture.app.customLanguageRules.value());
    EXPECT_TRUE(shown.table().hasFocus());

    QTest::keyClick(&shown.table(), Qt::Key_Up);
    QTest::keyClick(&shown.table(), Qt::Key_Delete);
    EXPECT_EQ(shown.rows(), QStringList(u"glsl|Shader|#6e7781|None"_s));
    EXPECT_EQ(shown.table().currentIndex().row(), 0) << "the next rule is current";
    QTest::keyClick(&shown.table(), Qt::Key_Delete);
    EXPECT_TRUE(shown.savedRules().isEmpty());
}

TEST(ConfigurationTab, TheRuleButtonsHaveTextsAsTheFontAllows) {
    ShownConfiguration shown;
    const auto &add = shown.named<QPushButton>(u"Add Rule"_s);
    EXPECT_EQ(add.text(), u"Add Rule"_s);
    QFont large = shown.tab.font();
    large.setPixelSize(60);
    shown.tab.setFont(large);
    EXPECT_EQ(add.text(), QString());
}

TEST(ConfigurationTab, CellsAreTypedInPlace) {
    const Rows<int, QString, Qt::Key, QString> rows{
        {"Return keeps", 0, u"hh"_s, Qt::Key_Return, u"hh|C Header|#555555|None"_s},
        {"Esc takes back", 1, u"Other"_s, Qt::Key_Escape, u"h|C Header|#555555|None"_s},
        {"a color is written in full", 2, u" f80"_s, Qt::Key_Return, u"h|C Header|#FF8800|None"_s},
        {"no color", 2, u"orange"_s, Qt::Key_Return, u"h|C Header|#6e7781|None"_s},
        {"a color taken back", 2, u"orange"_s, Qt::Key_Escape, u"h|C Header|#555555|None"_s},
        {"nothing at all", 1, u" "_s, Qt::Key_Return, u"h| |#555555|None"_s},
    };
    for (const auto &[name, wantedColumn, typed, end, expected] : rows) {
        ShownConfiguration shown;
        shown.addRule(u"h"_s, u"C Header"_s, u"#555555"_s);
        shown.goTo(0, wantedColumn);
        shown.type(typed, end);
        EXPECT_EQ(shown.rows(), QStringList(expected));
        EXPECT_EQ(shown.savedRules(), shown.fixture.app.customLanguageRules.value());
        EXPECT_TRUE(shown.table().hasFocus());
    }
}

TEST(ConfigurationTab, TheSelectedRuleTakesASyntaxFile) {
    ShownConfiguration shown;
    shown.addRule(u"h"_s, u"C Header"_s, u"#555555"_s);
    shown.addRule(u"glsl"_s, u"Shader"_s, u"#555555"_s);
    auto &choose = shown.named<QToolButton>(u"Choose syntax file"_s);
    auto &clear = shown.named<QToolButton>(u"Clear syntax file"_s);
    EXPECT_FALSE(choose.isVisible());
    shown.fixture.user.chosenFile = QDir::homePath() + u"/glsl.sublime-syntax"_s;
    shown.goTo(1, 3);
    EXPECT_FALSE(clear.isEnabled());
    QTest::keyClick(&shown.table(), Qt::Key_F2);
    const QStringList withFile{u"h|C Header|#555555|None"_s, u"glsl|Shader|#555555|~/glsl.sublime-syntax"_s};
    EXPECT_EQ(shown.rows(), withFile);
    EXPECT_FALSE(shown.field()) << "its path is chosen, not typed";
    clear.setFocus();
    QTest::keyClick(&clear, Qt::Key_Space);
    EXPECT_EQ(shown.savedRules().at(1).syntaxFilePath, std::nullopt);
    EXPECT_TRUE(choose.hasFocus()) << "the focus stays in the row";
    QTest::mouseClick(&choose, Qt::LeftButton);
    EXPECT_EQ(shown.rows(), withFile);
    QList<CustomLanguageRule> loaded = shown.fixture.app.customLanguageRules;
    loaded.prepend({QUuid::createUuid(), u"a"_s, u"A"_s, u"#555555"_s, {}});
    shown.fixture.app.customLanguageRules = loaded;
    EXPECT_EQ(shown.table().currentIndex().row(), 2) << "the same rule";
}

TEST(ConfigurationTab, ShowsTheRepositoryToBeCopied) {
    SvnFixture repository;
    repository.commit({{u"a.c"_s}});
    ShownConfiguration shown;
    shown.fixture.open(repository);
    EXPECT_EQ(shown.named<QLineEdit>(u"Relative URL"_s).text(), u"^/trunk"_s);
    shown.named<QToolButton>(u"Copy what is known of the repository"_s).click();
    const QString copied = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(startsWith(copied, u"Working copy root: "_s + repository.path() + u'\n'));
    EXPECT_TRUE(contains(copied, u"\nLast changed: r2 by "_s));
    const auto &url = shown.named<QLineEdit>(u"Relative URL"_s);
    RepositoryInfo updated = shown.fixture.app.repositoryInfo;
    updated.revision = u"9"_s;
    shown.fixture.app.repositoryInfo = updated;
    EXPECT_EQ(shown.named<QLineEdit>(u"Revision"_s).text(), u"9"_s);
    EXPECT_EQ(&shown.named<QLineEdit>(u"Relative URL"_s), &url) << "it keeps the focus and what is selected in it";
}

TEST(ConfigurationTab, TellsWhichExecutableRuns) {
    ShownConfiguration shown;
    const auto &path = shown.named<QLineEdit>(u"svn executable in use"_s);
    auto &fromPath = shown.named<QPushButton>(u"Use svn From PATH"_s);
    QSignalSpy asked(&shown.fromPath, &QAction::triggered);
    const QString found = path.text();
    EXPECT_TRUE(found.endsWith(u"/svn"_s));
    const Rows<QString, QString> rows{{"chosen", u"/bin/true"_s, u"Chosen in place of the one in PATH"_s},
                                      {"no program", u"/etc/passwd"_s, u"This file cannot be run"_s},
                                      {"none chosen", QString(), u"Found through PATH"_s}};
    for (const auto &[name, chosen, caption] : rows) {
        shown.fixture.app.svnExecutablePath = chosen;
        EXPECT_EQ(path.text(), chosen.isEmpty() ? found : chosen);
        EXPECT_EQ(path.accessibleDescription(), caption);
        fromPath.click();
    }
    EXPECT_EQ(asked.size(), 2) << "disabled while none is chosen";
}

} // namespace
} // namespace kestor

#include "model/language_configuration_store.h"
#include "support/app_fixture.h"
#include "support/printers.h"

#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::AppFixture;
using testing::awaited;
using testing::ScriptedUser;
using testing::TempTree;

QStringList described(const QList<CustomLanguageRule> &rules) {
    QStringList texts;
    for (const CustomLanguageRule &rule : rules)
        texts += QStringList{rule.fileExtension, rule.languageName, rule.colorHex, rule.syntaxFilePath.value_or(u"-"_s)}
                     .join(u' ');
    return texts;
}

TEST(LanguageRules, EveryChangeIsSavedAtOnce) {
    AppFixture fixture;
    LanguageRules &rules = fixture.app.languageRules;
    const auto rule = [&fixture](qsizetype index) {
        return fixture.app.customLanguageRules.value().at(index);
    };
    const auto typeColor = [&](const QString &typed) {
        CustomLanguageRule changed = rule(1);
        changed.colorHex = typed;
        rules.updateCustomLanguageRule(changed);
    };
    struct Step {
        const char *name;
        std::function<void()> change;
        QStringList expected;
    };
    const QString added = u"txt Text #6e7781 -"_s;
    const QString shader = u"glsl Shader #6e7781 -"_s;
    const Step steps[] = {
        {"a new rule", [&] { rules.addCustomLanguageRule(); }, {added}},
        {"new rules come last",
         [&] {
             rules.updateCustomLanguageRule(
                 {rules.addCustomLanguageRule(), u"glsl"_s, u"Shader"_s, rule(1).colorHex, {}});
         },
         {added, shader}},
        {"a color is kept as typed", [&] { typeColor(u" f80 "_s); }, {added, u"glsl Shader  f80  -"_s}},
        {"and written in full when left",
         [&] { rules.normalizeCustomLanguageRuleColor(rule(1).id); },
         {added, u"glsl Shader #FF8800 -"_s}},
        {"what is no color becomes the first one",
         [&] {
             typeColor(u"orange"_s);
             rules.normalizeCustomLanguageRuleColor(rule(1).id);
         },
         {added, shader}},
        {"a syntax file is chosen",
         [&] {
             fixture.user.chosenFile = u"/s/glsl.sublime-syntax"_s;
             awaited(rules.chooseCustomLanguageSyntaxFile(rule(1).id));
         },
         {added, u"glsl Shader #6e7781 /s/glsl.sublime-syntax"_s}},
        {"a cancelled choice changes nothing",
         [&] {
             fixture.user.chosenFile = std::nullopt;
             awaited(rules.chooseCustomLanguageSyntaxFile(rule(1).id));
         },
         {added, u"glsl Shader #6e7781 /s/glsl.sublime-syntax"_s}},
        {"the syntax file is cleared", [&] { rules.clearCustomLanguageSyntaxFile(rule(1).id); }, {added, shader}},
        {"a rule that is gone changes nothing",
         [&] {
             rules.updateCustomLanguageRule({QUuid::createUuid(), u"a"_s, u"b"_s, u"c"_s, {}});
             rules.removeCustomLanguageRule(QUuid::createUuid());
         },
         {added, shader}},
        {"only the named rule leaves", [&] { rules.removeCustomLanguageRule(rule(0).id); }, {shader}},
    };
    for (const Step &step : steps) {
        SCOPED_TRACE(step.name);
        step.change();
        EXPECT_EQ(described(fixture.app.customLanguageRules), step.expected);
        EXPECT_EQ(LanguageConfigurationStore(fixture.settings).load(), fixture.app.customLanguageRules.value());
    }
    EXPECT_EQ(fixture.user.asked.first(),
              u"file Choose Sublime Syntax: Choose a .sublime-syntax file for this language."_s);
}

TEST(LanguageRules, ASyntaxFileThatColorsNothingIsToldOf) {
    AppFixture fixture;
    TempTree folder;
    folder.write(u"good"_s, "- match: x\n  scope: keyword\n");
    folder.write(u"other"_s, "key: [value\n");
    const QUuid id = fixture.app.languageRules.addCustomLanguageRule();
    for (const QString &name : {u"good"_s, u"other"_s, u"missing"_s}) {
        fixture.app.alert = std::nullopt;
        fixture.user.chosenFile = folder.path(name);
        awaited(fixture.app.languageRules.chooseCustomLanguageSyntaxFile(id));
        EXPECT_EQ(fixture.app.customLanguageRules.value().first().syntaxFilePath, folder.path(name));
        EXPECT_EQ(fixture.app.alert.value().has_value(), name != u"good") << name.toStdString();
    }
}

TEST(LanguageRules, UnreadableOnesAreKeptBeforeTheFirstSave) {
    const QString key = u"KestorSVN.customLanguageRules"_s;
    TempTree folder;
    QSettings settings(folder.path(u"test.conf"_s), QSettings::IniFormat);
    settings.setValue(key, QByteArray("[{\"id\": 7}]"));
    ScriptedUser user;
    AppState app(settings, user, systemTools(settings));
    app.languageRules.removeCustomLanguageRule(QUuid::createUuid());
    EXPECT_EQ(settings.value(key).toByteArray(), "[{\"id\": 7}]") << "nothing changed, nothing saved";
    app.languageRules.addCustomLanguageRule();
    app.languageRules.addCustomLanguageRule();
    EXPECT_EQ(settings.value(key + u".unreadable"_s).toByteArray(), "[{\"id\": 7}]");
    EXPECT_EQ(LanguageConfigurationStore(settings).load().size(), 2);
}

} // namespace
} // namespace kestor

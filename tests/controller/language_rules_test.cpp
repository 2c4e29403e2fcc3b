#include "model/language_configuration_store.h"
#include "support/app_test.h"

namespace kestor {
namespace {

TEST(LanguageRules, ASyntaxFileThatColorsNothingIsToldOf) {
    AppFixture fixture;
    TempTree folder;
    folder.writeAll({{u"good"_s, "- match: x\n  scope: keyword\n"}, {u"other"_s, "key: [value\n"}});
    const QUuid id = fixture.app.languageRules.addCustomLanguageRule();
    for (const QString &name : u"good|other|missing"_list) {
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

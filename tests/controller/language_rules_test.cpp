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

} // namespace
} // namespace kestor

#include "model/language_configuration_store.h"

namespace kestor {

LanguageConfigurationStore::LanguageConfigurationStore(QSettings &settings)
    : store(settings, QStringLiteral("KestorSVN.customLanguageRules")) {}

QList<CustomLanguageRule> LanguageConfigurationStore::load() const {
    return decodedList(store, customLanguageRuleFromJson).value_or(QList<CustomLanguageRule>());
}

void LanguageConfigurationStore::save(const QList<CustomLanguageRule> &rules) {
    store.save(encodedList(rules), decodedList(store, customLanguageRuleFromJson).has_value());
}

} // namespace kestor

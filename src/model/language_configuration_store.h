#pragma once

#include "model/custom_language_rule.h"
#include "model/json_list_store.h"

#include <QList>

namespace kestor {

/// The custom language rules in the preferences, under "KestorSVN.customLanguageRules". Main thread only.
class LanguageConfigurationStore {
public:
    /// `settings` must outlive the store.
    explicit LanguageConfigurationStore(QSettings &settings);

    /// The stored rules in stored order; empty when nothing is stored or any element does not decode.
    QList<CustomLanguageRule> load() const;
    /// Stores the whole list. Bytes that did not decode are kept under the key with ".unreadable" appended first.
    void save(const QList<CustomLanguageRule> &rules);

private:
    JsonListStore store;
};

} // namespace kestor

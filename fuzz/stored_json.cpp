#include "fuzz/input_text.h"
#include "fuzz/property.h"
#include "model/language_configuration_store.h"
#include "model/project_store.h"

#include <QSettings>
#include <QStringList>

namespace kestor::fuzz {

namespace {

/// Preferences that are never written to disk.
QSettings &preferences() {
    static const QSettings::Format format = QSettings::registerFormat(
        QStringLiteral("memory"), [](QIODevice &, QSettings::SettingsMap &) { return true; },
        [](QIODevice &, const QSettings::SettingsMap &) { return true; });
    static QSettings settings(QStringLiteral("/nonexistent/preferences"), format);
    return settings;
}

template <typename Store>
void checkStoredBytes(const QByteArray &bytes, const QString &key) {
    QSettings &settings = preferences();
    const QString keptKey = key + QStringLiteral(".unreadable");
    settings.remove(keptKey);
    settings.setValue(key, bytes);
    Store store(settings);
    const auto records = store.load();
    require(settings.value(key).toByteArray() == bytes, "loading leaves the stored value alone");
    store.save(records);
    require(store.load() == records, "what was saved loads again");
    const bool wasKept = settings.contains(keptKey);
    require(!wasKept || settings.value(keptKey).toByteArray() == bytes,
            "bytes that do not decode are kept as they are");
    require(!wasKept || records.isEmpty(), "only bytes that do not decode are kept");
    if (!wasKept && records.isEmpty())
        require(bytes.trimmed().startsWith('['), "an empty list was stored as one");

    const QByteArray saved = settings.value(key).toByteArray();
    settings.remove(keptKey);
    store.save(store.load());
    require(settings.value(key).toByteArray() == saved, "saving twice changes nothing");
    require(!settings.contains(keptKey), "what was saved decodes");
}

/// Records with any texts, saved and loaded.
void checkRecords(const QStringList &texts) {
    QList<Project> projects;
    QList<CustomLanguageRule> rules;
    for (const QString &text : texts) {
        const QUuid id = QUuid::createUuidV5(QUuid(), text);
        projects.append({id, text, u'/' + text, text.size() % 2 == 0 ? RepositoryKind::svn : RepositoryKind::git});
        rules.append(
            {id, text, text.left(5), text.right(7), text.size() % 2 == 0 ? std::nullopt : std::optional(text)});
    }
    QSettings &settings = preferences();
    settings.clear();
    ProjectStore(settings).save(projects);
    LanguageConfigurationStore(settings).save(rules);
    require(ProjectStore(settings).load() == projects, "projects come back");
    require(LanguageConfigurationStore(settings).load() == rules, "language rules come back");
}

void checkColor(const QString &text) {
    const std::optional<QString> color = CustomLanguageRule::normalizedColorHex(text);
    require(!color || CustomLanguageRule::normalizedColorHex(*color) == color, "a normalised color stays as it is");
    require(!color || (color->size() == 7 && color->startsWith(u'#') && color->toUpper() == *color),
            "colors are a sign and six digits");
}

} // namespace

void check(QByteArrayView input) {
    checkStoredBytes<ProjectStore>(input.toByteArray(), QStringLiteral("KestorSVN.projects"));
    checkStoredBytes<LanguageConfigurationStore>(input.toByteArray(), QStringLiteral("KestorSVN.customLanguageRules"));
    const QString text = anyText(input);
    checkRecords(text.split(u'\n'));
    checkColor(text);
}

} // namespace kestor::fuzz

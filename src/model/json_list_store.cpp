#include "model/json_list_store.h"

#include <QJsonDocument>

#include <utility>

namespace kestor {

JsonListStore::JsonListStore(QSettings &settings, QString key) : defaults(settings), defaultsKey(std::move(key)) {}

std::optional<QJsonArray> JsonListStore::load() const {
    const QVariant value = defaults.value(defaultsKey);
    if (value.typeId() != QMetaType::QByteArray)
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(value.toByteArray());
    if (!document.isArray())
        return std::nullopt;
    return document.array();
}

void JsonListStore::save(const QJsonArray &array, bool storedValueReadable) {
    if (!storedValueReadable && defaults.contains(defaultsKey))
        defaults.setValue(defaultsKey + QStringLiteral(".unreadable"), defaults.value(defaultsKey));
    defaults.setValue(defaultsKey, QJsonDocument(array).toJson(QJsonDocument::Compact));
}

} // namespace kestor

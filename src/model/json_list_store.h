#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QSettings>
#include <QString>

#include <optional>

namespace kestor {

/// A JSON array kept as a byte value under one preferences key. It holds no cache. Main thread only.
class JsonListStore {
public:
    /// `settings` must outlive the store.
    JsonListStore(QSettings &settings, QString key);

    /// The stored array of objects; nothing when there is none, the value is no byte value or it is no JSON array.
    std::optional<QJsonArray> load() const;
    /// Replaces the stored array. When `storedValueReadable` is false and bytes are stored, they are first kept under
    /// the key with ".unreadable" appended, so that a value which does not decode is never lost.
    void save(const QJsonArray &array, bool storedValueReadable);

private:
    QSettings &defaults;
    QString defaultsKey;
};

/// The stored list, each element read by `decode`; nothing when there is no list or a single element does not decode.
template <typename Record>
std::optional<QList<Record>> decodedList(const JsonListStore &store,
                                         std::optional<Record> (*decode)(const QJsonObject &)) {
    const std::optional<QJsonArray> array = store.load();
    if (!array)
        return std::nullopt;
    QList<Record> records;
    for (const auto &value : *array) {
        std::optional<Record> record = decode(value.toObject());
        if (!record)
            return std::nullopt;
        records.append(*std::move(record));
    }
    return records;
}

/// The JSON array of `records`, each written by toJson.
template <typename Record>
QJsonArray encodedList(const QList<Record> &records) {
    QJsonArray array;
    for (const Record &record : records)
        array.append(toJson(record));
    return array;
}

} // namespace kestor

#pragma once

#include <QMap>
#include <QStringList>

namespace kestor::testing {

/// `u"add|--force|a b.c"_list`: the texts between the bars.
inline QStringList operator""_list(const char16_t *text, std::size_t size) {
    return QString(reinterpret_cast<const QChar *>(text), static_cast<qsizetype>(size)).split(u'|');
}

/// `u"path=a b.c|revision="_answer`: what a user types into the fields of a prompt.
inline QMap<QString, QString> operator""_answer(const char16_t *text, std::size_t size) {
    QMap<QString, QString> fields;
    for (const QString &field : operator""_list(text, size))
        fields.insert(field.section(u'=', 0, 0), field.section(u'=', 1));
    return fields;
}

} // namespace kestor::testing

#pragma once

#include "fuzz/forbidden_characters.h"
#include "fuzz/input_text.h"
#include "fuzz/property.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QUtf8StringView>

#include <optional>
#include <utility>

namespace kestor::fuzz {

/// `text` as svn prints it, so that a reader gets back every character.
inline QByteArray escaped(const QString &text) {
    constexpr std::pair<char, const char *> references[] = {{'&', "&amp;"},  {'<', "&lt;"},    {'>', "&gt;"},
                                                            {'"', "&quot;"}, {'\'', "&apos;"}, {'\t', "&#9;"},
                                                            {'\n', "&#10;"}, {'\r', "&#13;"}};
    QByteArray result = text.toUtf8();
    for (const auto &[character, reference] : references)
        result.replace(character, reference);
    return result;
}

/// ` name="value"`, or nothing without a value.
inline QByteArray attribute(const char *name, const std::optional<QString> &value) {
    return value ? QByteArray(" ") + name + "=\"" + escaped(*value) + '"' : QByteArray();
}

inline QByteArray element(const QByteArray &name, const std::optional<QString> &text) {
    return text ? '<' + name + '>' + escaped(*text) + "</" + name + '>' : QByteArray();
}

/// As the tool prints dates; such years alone can be printed.
inline bool isPrintable(const std::optional<QDateTime> &date) {
    return !date || (date->date().year() >= 1 && date->date().year() <= 9999);
}

inline std::optional<QString> printedDate(const std::optional<QDateTime> &date) {
    return date ? std::optional(date->toString(Qt::ISODateWithMs)) : std::nullopt;
}

/// The records of a document. Text must give what its bytes give.
template <typename Parser>
auto parsedEitherWay(QByteArrayView document) {
    auto records = Parser::parse(document);
    if (QUtf8StringView(document).isValidUtf8())
        require(Parser::parse(QStringView(exactText(document))) == records, "text and its bytes give the same records");
    return records;
}

/// A document that breaks off somewhere, at a place that depends on all of it; at its beginning where the reader may
/// read less of the whole than of the part.
inline QByteArrayView brokenOff(QByteArrayView document) {
    return document.isEmpty() || holdsForbidden(document)
               ? QByteArrayView()
               : document.first(static_cast<qsizetype>(qHash(document, 0) % static_cast<std::size_t>(document.size())));
}

} // namespace kestor::fuzz

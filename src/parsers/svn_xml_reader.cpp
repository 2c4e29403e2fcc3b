#include "parsers/svn_xml_reader.h"

#include "parsers/decimal_integer.h"

#include <QUtf8StringView>

#include <algorithm>
#include <expat.h>
#include <memory>
#include <type_traits>

namespace kestor {

namespace {

struct ParserDeleter {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

struct Reading {
    XML_Parser parser;
    XmlHandler &handler;
    std::string text{};
};

Reading &readingOf(void *userData) {
    return *static_cast<Reading *>(userData);
}

void startElement(void *userData, const XML_Char *name, const XML_Char **attributes) {
    Reading &reading = readingOf(userData);
    reading.text.clear();
    reading.handler.startElement(name, XmlAttributes(attributes));
}

void endElement(void *userData, const XML_Char *name) {
    Reading &reading = readingOf(userData);
    reading.handler.endElement(name, reading.text);
    reading.text.clear();
}

void characters(void *userData, const XML_Char *text, int length) {
    readingOf(userData).text.append(text, static_cast<std::size_t>(length));
}

void startDoctype(void *userData, const XML_Char *, const XML_Char *, const XML_Char *, int) {
    XML_StopParser(readingOf(userData).parser, XML_FALSE);
}

} // namespace

QString fromUtf8(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString trimmedFromUtf8(std::string_view utf8) {
    return fromUtf8(utf8).trimmed();
}

const QString &RepeatedText::fromUtf8(std::string_view utf8) {
    if (utf8 != lastUtf8) {
        lastUtf8 = utf8;
        last = kestor::fromUtf8(utf8);
    }
    return last;
}

const QString &RepeatedTexts::fromUtf8(std::string_view utf8) {
    const auto known = texts.find(utf8);
    return known != texts.end() ? known->second : texts.emplace(utf8, kestor::fromUtf8(utf8)).first->second;
}

std::optional<std::string_view> XmlAttributes::value(std::string_view name) const {
    for (const char *const *pair = namesAndValues; *pair != nullptr; pair += 2) {
        if (name == *pair)
            return pair[1];
    }
    return std::nullopt;
}

std::optional<QString> XmlAttributes::text(std::string_view name) const {
    const std::optional<std::string_view> utf8 = value(name);
    return utf8 ? std::optional(fromUtf8(*utf8)) : std::nullopt;
}

std::optional<QString> XmlAttributes::text(std::string_view name, RepeatedText &shared) const {
    const std::optional<std::string_view> utf8 = value(name);
    return utf8 ? std::optional(shared.fromUtf8(*utf8)) : std::nullopt;
}

std::optional<qint64> XmlAttributes::integer(std::string_view name) const {
    const std::optional<std::string_view> utf8 = value(name);
    return utf8 ? decimalInteger(QUtf8StringView(utf8->data(), static_cast<qsizetype>(utf8->size()))) : std::nullopt;
}

void readXml(QByteArrayView utf8, XmlHandler &handler) {
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserDeleter> parser(XML_ParserCreate("UTF-8"));
    Reading reading{parser.get(), handler};
    XML_SetUserData(parser.get(), &reading);
    XML_SetElementHandler(parser.get(), startElement, endElement);
    XML_SetCharacterDataHandler(parser.get(), characters);
    XML_SetStartDoctypeDeclHandler(parser.get(), startDoctype);
    constexpr qsizetype pieceSize = 1 << 30; // expat counts in int
    bool ok = true;
    while (ok && !utf8.isEmpty()) {
        const qsizetype size = std::min(pieceSize, utf8.size());
        const int isLast = size == utf8.size() ? 1 : 0;
        ok = XML_Parse(parser.get(), utf8.data(), static_cast<int>(size), isLast) == XML_STATUS_OK;
        utf8 = utf8.sliced(size);
    }
}

QByteArray utf8OrEmpty(QStringView text) {
    return text.isValidUtf16() ? text.toUtf8() : QByteArray();
}

} // namespace kestor

#include "parsers/svn_xml_reader.h"

#include "model/utf8_text.h"
#include "parsers/decimal_integer.h"
#include "parsers/svn_xml_scanner.h"

#include <QUtf8StringView>

#include <expat.h>
#include <memory>
#include <type_traits>
#include <vector>

namespace kestor {

namespace {

struct ParserDeleter {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

struct Reading {
    XML_Parser parser;
    XmlHandler &handler;
    std::string text{};
    std::vector<XmlAttribute> attributes{};
};

Reading &readingOf(void *userData) {
    return *static_cast<Reading *>(userData);
}

/// `pairs` alternates names and values and ends with a null pointer.
void startElement(void *userData, const XML_Char *name, const XML_Char **pairs) {
    Reading &reading = readingOf(userData);
    reading.text.clear();
    reading.attributes.clear();
    for (; *pairs != nullptr; pairs += 2)
        reading.attributes.push_back({pairs[0], pairs[1]});
    reading.handler.startElement(name, XmlAttributes(reading.attributes));
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

bool parsePiece(XML_Parser parser, std::string_view piece, int isLast) {
    return XML_Parse(parser, piece.data(), static_cast<int>(piece.size()), isLast) == XML_STATUS_OK;
}

/// Reads what follows the start tags of `openElements`.
XmlEnd readWithExpat(std::string_view utf8, const std::vector<std::string_view> &openElements, XmlHandler &handler) {
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserDeleter> parser(XML_ParserCreate("UTF-8"));
    bool ok = !utf8.empty();
    for (const std::string_view name : openElements)
        ok = ok && parsePiece(parser.get(), '<' + std::string(name) + '>', 0);
    Reading reading{parser.get(), handler};
    XML_SetUserData(parser.get(), &reading);
    XML_SetElementHandler(parser.get(), startElement, endElement);
    XML_SetCharacterDataHandler(parser.get(), characters);
    XML_SetStartDoctypeDeclHandler(parser.get(), startDoctype);
    constexpr std::size_t pieceSize = 1 << 30; // expat counts in int
    while (ok && !utf8.empty()) {
        const std::string_view piece = utf8.substr(0, pieceSize);
        utf8.remove_prefix(piece.size());
        ok = parsePiece(parser.get(), piece, utf8.empty() ? 1 : 0);
    }
    return ok ? XmlEnd::reached : XmlEnd::missed;
}

} // namespace

QString fromUtf8(std::string_view utf8) {
    return utf8Text(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
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
    for (const XmlAttribute &attribute : list) {
        if (attribute.name == name)
            return attribute.value;
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

XmlEnd readXml(QByteArrayView utf8, XmlHandler &handler) {
    const std::string_view document(utf8.data(), static_cast<std::size_t>(utf8.size()));
    if (!utf8.isValidUtf8())
        return readWithExpat(document, {}, handler);
    SvnXmlScanner scanner(document, handler);
    return scanner.scan() ? XmlEnd::reached : readWithExpat(scanner.rest(), scanner.openElements(), handler);
}

QByteArray utf8OrEmpty(QStringView text) {
    return text.isValidUtf16() ? text.toUtf8() : QByteArray();
}

} // namespace kestor

#include "parsers/svn_xml_scanner.h"

#include <algorithm>

namespace kestor {

namespace {

constexpr std::uint8_t blank = 1;
constexpr std::uint8_t nameBegin = 2;
constexpr std::uint8_t nameRest = 4;
constexpr std::uint8_t textCharacter = 8;    ///< of text, as it stands
constexpr std::uint8_t quotedCharacter = 16; ///< of an attribute value, as it stands

/// The classes of each byte. Left out are those that XML or svn writes as references or that XML changes. What it
/// forbids stands there as it is: svn prints the control characters of a file name so, and one name must not hide all
/// others.
constexpr std::array<std::uint8_t, 256> classes = [] {
    std::array<std::uint8_t, 256> table{};
    const auto add = [&table](std::string_view characters, std::uint8_t classOfAll) {
        for (const char character : characters)
            table[static_cast<unsigned char>(character)] |= classOfAll;
    };
    for (std::size_t byte = 1; byte < table.size(); ++byte)
        table[byte] = textCharacter | quotedCharacter;
    for (const char byte : {'&', '<', '>', '\t', '\n', '\r'})
        table[static_cast<unsigned char>(byte)] = 0;
    for (const std::size_t byte : {std::size_t{'"'}, std::size_t{'\''}})
        table[byte] = textCharacter;
    add(" \t\n", blank | textCharacter);
    add("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_", nameBegin | nameRest);
    add("0123456789-.", nameRest);
    return table;
}();

struct Reference {
    std::string_view printed;
    char character;
};

constexpr std::array<Reference, 8> references{{{"&amp;", '&'},
                                               {"&lt;", '<'},
                                               {"&gt;", '>'},
                                               {"&quot;", '"'},
                                               {"&apos;", '\''},
                                               {"&#9;", '\t'},
                                               {"&#10;", '\n'},
                                               {"&#13;", '\r'}}};

} // namespace

SvnXmlScanner::SvnXmlScanner(std::string_view document, XmlHandler &receiver)
    : handler(receiver), unread(document), next(document) {}

bool SvnXmlScanner::scan() {
    take("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
    scanWhile(blank);
    while (scanTag()) {
        unread = next;
        if (open.empty())
            return true;
        if (!scanCharacters(text, textCharacter, '<'))
            return false;
    }
    return false;
}

bool SvnXmlScanner::scanTag() {
    return take('<') && (take('/') ? scanEndTag() : scanStartTag());
}

bool SvnXmlScanner::scanStartTag() {
    const std::string_view name = scanName();
    attributes.clear();
    while (!scanWhile(blank).empty() && !next.empty() && next.front() != '/' && next.front() != '>') {
        if (!scanAttribute())
            return false;
    }
    const bool isEmpty = take('/');
    if (name.empty() || !take('>'))
        return false;
    handler.startElement(name, XmlAttributes(attributes));
    if (isEmpty)
        handler.endElement(name, {});
    else
        open.push_back(name);
    return true;
}

bool SvnXmlScanner::scanEndTag() {
    if (open.empty() || !take(open.back()) || !take('>'))
        return false;
    handler.endElement(open.back(), text.text);
    open.pop_back();
    return true;
}

bool SvnXmlScanner::scanAttribute() {
    const std::string_view name = scanName();
    const auto isSame = [name](const XmlAttribute &other) {
        return other.name == name;
    };
    if (name.empty() || attributes.size() == values.size() || std::ranges::any_of(attributes, isSame))
        return false;
    const char quote = take('=') && !next.empty() ? next.front() : '\0';
    if (quote != '"' && quote != '\'')
        return false;
    next.remove_prefix(1);
    Characters &value = values[attributes.size()];
    if (!scanCharacters(value, quotedCharacter, quote))
        return false;
    next.remove_prefix(1);
    attributes.push_back({name, value.text});
    return true;
}

/// Takes what stands before the next `end`.
bool SvnXmlScanner::scanCharacters(Characters &characters, std::uint8_t plain, char end) {
    characters.text = scanWhile(plain);
    if (next.starts_with(end))
        return true;
    characters.decoded = characters.text;
    while (!next.empty() && next.front() != end) {
        if (!scanReference(characters.decoded))
            return false;
        characters.decoded += scanWhile(plain);
    }
    characters.text = characters.decoded;
    return !next.empty();
}

bool SvnXmlScanner::scanReference(std::string &decoded) {
    for (const Reference &reference : references) {
        if (take(reference.printed)) {
            decoded += reference.character;
            return true;
        }
    }
    return false;
}

/// Empty when there is none.
std::string_view SvnXmlScanner::scanName() {
    const bool begins = !next.empty() && (classes[static_cast<unsigned char>(next.front())] & nameBegin) != 0;
    return begins ? scanWhile(nameRest) : std::string_view();
}

std::string_view SvnXmlScanner::scanWhile(std::uint8_t characterClass) {
    const auto belongs = [characterClass](char character) {
        return (classes[static_cast<unsigned char>(character)] & characterClass) != 0;
    };
    const auto end = std::find_if_not(next.begin(), next.end(), belongs);
    const std::string_view taken = next.substr(0, static_cast<std::size_t>(end - next.begin()));
    next.remove_prefix(taken.size());
    return taken;
}

bool SvnXmlScanner::take(char expected) {
    if (!next.starts_with(expected))
        return false;
    next.remove_prefix(1);
    return true;
}

bool SvnXmlScanner::take(std::string_view expected) {
    if (!next.starts_with(expected))
        return false;
    next.remove_prefix(expected.size());
    return true;
}

} // namespace kestor

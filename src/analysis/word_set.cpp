#include "analysis/word_set.h"

#include <QChar>

#include <algorithm>

namespace kestor {

namespace {

bool isAsciiWordCharacter(char16_t unit) {
    const char16_t lowered = unit | 0x20;
    return (lowered >= u'a' && lowered <= u'z') || (unit >= u'0' && unit <= u'9') || unit == u'_';
}

/// The length of the word character at `index`; 0 when another character is there.
qsizetype wordCharacterLength(QStringView text, qsizetype index) {
    const QChar unit = text[index];
    if (unit.unicode() < 0x80)
        return isAsciiWordCharacter(unit.unicode()) ? 1 : 0;
    if (!unit.isHighSurrogate())
        return unit.isLetterOrNumber() ? 1 : 0;
    return QChar::isLetterOrNumber(QChar::surrogateToUcs4(unit, text[index + 1])) ? 2 : 0;
}

qsizetype wordEnd(QStringView text, qsizetype index) {
    while (index < text.size()) {
        const qsizetype length = wordCharacterLength(text, index);
        if (length == 0)
            break;
        index += length;
    }
    return index;
}

std::u16string_view utf16View(QStringView text) {
    return {text.utf16(), static_cast<std::size_t>(text.size())};
}

bool isAsciiWord(QStringView word) {
    return !word.isEmpty() && std::ranges::all_of(utf16View(word), isAsciiWordCharacter);
}

constexpr qsizetype longestDistinguished = 31;

std::uint32_t lengthBit(qsizetype length) {
    return std::uint32_t(1) << std::min(length, longestDistinguished);
}

std::optional<QStringView> between(QStringView text, QStringView begin, QStringView end) {
    if (text.size() < begin.size() + end.size() || !text.startsWith(begin) || !text.endsWith(end))
        return std::nullopt;
    return text.sliced(begin.size()).chopped(end.size());
}

} // namespace

void findWords(QStringView text, std::vector<TextRange> &words) {
    words.clear();
    for (qsizetype i = 0; i < text.size();) {
        const qsizetype end = wordEnd(text, i);
        if (end > i)
            words.push_back({i, end - i});
        // Of a pair that is no letter the second half is none either.
        i = end + 1;
    }
}

std::optional<WordSet> WordSet::ofPattern(QStringView pattern) {
    std::optional<QStringView> list = between(pattern, u"\\b(?:", u")\\b");
    if (!list)
        list = between(pattern, u"\\b(", u")\\b");
    if (!list)
        return std::nullopt;
    WordSet set;
    for (const QStringView word : list->tokenize(u'|')) {
        if (!isAsciiWord(word))
            return std::nullopt;
        set.insert(word);
    }
    return set;
}

bool WordSet::contains(QStringView word) const {
    const char16_t first = word.front().unicode();
    if (first >= lengths.size() || (lengths[first] & lengthBit(word.size())) == 0)
        return false;
    return words.contains(utf16View(word));
}

void WordSet::insert(QStringView word) {
    lengths[word.front().unicode()] |= lengthBit(word.size());
    words.emplace(utf16View(word));
}

} // namespace kestor

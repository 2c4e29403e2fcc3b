#include "rules/character_set.h"

#include <QList>

#include <algorithm>

namespace kestor {

namespace {

bool isNamedClass(QStringView body) {
    return body.size() > 1 && body.startsWith(u':') && body.endsWith(u':');
}

bool isSetSyntax(char32_t character, char32_t next) {
    return character == U'[' || ((character == U'-' || character == U'&') && next == character);
}

} // namespace

std::optional<CharacterSet> CharacterSet::fromBracketBody(QStringView body) {
    if (isNamedClass(body))
        return std::nullopt;
    CharacterSet set;
    set.negated = body.startsWith(u'!');
    const QList<uint> characters = body.sliced(set.negated ? 1 : 0).toUcs4();
    const auto at = [&characters](qsizetype index) {
        return static_cast<char32_t>(characters.value(index));
    };
    for (qsizetype i = 0; i < characters.size(); ++i) {
        if (isSetSyntax(at(i), at(i + 1)))
            return std::nullopt;
        const bool isRange = at(i + 1) == U'-' && i + 2 < characters.size();
        const Range range{at(i), isRange ? at(i + 2) : at(i)};
        if (range.first > range.last || (isRange && (range.last == U'[' || range.last == U'-')))
            return std::nullopt;
        set.ranges.push_back(range);
        i += isRange ? 2 : 0;
    }
    if (set.ranges.empty())
        return std::nullopt;
    return set;
}

bool CharacterSet::contains(char32_t character) const {
    return negated != std::any_of(ranges.begin(), ranges.end(), [character](const Range &range) {
               return range.first <= character && character <= range.last;
           });
}

} // namespace kestor

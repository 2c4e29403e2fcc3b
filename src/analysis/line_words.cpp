#include "analysis/line_words.h"

#include <QHashFunctions>

namespace kestor {

namespace {

using Kind = LineToken::Kind;

struct Character {
    Kind kind = Kind::sign;
    bool combines = false; ///< belongs to the character before it
    qsizetype length = 1;
};

Character characterAt(QStringView line, qsizetype index) {
    const QChar unit = line[index];
    const bool isPair = unit.isHighSurrogate() && index + 1 < line.size() && line[index + 1].isLowSurrogate();
    const char32_t code = isPair ? QChar::surrogateToUcs4(unit, line[index + 1]) : unit.unicode();
    const bool isWord = QChar::isLetterOrNumber(code) || code == U'_';
    const Kind kind = isWord ? Kind::word : QChar::isSpace(code) ? Kind::blank : Kind::sign;
    constexpr char32_t zeroWidthJoiner = 0x200D;
    return {kind, QChar::isMark(code) || code == zeroWidthJoiner, isPair ? 2 : 1};
}

} // namespace

std::vector<LineToken> lineTokens(QStringView line) {
    std::vector<LineToken> tokens;
    for (qsizetype index = 0; index < line.size();) {
        const Character character = characterAt(line, index);
        const bool goesOn = !tokens.empty() &&
                            (character.combines || (character.kind == Kind::word && tokens.back().kind == Kind::word));
        if (!goesOn)
            tokens.push_back({{index, 0}, character.kind});
        tokens.back().range.length += character.length;
        index += character.length;
    }
    for (LineToken &token : tokens)
        token.hash = qHash(textOf(token, line));
    return tokens;
}

} // namespace kestor

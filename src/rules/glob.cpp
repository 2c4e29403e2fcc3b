#include "rules/glob.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>

namespace kestor {

namespace {

bool repeats(auto kind) {
    return kind == decltype(kind)::notSlashes || kind == decltype(kind)::notLineBreaks;
}

/// The character at `index`, which is moved behind it.
char32_t nextCharacter(QStringView text, qsizetype &index) {
    const char16_t first = text[index++].unicode();
    if (!QChar::isHighSurrogate(first) || index == text.size() || !text[index].isLowSurrogate())
        return first;
    return QChar::surrogateToUcs4(first, text[index++].unicode());
}

QStringView withoutFinalLineBreak(QStringView text) {
    return text.chopped(text.endsWith(u"\r\n") ? 2 : 1);
}

GlobPiece moreTelling(const GlobPiece &left, const GlobPiece &right) {
    if (left.kind != right.kind)
        return left.kind > right.kind ? left : right;
    return left.text.size() >= right.text.size() ? left : right;
}

/// The most telling piece of a run of literals.
GlobPiece pieceOf(QStringView run, bool beginsText, bool endsText) {
    GlobPiece best;
    for (qsizetype begin = 0; begin <= run.size();) {
        const qsizetype slash = run.indexOf(u'/', begin);
        const qsizetype end = slash < 0 ? run.size() : slash;
        const QStringView piece = run.sliced(begin, end - begin);
        const bool endKnown = slash >= 0 || endsText;
        const bool beginKnown = begin > 0 || beginsText;
        if (beginKnown && endKnown && !piece.isEmpty()) {
            best = moreTelling(best, {GlobPiece::Kind::name, piece.toString()});
        } else if (endKnown && piece.contains(u'.')) {
            best = moreTelling(best, {GlobPiece::Kind::extension, piece.sliced(piece.lastIndexOf(u'.')).toString()});
        }
        begin = end + 1;
    }
    return best;
}

} // namespace

bool isLineBreak(char16_t character) {
    return (character >= 0x0A && character <= 0x0D) || character == 0x85 || character == 0x2028 || character == 0x2029;
}

/// The tokens that may come next, ascending.
struct Glob::States : QVarLengthArray<std::size_t, 64> {};

Glob::Glob(QStringView pattern) {
    compile(pattern);
    splitOffLiteralEnds();
}

void Glob::compile(QStringView pattern) {
    for (qsizetype i = 0; i < pattern.size();) {
        const char32_t character = nextCharacter(pattern, i);
        if (character == U'\\' && i < pattern.size()) {
            appendLiteral(nextCharacter(pattern, i));
        } else if (character == U'*') {
            const bool twice = i < pattern.size() && pattern[i] == u'*';
            tokens.push_back({.kind = twice ? Kind::notLineBreaks : Kind::notSlashes});
            i += twice ? 1 : 0;
        } else if (character == U'?') {
            tokens.push_back({.kind = Kind::notSlash});
        } else if (character == U'[') {
            i = compileBrackets(pattern, i);
        } else {
            appendLiteral(character);
        }
    }
}

qsizetype Glob::compileBrackets(QStringView pattern, qsizetype body) {
    const qsizetype close = pattern.indexOf(u']', body);
    if (close < 0) {
        appendLiteral(U'[');
        return body;
    }
    if (close == body) {
        appendLiteral(U'[');
        appendLiteral(U']');
        return close + 1;
    }
    std::optional<CharacterSet> set = CharacterSet::fromBracketBody(pattern.sliced(body, close - body));
    if (set) {
        tokens.push_back({.kind = Kind::set, .set = sets.size()});
        sets.push_back(*std::move(set));
    } else {
        valid = false;
    }
    return close + 1;
}

QString Glob::literalsIn(std::size_t begin, std::size_t end) const {
    QString text;
    for (std::size_t i = begin; i < end; ++i)
        text.append(QChar::fromUcs4(tokens[i].literal));
    return text;
}

void Glob::splitOffLiteralEnds() {
    const auto isWild = [](const Token &token) {
        return token.kind != Kind::literal;
    };
    const auto firstWild = std::find_if(tokens.begin(), tokens.end(), isWild);
    const auto afterLastWild = std::find_if(tokens.rbegin(), std::make_reverse_iterator(firstWild), isWild).base();
    middleBegin = static_cast<std::size_t>(firstWild - tokens.begin());
    middleEnd = static_cast<std::size_t>(afterLastWild - tokens.begin());
    prefix = literalsIn(0, middleBegin);
    suffix = literalsIn(middleEnd, tokens.size());
}

bool Glob::matches(QStringView text) const {
    if (matchesExactly(text))
        return true;
    return !text.isEmpty() && isLineBreak(text.back().unicode()) && matchesExactly(withoutFinalLineBreak(text));
}

bool Glob::matchesExactly(QStringView text) const {
    const qsizetype middleSize = text.size() - prefix.size() - suffix.size();
    if (!valid || middleSize < 0 || !text.startsWith(prefix) || !text.endsWith(suffix))
        return false;
    return middleMatches(text.sliced(prefix.size(), middleSize));
}

/// Follows all ways to match at once, so that no pattern takes exponential time.
bool Glob::middleMatches(QStringView text) const {
    std::array<States, 2> states;
    States *current = &states[0];
    States *next = &states[1];
    enter(*current, middleBegin);
    for (qsizetype i = 0; i < text.size() && !current->isEmpty();) {
        const char32_t character = nextCharacter(text, i);
        next->clear();
        for (const std::size_t state : *current) {
            if (state < middleEnd && accepts(tokens[state], character))
                enter(*next, repeats(tokens[state].kind) ? state : state + 1);
        }
        std::swap(current, next);
    }
    return !current->isEmpty() && current->back() == middleEnd;
}

bool Glob::accepts(const Token &token, char32_t character) const {
    switch (token.kind) {
    case Kind::literal:
        return character == token.literal;
    case Kind::set:
        return sets[token.set].contains(character);
    case Kind::notSlash:
    case Kind::notSlashes:
        return character != U'/';
    case Kind::notLineBreaks:
        return character > 0xFFFF || !isLineBreak(static_cast<char16_t>(character));
    }
    return false;
}

/// Adds the state and those reached by repeating nothing. Called with ascending states, so the last one tells whether
/// a state is there already.
void Glob::enter(States &states, std::size_t state) const {
    for (;; ++state) {
        if (states.isEmpty() || states.back() < state)
            states.append(state);
        if (state == middleEnd || !repeats(tokens[state].kind))
            return;
    }
}

GlobPiece Glob::requiredPiece() const {
    GlobPiece best;
    for (std::size_t begin = 0; begin < tokens.size();) {
        std::size_t end = begin;
        while (end < tokens.size() && tokens[end].kind == Kind::literal)
            ++end;
        best = moreTelling(best, pieceOf(literalsIn(begin, end), begin == 0, end == tokens.size()));
        begin = end + 1;
    }
    return best;
}

} // namespace kestor

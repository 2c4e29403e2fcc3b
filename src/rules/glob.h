#pragma once

#include "rules/character_set.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <vector>

namespace kestor {

/// What every text that a glob matches must contain, for finding the globs that can match a path without trying all.
struct GlobPiece {
    enum class Kind : std::uint8_t {
        anything,  ///< nothing is known
        extension, ///< one of the "/"-separated pieces ends with `text`, which begins with the piece's last "."
        name,      ///< one of the pieces is `text`
    };

    Kind kind = Kind::anything;
    QString text{};

    friend bool operator==(const GlobPiece &, const GlobPiece &) = default;
};

/// A pattern with the wildcards of ignore files, compiled once. It matches like the anchored regular expression that it
/// stands for ("**" is ".*", "*" is "[^/]*", "?" is "[^/]", brackets are a set, a backslash quotes), character by
/// character and case-sensitive, in time linear in pattern times text. Immutable; any thread.
///
/// The oddities are those of the expression: "**" crosses "/" but no line break; one line break may follow the match at
/// the end of the text; the first "]" closes a set, which may contain "/"; "[]" is literal; a pattern with an invalid
/// set matches nothing.
class Glob {
public:
    Glob() = default;
    explicit Glob(QStringView pattern);

    /// Whether the whole text matches.
    bool matches(QStringView text) const;
    /// A piece of every matching text that has no line breaks.
    GlobPiece requiredPiece() const;
    /// What every match begins with.
    QStringView literalBegin() const { return prefix; }
    /// What every match ends with, but for a final line break.
    QStringView literalEnd() const { return middleBegin == tokens.size() ? prefix : suffix; }

private:
    enum class Kind : std::uint8_t { literal, notSlash, set, notSlashes, notLineBreaks };
    struct Token {
        Kind kind = Kind::literal;
        char32_t literal = 0;
        std::size_t set = 0;
    };
    struct States;

    void compile(QStringView pattern);
    /// Returns the index behind what it took; `body` is the index behind the "[".
    qsizetype compileBrackets(QStringView pattern, qsizetype body);
    void appendLiteral(char32_t character) { tokens.push_back({.literal = character}); }
    void splitOffLiteralEnds();
    QString literalsIn(std::size_t begin, std::size_t end) const;
    bool matchesExactly(QStringView text) const;
    bool middleMatches(QStringView text) const;
    bool accepts(const Token &token, char32_t character) const;
    void enter(States &states, std::size_t state) const;

    std::vector<Token> tokens;
    std::vector<CharacterSet> sets;
    bool valid = true;
    QString prefix;              ///< the literal tokens before `middleBegin`
    QString suffix;              ///< the literal tokens from `middleEnd` on
    std::size_t middleBegin = 0; ///< the tokens that need more than a comparison
    std::size_t middleEnd = 0;
};

/// LF, VT, FF, CR, NEL, LS or PS: what "." of the expressions does not match and "$" may stand before.
bool isLineBreak(char16_t character);

} // namespace kestor

#include "analysis/word_marks.h"

#include "analysis/line_words.h"

#include <algorithm>
#include <iterator>

namespace kestor {

namespace {

using Kind = LineToken::Kind;

/// Of the table that compares the tokens of two lines: 512 of each, above which a line of ordinary length never comes.
constexpr std::size_t mostCells = 262'144;
constexpr int mostSignsBetween = 2;

/// The tokens of both lines without what they begin and end with in common.
struct Difference {
    QStringView removedLine{}, addedLine{};
    std::span<const LineToken> removed{}, added{};

    bool isSame(const LineToken &left, const LineToken &right) const {
        return left.hash == right.hash && textOf(left, removedLine) == textOf(right, addedLine);
    }

    void dropCommonEnds() {
        while (!removed.empty() && !added.empty() && isSame(removed.front(), added.front())) {
            removed = removed.subspan(1);
            added = added.subspan(1);
        }
        while (!removed.empty() && !added.empty() && isSame(removed.back(), added.back())) {
            removed = removed.first(removed.size() - 1);
            added = added.first(added.size() - 1);
        }
    }
};

/// Which tokens of a line have changed.
using Flags = std::vector<char>;

/// What it is worth that both lines have a token: words hold a line together, blanks are everywhere.
int weightOf(const LineToken &token) {
    switch (token.kind) {
    case Kind::blank:
        return 1;
    case Kind::sign:
        return 2;
    case Kind::word:
        break;
    }
    return 2 + 2 * static_cast<int>(token.range.length);
}

/// The heaviest tokens that both lines have in the same order, by a table of the best that each two ends can have.
class CommonTokens {
public:
    explicit CommonTokens(const Difference &lines)
        : difference(lines), columns(lines.added.size() + 1), best((lines.removed.size() + 1) * columns, 0) {
        for (std::size_t row = lines.removed.size(); row-- > 0;) {
            for (std::size_t column = lines.added.size(); column-- > 0;)
                at(row, column) = std::max({at(row + 1, column), at(row, column + 1), ifPaired(row, column)});
        }
    }

    /// Clears the flags of the tokens in common.
    void clearIn(Flags &removed, Flags &added) {
        std::size_t row = 0;
        std::size_t column = 0;
        while (row < removed.size() && column < added.size()) {
            if (at(row, column) == ifPaired(row, column))
                removed[row++] = added[column++] = 0;
            else if (at(row, column) == at(row + 1, column))
                ++row;
            else
                ++column;
        }
    }

private:
    int &at(std::size_t row, std::size_t column) { return best[row * columns + column]; }

    /// -1 for tokens that differ.
    int ifPaired(std::size_t row, std::size_t column) {
        const LineToken &token = difference.removed[row];
        return difference.isSame(token, difference.added[column]) ? weightOf(token) + at(row + 1, column + 1) : -1;
    }

    const Difference &difference;
    std::size_t columns;
    std::vector<int> best;
};

/// Whether the tokens between two marks are so few that both read as one.
bool joinsMarks(std::span<const LineToken> between) {
    const auto isKind = [between](Kind kind) {
        return std::ranges::count(between, kind, &LineToken::kind);
    };
    return isKind(Kind::word) == 0 && isKind(Kind::sign) <= mostSignsBetween;
}

/// Leaves out blanks at the ends, unless there is nothing else.
TextRange rangeOf(std::span<const LineToken> tokens) {
    const auto isInk = [](const LineToken &token) {
        return token.kind != Kind::blank;
    };
    auto first = std::ranges::find_if(tokens, isInk);
    auto end = std::find_if(tokens.rbegin(), tokens.rend(), isInk).base();
    if (first == tokens.end()) {
        first = tokens.begin();
        end = tokens.end();
    }
    const qsizetype start = first->range.start;
    return {start, std::prev(end)->range.end() - start};
}

std::vector<TextRange> marksOf(std::span<const LineToken> tokens, const Flags &changed) {
    std::vector<TextRange> marks;
    std::size_t markBegin = 0;
    std::size_t markEnd = 0; ///< 0 before the first mark
    const auto finish = [&] {
        if (markEnd > 0)
            marks.push_back(rangeOf(tokens.subspan(markBegin, markEnd - markBegin)));
    };
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (!changed[i])
            continue;
        if (markEnd == 0 || !joinsMarks(tokens.subspan(markEnd, i - markEnd))) {
            finish();
            markBegin = i;
        }
        markEnd = i + 1;
    }
    finish();
    return marks;
}

} // namespace

WordMarks wordMarks(QStringView removed, QStringView added) {
    if (std::max(removed.size(), added.size()) > longestComparedLine)
        return {};
    const std::vector<LineToken> removedTokens = lineTokens(removed);
    const std::vector<LineToken> addedTokens = lineTokens(added);
    Difference difference{removed, added, removedTokens, addedTokens};
    difference.dropCommonEnds();
    Flags removedFlags(difference.removed.size(), 1);
    Flags addedFlags(difference.added.size(), 1);
    if (removedFlags.size() * addedFlags.size() <= mostCells)
        CommonTokens(difference).clearIn(removedFlags, addedFlags);
    return {marksOf(difference.removed, removedFlags), marksOf(difference.added, addedFlags)};
}

} // namespace kestor

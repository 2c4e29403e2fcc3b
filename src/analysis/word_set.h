#pragma once

#include "analysis/text_range.h"

#include <QString>
#include <QStringView>

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace kestor {

/// Replaces `words` by the runs of letters, digits and underscores in the text: what "\b" of an Expression takes for
/// words. The text must be valid UTF-16.
void findWords(QStringView text, std::vector<TextRange> &words);

/// The words of an expression that lists nothing but whole words, as most rules for keywords do. Looking up the words
/// of a line finds what the expression matches, many times faster.
class WordSet {
public:
    /// Nothing unless the pattern is "\b(?:WORD|WORD|...)\b", with or without "?:", and each word of ASCII letters,
    /// digits and underscores.
    static std::optional<WordSet> ofPattern(QStringView pattern);

    bool contains(QStringView word) const;

private:
    struct Hash : std::hash<std::u16string_view> {
        using is_transparent = void;
    };

    void insert(QStringView word);

    std::array<std::uint32_t, 128> lengths{}; ///< by first character: which lengths there are
    std::unordered_set<std::u16string, Hash, std::equal_to<>> words{};
};

} // namespace kestor

#pragma once

#include <QStringView>

#include <optional>
#include <vector>

namespace kestor {

/// The characters that a bracket pair of a glob stands for: single ones and ranges, or all others when negated.
class CharacterSet {
public:
    /// Reads the text between the brackets. Only a leading "!" negates. Nothing for a text that is no plain set:
    /// without characters, with a range that runs backwards, or with the operators and classes of a regular
    /// expression's set (a nested "[", "--", "&&", ":name:").
    static std::optional<CharacterSet> fromBracketBody(QStringView body);

    bool contains(char32_t character) const;

private:
    struct Range {
        char32_t first = 0;
        char32_t last = 0;
    };

    std::vector<Range> ranges;
    bool negated = false;
};

} // namespace kestor

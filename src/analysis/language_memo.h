#pragma once

#include "analysis/language_distribution.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kestor {

/// LanguageDistributionAnalyzer::languageDefinition() for many files: each extension is looked up once. One thread.
class LanguageMemo {
public:
    explicit LanguageMemo(const CustomLanguages &rules) : custom(rules) {}

    /// The position in languages() of the language of a file name, encoded as the system has it.
    std::optional<std::size_t> positionOf(std::string_view fileName);
    /// Every definition found so far.
    const std::vector<LanguageDefinition> &languages() const { return found; }

private:
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    std::optional<std::size_t> lookedUp(std::string_view fileName);

    const CustomLanguages custom;
    std::vector<LanguageDefinition> found;
    std::unordered_map<std::string, std::optional<std::size_t>, Hash, std::equal_to<>> known;
};

} // namespace kestor

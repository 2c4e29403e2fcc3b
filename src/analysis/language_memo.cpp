#include "analysis/language_memo.h"

#include "analysis/language_tables.h"

#include <QFile>

#include <algorithm>

namespace kestor {

namespace {

/// Numbered files ("core.4711") would make the memo as large as the tree.
constexpr std::size_t mostExtensions = 4096;

/// What decides about the language of a name: all of it or its extension; "" for names that can have none.
std::string_view decidingPart(std::string_view fileName) {
    return isDefaultFileName(fileName) ? fileName : dottedExtension(fileName);
}

} // namespace

std::optional<std::size_t> LanguageMemo::positionOf(std::string_view fileName) {
    const std::string_view key = decidingPart(fileName);
    if (key.empty())
        return std::nullopt;
    if (const auto entry = known.find(key); entry != known.end())
        return entry->second;
    const std::optional<std::size_t> position = lookedUp(fileName);
    if (known.size() < mostExtensions)
        known.emplace(key, position);
    return position;
}

std::optional<std::size_t> LanguageMemo::lookedUp(std::string_view fileName) {
    const QString name = QFile::decodeName(QByteArray(fileName.data(), static_cast<qsizetype>(fileName.size())));
    const std::optional<LanguageDefinition> language = LanguageDistributionAnalyzer::languageDefinition(name, custom);
    if (!language)
        return std::nullopt;
    const auto position = std::ranges::find(found, *language) - found.begin();
    if (position == std::ssize(found))
        found.push_back(*language);
    return static_cast<std::size_t>(position);
}

} // namespace kestor

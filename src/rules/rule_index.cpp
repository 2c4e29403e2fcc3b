#include "rules/rule_index.h"

#include <QVarLengthArray>

#include <algorithm>

namespace kestor {

namespace {

/// A hash that grows character by character (FNV-1a), so one pass over a path gives those of all its parts.
class GrowingHash {
public:
    explicit GrowingHash(std::uint64_t seed) : value(seed) {}

    void add(char16_t character) { value = (value ^ character) * 0x100000001B3U; }
    void add(QStringView text) {
        for (const QChar character : text)
            add(character.unicode());
    }

    std::uint64_t value;
};

constexpr std::uint64_t nameSeed = 0xCBF29CE484222325U;
constexpr std::uint64_t extensionSeed = 0x9AE16A3B2F90404FU;
constexpr std::uint64_t folderSeed = 0xC3A5C85C97CB3127U;

std::uint64_t hashOf(QStringView text, std::uint64_t seed) {
    GrowingHash hash(seed);
    hash.add(text);
    return hash.value;
}

/// The bit of a character; none for the null character.
std::uint64_t bitOf(QChar character) {
    return character.isNull() ? 0 : std::uint64_t(1) << (character.unicode() % 64);
}

} // namespace

/// What a path offers to the index.
struct RuleIndex::PathKeys {
    explicit PathKeys(QStringView path);

    QVarLengthArray<std::uint64_t, 32> folders; ///< the root and every folder on the way
    QVarLengthArray<std::uint64_t, 64> pieces;  ///< names and extensions
    std::uint64_t firstCharacters = 0;          ///< the bits of those that begin a piece
    std::uint64_t lastCharacters = 0;           ///< the bits of those that end a piece
    bool hasLineBreak = false;                  ///< the pieces tell nothing
};

RuleIndex::PathKeys::PathKeys(QStringView path) {
    GrowingHash folder(folderSeed);
    GrowingHash name(nameSeed);
    GrowingHash extension(extensionSeed);
    bool hasExtension = false;
    const auto endPiece = [&](qsizetype end) {
        pieces.append(name.value);
        if (hasExtension)
            pieces.append(extension.value);
        lastCharacters |= bitOf(path[end - 1]);
        name = GrowingHash(nameSeed);
        hasExtension = false;
    };
    folders.append(folder.value);
    firstCharacters = bitOf(path.front());
    for (qsizetype i = 0; i < path.size(); ++i) {
        const char16_t unit = path[i].unicode();
        if (unit == u'/') {
            endPiece(i);
            folders.append(folder.value);
            firstCharacters |= bitOf(path[i + 1]);
        } else {
            if (unit == u'.') {
                extension = GrowingHash(extensionSeed);
                hasExtension = true;
            }
            name.add(unit);
            extension.add(unit);
        }
        folder.add(unit);
        hasLineBreak = hasLineBreak || isLineBreak(unit);
    }
    endPiece(path.size());
}

void RuleIndex::append(IgnoreRule rule) {
    const qsizetype position = rules.size();
    Folder &folder = folders[hashOf(rule.basePath, folderSeed)];
    const GlobPiece piece = rule.requiredPiece();
    switch (piece.kind) {
    case GlobPiece::Kind::anything:
        folder.loose.push_back({position, bitOf(rule.requiredFirst()), bitOf(rule.requiredLast())});
        break;
    case GlobPiece::Kind::extension:
        folder.byPiece[hashOf(piece.text, extensionSeed)].push_back(position);
        break;
    case GlobPiece::Kind::name:
        folder.byPiece[hashOf(piece.text, nameSeed)].push_back(position);
        break;
    }
    if (rule.isNegated)
        negated.push_back(position);
    rules.append(std::move(rule));
}

/// One path on its way through the index. Only rules after the last match found so far are tested.
struct RuleIndex::Search {
    void among(const Folder &folder) {
        for (auto rule = folder.loose.rbegin(); rule != folder.loose.rend() && rule->position > last; ++rule) {
            if ((rule->first & ~keys.firstCharacters) == 0 && (rule->last & ~keys.lastCharacters) == 0)
                test(rule->position);
        }
        for (const std::uint64_t key : keys.pieces) {
            const auto found = folder.byPiece.find(key);
            if (found == folder.byPiece.end())
                continue;
            const Positions &positions = found->second;
            for (auto position = positions.rbegin(); position != positions.rend() && *position > last; ++position)
                test(*position);
        }
    }

    void test(qsizetype position) {
        if (rules[position].matches(path, isDirectory))
            last = position;
    }

    const QList<IgnoreRule> &rules;
    const PathKeys &keys;
    QStringView path;
    bool isDirectory = false;
    qsizetype last = -1;
};

const IgnoreRule *RuleIndex::lastMatchOfAll(QStringView path, bool isDirectory) const {
    const auto match = std::find_if(rules.rbegin(), rules.rend(),
                                    [&](const IgnoreRule &rule) { return rule.matches(path, isDirectory); });
    return match == rules.rend() ? nullptr : &*match;
}

const IgnoreRule *RuleIndex::lastMatch(QStringView path, bool isDirectory) const {
    const PathKeys keys(path);
    if (keys.hasLineBreak)
        return lastMatchOfAll(path, isDirectory);
    Search search{rules, keys, path, isDirectory};
    for (const std::uint64_t key : keys.folders) {
        const auto folder = folders.find(key);
        if (folder != folders.end())
            search.among(folder->second);
    }
    return search.last < 0 ? nullptr : &rules[search.last];
}

bool RuleIndex::hasIncludedDescendant(QStringView directory) const {
    return std::any_of(negated.begin(), negated.end(),
                       [&](qsizetype position) { return rules[position].canMatchDescendant(directory); });
}

} // namespace kestor

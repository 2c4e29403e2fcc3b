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

/// The bit of a character, or of two that follow each other.
std::uint64_t bitOf(char16_t first, char16_t second = 0) {
    return std::uint64_t(1) << ((first + 37U * second) % 64);
}

/// The bits of a piece's first character and of its first two.
std::uint64_t beginBits(QStringView piece) {
    const std::uint64_t one = piece.isEmpty() ? 0 : bitOf(piece.front().unicode());
    return piece.size() < 2 ? one : one | bitOf(piece[0].unicode(), piece[1].unicode());
}

/// The bits of a piece's last character and of its last two.
std::uint64_t endBits(QStringView piece) {
    const std::uint64_t one = piece.isEmpty() ? 0 : bitOf(piece.back().unicode());
    return piece.size() < 2 ? one : one | bitOf(piece.back().unicode(), piece.chopped(1).back().unicode());
}

} // namespace

/// What a path offers to the index.
struct RuleIndex::PathKeys {
    explicit PathKeys(QStringView path);

    QVarLengthArray<std::uint64_t, 32> folders; ///< the root and every folder on the way
    QVarLengthArray<std::uint64_t, 64> pieces;  ///< names and extensions
    std::uint64_t begins = 0;                   ///< the bits of how pieces begin
    std::uint64_t ends = 0;                     ///< the bits of how they end
    bool hasLineBreak = false;                  ///< the pieces tell nothing
};

RuleIndex::PathKeys::PathKeys(QStringView path) {
    GrowingHash folder(folderSeed);
    GrowingHash name(nameSeed);
    GrowingHash extension(extensionSeed);
    bool hasExtension = false;
    qsizetype begin = 0;
    const auto endPiece = [&](qsizetype end) {
        const QStringView piece = path.sliced(begin, end - begin);
        begins |= beginBits(piece);
        ends |= endBits(piece);
        begin = end + 1;
        pieces.append(name.value);
        if (hasExtension)
            pieces.append(extension.value);
        name = GrowingHash(nameSeed);
        hasExtension = false;
    };
    folders.append(folder.value);
    for (qsizetype i = 0; i < path.size(); ++i) {
        const char16_t unit = path[i].unicode();
        if (unit == u'/') {
            endPiece(i);
            folders.append(folder.value);
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
        folder.loose.push_back({position, beginBits(rule.requiredBegin()), endBits(rule.requiredEnd())});
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
            if ((rule->begin & ~keys.begins) == 0 && (rule->end & ~keys.ends) == 0)
                test(rule->position);
        }
        for (const std::uint64_t key : keys.pieces) {
            const Positions *positions = folder.byPiece.find(key);
            if (!positions)
                continue;
            for (auto position = positions->rbegin(); position != positions->rend() && *position > last; ++position)
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
        if (const Folder *folder = folders.find(key))
            search.among(*folder);
    }
    return search.last < 0 ? nullptr : &rules[search.last];
}

bool RuleIndex::hasIncludedDescendant(QStringView directory) const {
    return std::any_of(negated.begin(), negated.end(),
                       [&](qsizetype position) { return rules[position].canMatchDescendant(directory); });
}

} // namespace kestor

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

/// What a path offers to the index.
struct PathKeys {
    explicit PathKeys(QStringView path);

    QVarLengthArray<std::uint64_t, 32> folders; ///< the root and every folder on the way
    QVarLengthArray<std::uint64_t, 64> pieces;  ///< names and extensions
    bool hasLineBreak = false;                  ///< the pieces tell nothing
};

PathKeys::PathKeys(QStringView path) {
    GrowingHash folder(folderSeed);
    GrowingHash name(nameSeed);
    GrowingHash extension(extensionSeed);
    bool hasExtension = false;
    const auto endPiece = [&] {
        pieces.append(name.value);
        if (hasExtension)
            pieces.append(extension.value);
        name = GrowingHash(nameSeed);
        hasExtension = false;
    };
    folders.append(folder.value);
    for (const QChar character : path) {
        const char16_t unit = character.unicode();
        if (unit == u'/') {
            endPiece();
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
    endPiece();
}

} // namespace

void RuleIndex::append(IgnoreRule rule) {
    const qsizetype position = rules.size();
    Folder &folder = folders[hashOf(rule.basePath, folderSeed)];
    const GlobPiece piece = rule.requiredPiece();
    switch (piece.kind) {
    case GlobPiece::Kind::anything:
        folder.always.push_back(position);
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

/// The highest of the positions above `after` whose rule matches, else `after`.
qsizetype RuleIndex::lastMatchAmong(const Positions &positions, qsizetype after, QStringView path,
                                    bool isDirectory) const {
    for (auto position = positions.rbegin(); position != positions.rend() && *position > after; ++position) {
        if (rules[*position].matches(path, isDirectory))
            return *position;
    }
    return after;
}

const IgnoreRule *RuleIndex::lastMatchOfAll(QStringView path, bool isDirectory) const {
    const auto match = std::find_if(rules.rbegin(), rules.rend(),
                                    [&](const IgnoreRule &rule) { return rule.matches(path, isDirectory); });
    return match == rules.rend() ? nullptr : &*match;
}

const IgnoreRule *RuleIndex::lastMatch(QStringView path, bool isDirectory) const {
    const PathKeys keys(path);
    if (keys.hasLineBreak)
        return lastMatchOfAll(path, isDirectory);
    qsizetype last = -1;
    for (const std::uint64_t folderKey : keys.folders) {
        const auto folder = folders.find(folderKey);
        if (folder == folders.end())
            continue;
        last = lastMatchAmong(folder->second.always, last, path, isDirectory);
        for (const std::uint64_t pieceKey : keys.pieces) {
            const auto positions = folder->second.byPiece.find(pieceKey);
            if (positions != folder->second.byPiece.end())
                last = lastMatchAmong(positions->second, last, path, isDirectory);
        }
    }
    return last < 0 ? nullptr : &rules[last];
}

bool RuleIndex::hasIncludedDescendant(QStringView directory) const {
    return std::any_of(negated.begin(), negated.end(),
                       [&](qsizetype position) { return rules[position].canMatchDescendant(directory); });
}

} // namespace kestor

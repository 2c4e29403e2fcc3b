#pragma once

#include "rules/ignore_rule.h"

#include <QList>
#include <QStringView>

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace kestor {

/// Finds the last rule that matches a path with few tests instead of one per rule: a rule is tested only on paths below
/// its own folder that hold the piece it requires. Rules are added in the order in which they decide.
class RuleIndex {
public:
    void append(IgnoreRule rule);

    const QList<IgnoreRule> &list() const { return rules; }
    /// The last rule that matches the normalised path; null when none does. Valid until the next append().
    const IgnoreRule *lastMatch(QStringView path, bool isDirectory) const;
    bool hasNegatedRule() const { return !negated.empty(); }
    /// Whether a negated rule could bring back something inside the normalised folder.
    bool hasIncludedDescendant(QStringView directory) const;

private:
    using Positions = std::vector<qsizetype>; ///< in `rules`, ascending

    /// A rule that requires no whole piece. The bits stand for characters, several for one bit: a path that lacks one
    /// among those with which its pieces begin or end cannot match.
    struct LooseRule {
        qsizetype position = 0;
        std::uint64_t first = 0;
        std::uint64_t last = 0;
    };

    /// The rules of one folder's ignore files. Texts are kept as hashes: a collision costs a test and changes no
    /// result.
    struct Folder {
        std::vector<LooseRule> loose;
        std::unordered_map<std::uint64_t, Positions> byPiece;
    };

    struct PathKeys;
    struct Search;

    const IgnoreRule *lastMatchOfAll(QStringView path, bool isDirectory) const;

    QList<IgnoreRule> rules;
    std::unordered_map<std::uint64_t, Folder> folders;
    Positions negated;
};

} // namespace kestor

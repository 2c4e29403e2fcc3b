#pragma once

#include "rules/ignore_rule.h"

#include <QList>
#include <QStringView>

#include <array>
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

    /// Values by the hash of a text; a collision costs a test and changes no result. Most searches find nothing, which
    /// a few bits tell at once.
    template <typename Value>
    class Table {
    public:
        Value &operator[](std::uint64_t key) {
            used[wordOf(key)] |= bitOf(key);
            return values[key];
        }
        const Value *find(std::uint64_t key) const {
            if ((used[wordOf(key)] & bitOf(key)) == 0)
                return nullptr;
            const auto found = values.find(key);
            return found == values.end() ? nullptr : &found->second;
        }

    private:
        static std::size_t wordOf(std::uint64_t key) { return key / 64 % 64; }
        static std::uint64_t bitOf(std::uint64_t key) { return std::uint64_t(1) << (key % 64); }

        std::array<std::uint64_t, 64> used{};
        std::unordered_map<std::uint64_t, Value> values;
    };

    /// A rule that requires no whole piece. The bits stand for characters, several for one bit: a path that lacks one
    /// among those with which its pieces begin or end cannot match.
    struct LooseRule {
        qsizetype position = 0;
        std::uint64_t begin = 0;
        std::uint64_t end = 0;
    };

    /// The rules of one folder's ignore files.
    struct Folder {
        std::vector<LooseRule> loose;
        Table<Positions> byPiece;
    };

    struct PathKeys;
    struct Search;

    const IgnoreRule *lastMatchOfAll(QStringView path, bool isDirectory) const;

    QList<IgnoreRule> rules;
    Table<Folder> folders;
    Positions negated;
};

} // namespace kestor

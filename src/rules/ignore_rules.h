#pragma once

#include "rules/rule_index.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <memory>
#include <optional>

namespace kestor {

/// The patterns of the ignore files (".gitignore", then ".kestorignore") that can affect a set of paths, in the order
/// in which they were read. The last rule that matches decides. A value, cheap to copy; any thread.
class IgnoreRules {
public:
    IgnoreRules() : IgnoreRules(RuleIndex()) {}
    explicit IgnoreRules(const QList<IgnoreRule> &rules);
    explicit IgnoreRules(RuleIndex rules) : index(std::make_shared<const RuleIndex>(std::move(rules))) {}

    /// Reads the ignore files of the folders on the way to `candidatePaths` (root-relative) below `root` (absolute).
    /// Unreadable and non-UTF-8 files are skipped.
    static IgnoreRules load(const QString &root, const QStringList &candidatePaths);

    /// True: ignored. False: brought back by a negated rule. Nothing: no rule matched, or the path is the root.
    std::optional<bool> decision(QStringView path, bool isDirectory) const;
    /// Whether a negated rule could bring back something inside the folder.
    bool hasIncludedDescendant(QStringView directory) const;

    static QString normalizePath(QStringView path);

    const QList<IgnoreRule> &list() const { return index->list(); }

private:
    std::shared_ptr<const RuleIndex> index;
};

} // namespace kestor

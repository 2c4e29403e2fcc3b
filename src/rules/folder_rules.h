#pragma once

#include "rules/ignore_rule.h"
#include "rules/open_directory.h"
#include "rules/rule_index.h"

#include <QList>
#include <QString>
#include <QStringView>

#include <memory>

namespace kestor {

/// The rules of the ignore files in an open directory, which is `folder` below the root ("" for the root), in the order
/// in which they decide. Files that cannot be read or are not UTF-8 give none. Any thread.
QList<IgnoreRule> readIgnoreFiles(const Directory &directory, const QString &folder);

/// The rules of the ignore files on the way to a folder, for walks that enter one folder after another: each adds its
/// own to those of the folder above, which are shared and not copied. A value; any thread.
class FolderRules {
public:
    /// These rules and, deciding over them, those of a folder below.
    FolderRules with(const QList<IgnoreRule> &rules) const;

    bool isEmpty() const { return !deepest; }
    /// Whether the rules ignore the normalised path; it must lie below every folder whose rules were added.
    bool ignores(QStringView path, bool isDirectory) const;

private:
    struct Level {
        RuleIndex rules{};
        std::shared_ptr<const Level> above{};
    };
    std::shared_ptr<const Level> deepest{};
};

} // namespace kestor

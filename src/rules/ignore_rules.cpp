#include "rules/ignore_rules.h"

#include "rules/folder_reader.h"
#include "rules/rule_loading.h"
#include "rules/working_copy_paths.h"

namespace kestor {

IgnoreRules::IgnoreRules(const QList<IgnoreRule> &rules) {
    RuleIndex ordered;
    for (const IgnoreRule &rule : rules)
        ordered.append(rule);
    index = std::make_shared<const RuleIndex>(std::move(ordered));
}

IgnoreRules IgnoreRules::load(const QString &root, const QStringList &candidatePaths) {
    FolderReader reader(root);
    FolderSet folders;
    for (const QString &candidate : candidatePaths) {
        const QString path = normalizedPath(candidate);
        folders.insertParentsOf(path);
        if (workingCopyPathIsDirectory(path, root))
            folders.insert(path);
    }
    return loadIgnoreRules(reader, folders);
}

std::optional<bool> IgnoreRules::decision(QStringView path, bool isDirectory) const {
    if (!isNormalizedPath(path))
        return decision(normalizedPath(path), isDirectory);
    if (path.isEmpty() || list().isEmpty())
        return std::nullopt;
    const IgnoreRule *rule = index->lastMatch(path, isDirectory);
    return rule ? std::optional(!rule->isNegated) : std::nullopt;
}

bool IgnoreRules::hasIncludedDescendant(QStringView directory) const {
    const QString folder = normalizedPath(directory);
    return folder.isEmpty() ? index->hasNegatedRule() : index->hasIncludedDescendant(folder);
}

QString IgnoreRules::normalizePath(QStringView path) {
    return normalizedPath(path);
}

} // namespace kestor

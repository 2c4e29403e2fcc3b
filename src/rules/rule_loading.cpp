#include "rules/rule_loading.h"

namespace kestor {

namespace {

bool isClosed(const QString &folder, const RuleIndex &rules) {
    if (folder.isEmpty())
        return false;
    const IgnoreRule *rule = rules.lastMatch(folder, true);
    return rule && !rule->isNegated && !rules.hasIncludedDescendant(folder);
}

} // namespace

IgnoreRules loadIgnoreRules(FolderReader &reader, const FolderSet &folders) {
    RuleIndex rules;
    for (const QString &folder : folders.sorted()) {
        if (isClosed(folder, rules))
            continue;
        for (const IgnoreRule &rule : reader.ignoreFileRules(folder))
            rules.append(rule);
    }
    return IgnoreRules(std::move(rules));
}

} // namespace kestor

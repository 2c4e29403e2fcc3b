#pragma once

#include "rules/ignore_rules.h"

#include <QStringList>

namespace kestor {

/// The rules of an ignore file in the root that has these lines.
inline IgnoreRules rulesOf(const QStringList &lines) {
    QList<IgnoreRule> rules;
    for (const QString &line : lines)
        rules.append(*IgnoreRule::fromLine(line, u""));
    return IgnoreRules(rules);
}

} // namespace kestor

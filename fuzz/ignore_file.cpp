#include "rules/ignore_file.h"

#include "fuzz/input_text.h"
#include "fuzz/property.h"
#include "rules/ignore_rules.h"

#include <QByteArrayList>
#include <QStringList>

namespace kestor::fuzz {

namespace {

IgnoreRules readBack(const QByteArray &content) {
    QList<IgnoreRule> rules;
    const QStringList lines = QString::fromUtf8(content).split(u'\n');
    for (const QString &line : lines) {
        if (const std::optional<IgnoreRule> rule = IgnoreRule::fromLine(line, QStringView()))
            rules.append(*rule);
    }
    return IgnoreRules(rules);
}

void checkRule(const QString &path, PathType type) {
    const bool isFolder = type == PathType::directory;
    const QString rule = ignoreRuleFor(path, type);
    const IgnoreRules ignoring = readBack(rule.toUtf8());
    require(ignoring.decision(path, isFolder) == true, "a path's own rule ignores it");
    const IgnoreRules including = readBack((rule + u'\n' + includeRuleFor(path, type)).toUtf8());
    require(including.decision(path, isFolder) == false, "its include rule brings it back");
    // A rule cannot hold a line break and has a wildcard instead.
    if (path.contains(u'\r'))
        return;
    require(!ignoring.decision(path + u'x', isFolder) && !ignoring.decision(u'x' + path, isFolder),
            "it ignores no neighbour");
    require(!ignoring.decision(path + QStringLiteral("y/") + path, isFolder),
            "it ignores nothing of that name elsewhere");
}

} // namespace

/// The lines of an ignore file; each is the name of a path to add as well.
void check(QByteArrayView input) {
    const QByteArray content = input.toByteArray();
    const QStringList lines = exactText(input).split(u'\n');
    QStringList rules;
    for (const QString &line : lines) {
        const QString path = IgnoreRules::normalizePath(line);
        if (path.isEmpty())
            continue;
        checkRule(path, PathType::file);
        checkRule(path, PathType::directory);
        rules.append(ignoreRuleFor(path, PathType::file));
    }
    const QByteArray added = withRules(content, rules);
    require(added.startsWith(content), "what was in the file stays untouched");
    require(withRules(added, rules) == added, "rules are added once");
    if (!content.contains('\r')) {
        const QByteArrayList addedLines = added.split('\n');
        for (const QString &rule : rules)
            require(addedLines.contains(rule.toUtf8()), "every rule has a line of its own");
    }
}

} // namespace kestor::fuzz

#include "rules/ignore_rules.h"

#include "fuzz/input_text.h"
#include "fuzz/plain_rule.h"
#include "fuzz/property.h"

#include <chrono>
#include <ctime>

namespace kestor::fuzz {

namespace {

using Seconds = std::chrono::duration<double>;

/// Processor time of this thread, which other programs do not lengthen.
Seconds spent() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return Seconds(static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9);
}

/// All rules of one folder's ignore file, read either way.
struct Rules {
    QList<IgnoreRule> compiled{};
    QList<PlainRule> plain{};

    void append(const QString &line, const QString &folder) {
        const std::optional<IgnoreRule> rule = IgnoreRule::fromLine(line, folder);
        const std::optional<PlainRule> wanted = PlainRule::fromLine(line, folder);
        require(rule.has_value() == wanted.has_value(), "the lines with patterns are those of the plain rules");
        if (!rule)
            return;
        require(rule->pattern == wanted->pattern && rule->basePath == wanted->basePath &&
                    rule->isNegated == wanted->isNegated && rule->directoryOnly == wanted->directoryOnly &&
                    rule->anchored == wanted->anchored && rule->hasSlash == wanted->pattern.contains(u'/'),
                "rules are read as worded");
        compiled.append(*rule);
        plain.append(*wanted);
    }
};

std::optional<bool> plainDecision(const QList<PlainRule> &rules, const QString &path, bool isDirectory) {
    std::optional<bool> decision;
    for (const PlainRule &rule : rules) {
        if (!path.isEmpty() && rule.matches(path, isDirectory))
            decision = !rule.isNegated;
    }
    return decision;
}

void checkPath(const IgnoreRules &rules, const QList<PlainRule> &plain, const QString &line) {
    const bool isDirectory = line.endsWith(u'/');
    const QString path = IgnoreRules::normalizePath(line);
    require(path == IgnoreRules::normalizePath(path), "a normalised path stays as it is");
    const Seconds begin = spent();
    const std::optional<bool> decision = rules.decision(line, isDirectory);
    const bool reaches = rules.hasIncludedDescendant(path);
    require(spent() - begin < Seconds(0.5), "one path takes little time, whatever the patterns");
    require(decision == plainDecision(plain, path, isDirectory), "the last rule that matches decides");
    const bool wanted = std::any_of(plain.begin(), plain.end(), [&path](const PlainRule &rule) {
        return rule.isNegated && (path.isEmpty() || rule.canMatchDescendant(path));
    });
    require(reaches == wanted, "negated rules reach where the plain ones do");
}

} // namespace

/// Lines of paths, those of folders with a slash at their end, up to an empty line; then rules. A line "@folder" says
/// where the ignore file of the rules below lies.
void check(QByteArrayView input) {
    const QString text = anyText(input);
    const qsizetype gap = text.indexOf(QStringLiteral("\n\n"));
    const QStringList paths = text.left(gap).split(u'\n');
    const QStringList lines = gap < 0 ? QStringList() : text.mid(gap + 2).split(u'\n');
    Rules rules;
    QString folder;
    for (const QString &line : lines) {
        if (line.startsWith(u'@'))
            folder = line.mid(1);
        else
            rules.append(line, folder);
    }
    const IgnoreRules indexed(rules.compiled);
    for (const QString &path : paths)
        checkPath(indexed, rules.plain, path);
}

} // namespace kestor::fuzz

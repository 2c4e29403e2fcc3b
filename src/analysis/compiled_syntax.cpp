#include "analysis/compiled_syntax.h"

#include <algorithm>
#include <functional>
#include <tuple>

namespace kestor {

namespace {

// Sound expressions take up to five steps a character. A step costs some five nanoseconds.
constexpr qsizetype stepsPerRule = 10'000;
constexpr qsizetype stepsPerCharacter = 6;

/// Expressions need valid UTF-16; what is not keeps its place and matches nothing of itself.
QString withoutLoneSurrogates(QStringView text) {
    QString result = text.toString();
    for (qsizetype i = 0; i < result.size(); ++i) {
        const bool isPair = result[i].isHighSurrogate() && i + 1 < result.size() && result[i + 1].isLowSurrogate();
        if (isPair)
            ++i;
        else if (result[i].isSurrogate())
            result[i] = QChar::ReplacementCharacter;
    }
    return result;
}

} // namespace

CompiledSyntax::CompiledSyntax(const SyntaxDefinition &definition) {
    for (const SyntaxHighlightRule &rule : definition.rules) {
        if (std::optional<WordSet> set = WordSet::ofPattern(rule.pattern))
            rules.push_back({*std::move(set), rule.colorHex, rule.priority});
        else if (std::optional<Expression> expression = Expression::compiled(rule.pattern))
            rules.push_back({*std::move(expression), rule.colorHex, rule.priority});
    }
    std::ranges::stable_sort(rules, std::greater<>(), &Rule::priority);
}

QList<SyntaxSpan> CompiledSyntax::collectedMatches(QStringView line) {
    if (!line.isValidUtf16())
        return collectedMatches(withoutLoneSurrogates(line));
    findCandidates(line);
    QList<SyntaxSpan> spans;
    taken.assign(static_cast<std::size_t>(line.size()), 0);
    for (const Candidate &candidate : candidates) {
        const TextRange &range = candidate.range;
        if (isTaken(range))
            continue;
        std::fill_n(taken.begin() + range.start, range.length, char(1));
        spans.append({range.start, range.length, rules[candidate.rule].colorHex});
    }
    std::ranges::sort(spans, {}, &SyntaxSpan::start);
    return spans;
}

void CompiledSyntax::findCandidates(QStringView line) {
    candidates.clear();
    findWords(line, words);
    StepBudget lineBudget{2 * (stepsPerRule + stepsPerCharacter * line.size())};
    for (std::size_t first = 0; first < rules.size();) {
        const auto groupBegin = static_cast<std::ptrdiff_t>(candidates.size());
        std::size_t rule = first;
        for (; rule < rules.size() && rules[rule].priority == rules[first].priority; ++rule)
            findMatches(rule, line, lineBudget);
        if (rule - first > 1) {
            std::stable_sort(candidates.begin() + groupBegin, candidates.end(), [](const auto &a, const auto &b) {
                return std::tuple(a.range.start, -a.range.length) < std::tuple(b.range.start, -b.range.length);
            });
        }
        first = rule;
    }
}

void CompiledSyntax::findMatches(std::size_t rule, QStringView line, StepBudget &lineBudget) {
    if (const WordSet *set = std::get_if<WordSet>(&rules[rule].finder)) {
        for (const TextRange &word : words) {
            if (set->contains(line.sliced(word.start, word.length)))
                candidates.push_back({word, rule});
        }
        return;
    }
    const qsizetype granted = std::min(stepsPerRule + stepsPerCharacter * line.size(), lineBudget.left);
    if (granted == 0)
        return;
    StepBudget ruleBudget{granted};
    std::get<Expression>(rules[rule].finder).findAll(line, space, ruleBudget, found);
    lineBudget.left -= granted - ruleBudget.left;
    for (const TextRange &range : found)
        candidates.push_back({range, rule});
}

bool CompiledSyntax::isTaken(const TextRange &range) const {
    const auto begin = taken.begin() + range.start;
    return std::find(begin, begin + range.length, char(1)) != begin + range.length;
}

} // namespace kestor

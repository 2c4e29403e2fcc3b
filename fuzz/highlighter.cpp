#include "analysis/compiled_syntax.h"
#include "analysis/syntax_highlighter.h"
#include "fuzz/input_text.h"
#include "fuzz/property.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <ctime>
#include <memory>
#include <tuple>
#include <vector>

namespace kestor::fuzz {

namespace {

/// One name for each built-in definition.
constexpr std::array<QStringView, 11> languages{u"c++", u"python", u"html",  u"css",        u"json",   u"markdown",
                                                u"sql", u"lua",    u"shell", u"dockerfile", u"clojure"};

struct Language {
    SyntaxDefinition definition{};
    std::unique_ptr<CompiledSyntax> compiled{};
    std::vector<QRegularExpression> expressions{};
};

const std::vector<Language> &builtIns() {
    static const std::vector<Language> all = [] {
        std::vector<Language> result;
        for (const QStringView name : languages) {
            Language language{*SyntaxHighlighter::defaultDefinition(name)};
            language.compiled = std::make_unique<CompiledSyntax>(language.definition);
            for (const SyntaxHighlightRule &rule : std::as_const(language.definition.rules)) {
                // Line breaks of every kind, as lines end at all of them.
                language.expressions.emplace_back(QStringLiteral("(*ANY)") + rule.pattern,
                                                  QRegularExpression::UseUnicodePropertiesOption);
            }
            result.push_back(std::move(language));
        }
        return result;
    }();
    return all;
}

struct Match {
    int priority = 0;
    qsizetype start = 0;
    qsizetype length = 0;
    QString colorHex{};
};

/// All matches of all rules, the one that wins first.
std::vector<Match> plainMatches(const Language &language, const QString &line) {
    std::vector<Match> matches;
    for (qsizetype rule = 0; rule < language.definition.rules.size(); ++rule) {
        const SyntaxHighlightRule &each = language.definition.rules[rule];
        auto found = language.expressions[static_cast<std::size_t>(rule)].globalMatch(line);
        while (found.hasNext()) {
            const QRegularExpressionMatch match = found.next();
            if (match.capturedLength() > 0)
                matches.push_back({each.priority, match.capturedStart(), match.capturedLength(), each.colorHex});
        }
    }
    std::stable_sort(matches.begin(), matches.end(), [](const Match &left, const Match &right) {
        return std::tuple(-left.priority, left.start, -left.length) <
               std::tuple(-right.priority, right.start, -right.length);
    });
    return matches;
}

QList<SyntaxSpan> plainSpans(const Language &language, const QString &line) {
    QList<SyntaxSpan> spans;
    for (const Match &match : plainMatches(language, line)) {
        const bool overlaps = std::any_of(spans.cbegin(), spans.cend(), [&match](const SyntaxSpan &span) {
            return match.start < span.start + span.length && span.start < match.start + match.length;
        });
        if (!overlaps)
            spans.append({match.start, match.length, match.colorHex});
    }
    std::sort(spans.begin(), spans.end(), [](const auto &left, const auto &right) { return left.start < right.start; });
    return spans;
}

void checkSpans(const QList<SyntaxSpan> &spans, const QString &line, const SyntaxDefinition &definition) {
    qsizetype end = 0;
    for (const SyntaxSpan &span : spans) {
        require(span.length > 0 && span.start >= end, "spans go from left to right, none empty or over another");
        end = span.start + span.length;
        require(end <= line.size(), "spans lie in the line");
        require(std::any_of(definition.rules.cbegin(), definition.rules.cend(),
                            [&span](const SyntaxHighlightRule &rule) { return rule.colorHex == span.colorHex; }),
                "spans have the color of a rule");
    }
}

/// Processor time of this thread in milliseconds, which other programs do not lengthen.
double spent() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return 1e3 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e6;
}

void checkBuiltIns(const QString &line) {
    // Within this length no rule reaches the bound of its cost.
    constexpr qsizetype longestCompared = 300;
    for (const Language &language : builtIns()) {
        const QList<SyntaxSpan> spans = language.compiled->collectedMatches(line);
        checkSpans(spans, line, language.definition);
        if (line.size() <= longestCompared && line.isValidUtf16())
            require(spans == plainSpans(language, line), "the spans are those of the plain expressions");
    }
}

SyntaxDefinition customDefinition(const QStringList &patterns) {
    SyntaxDefinition definition;
    for (const QString &pattern : patterns) {
        const int number = static_cast<int>(definition.rules.size());
        definition.rules.append({pattern, u'#' + QString::number(number), number % 3});
    }
    return definition;
}

} // namespace

/// A line of text; the lines below it are the patterns of a syntax file.
void check(QByteArrayView input) {
    const QString text = anyText(input);
    const QString line = text.section(u'\n', 0, 0);
    checkBuiltIns(line);
    const SyntaxDefinition definition = customDefinition(text.section(u'\n', 1).split(u'\n'));
    CompiledSyntax syntax(definition);
    const double begin = spent();
    const QList<SyntaxSpan> spans = syntax.collectedMatches(line);
    // Fifty times what is promised: all but the engine runs under sanitizers.
    require(spent() - begin < 100, "one line takes little time, whatever the patterns");
    checkSpans(spans, line, definition);
    require(spans == syntax.collectedMatches(line), "the same line has the same spans");
}

} // namespace kestor::fuzz

#include "../parsers/side_by_side.h"
#include "analysis/compiled_syntax.h"
#include "analysis/syntax_highlighter.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

/// C++ as people write it, 44 bytes to a line.
QString sourceText(int lines) {
    const std::array shapes{
        u"#include \"controller/app_state_%1.h\"\n"_s,
        u"\n"_s,
        u"/// The rows of page %1, in the order of the disk.\n"_s,
        u"static QList<Row> rowsOf%1(const QString &text, int n = 0) {\n"_s,
        u"    QList<Row> rows; // reserve(%1)\n"_s,
        u"    for (const QStringView line : QStringView(text).tokenize(u'\\n')) {\n"_s,
        u"        if (std::optional<Row> row = Row::fromLine(line, %1.5))\n"_s,
        u"            rows.append(*std::move(row)); /* kept */\n"_s,
        u"        else if (line.startsWith(u\"\\\"%1\\\" // no comment\"_s) && !rows.isEmpty())\n"_s,
        u"            return rows;\n"_s,
        u"    }\n"_s,
        u"    const int limit = static_cast<int>(rows.size()) * %1 + 4096;\n"_s,
        u"    return limit > 0 ? rows : QList<Row>();\n"_s,
        u"}\n"_s,
    };
    QString text;
    for (int i = 0; i < lines; ++i)
        text += shapes[static_cast<std::size_t>(i) % shapes.size()].contains(u'%')
                    ? shapes[static_cast<std::size_t>(i) % shapes.size()].arg(i)
                    : shapes[static_cast<std::size_t>(i) % shapes.size()];
    return text;
}

/// All matches of the same expressions by QRegularExpression, without resolving overlaps.
qsizetype plainMatches(const std::vector<QRegularExpression> &expressions, const std::vector<QStringView> &lines) {
    qsizetype matches = 0;
    for (const QRegularExpression &expression : expressions) {
        for (const QStringView line : lines) {
            for (auto match = expression.globalMatch(line); match.hasNext(); match.next())
                ++matches;
        }
    }
    return matches;
}

void BM_highlight(benchmark::State &state) {
    const QString text = sourceText(static_cast<int>(state.range(0)));
    std::vector<QStringView> lines;
    for (const QStringView line : QStringView(text).tokenize(u'\n'))
        lines.push_back(line);
    const SyntaxDefinition definition = *SyntaxHighlighter::defaultDefinition(u"C++");
    CompiledSyntax syntax(definition);
    std::vector<QRegularExpression> expressions;
    for (const SyntaxHighlightRule &rule : definition.rules)
        expressions.emplace_back(rule.pattern, QRegularExpression::UseUnicodePropertiesOption).optimize();
    double floor = 1e9;
    double best = 1e9;
    qsizetype spans = 0;
    for ([[maybe_unused]] auto _ : state) {
        floor = std::min(floor, secondsOf([&] { benchmark::DoNotOptimize(plainMatches(expressions, lines)); }));
        const double seconds = secondsOf([&] {
            for (const QStringView line : lines)
                spans += syntax.collectedMatches(line).size();
        });
        best = std::min(best, seconds);
        state.SetIterationTime(seconds);
    }
    const auto count = static_cast<double>(lines.size());
    state.counters["MB"] = static_cast<double>(text.size()) / 1e6;
    state.counters["spans"] = static_cast<double>(spans) / static_cast<double>(state.iterations());
    state.counters["plain_lines_per_s"] = count / floor;
    state.counters["lines_per_s"] = count / best;
    state.counters["best_ms"] = 1000 * best;
    state.counters["ratio"] = best / floor;
}

BENCHMARK(BM_highlight)
    ->Arg(50'000)
    ->Arg(100'000)
    ->Arg(200'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

/// A pattern of a user's file with the worst line for it.
struct Trap {
    const char *name = nullptr;
    QString pattern{};
    QString line{};
};

const std::array<Trap, 10> &traps() {
    static const std::array<Trap, 10> all{{
        {"nested repeats", u"(a+)+$"_s, QString(5000, u'a') + u'!'},
        {"alternatives alike", u"(a|aa)+$"_s, QString(5000, u'a') + u'!'},
        {"many repeats", u"[a-z]*[a-z]*[a-z]*[a-z]*;"_s, QString(5000, u'a') + u';' + QString(5000, u'a')},
        {"look-ahead", u"^(?=(.*a)*b)x"_s, u'x' + QString(5000, u'a')},
        {"recursion", u"((?R)?a)+b?"_s, QString(5000, u'a')},
        {"back reference", u"(.)(?!.*\\1)b"_s, QString(5000, u'a') + u'b'},
        {"long back reference", u"(?i)^(.+)\\1$"_s, QString(5001, u'a')},
        {"nowhere to begin", u"zz\\w+"_s, QString(20'000, u'a')},
        {"limit lifted", u"(*LIMIT_MATCH=4000000000)(*NO_JIT)(x+x+)+y"_s, QString(5000, u'x') + u"zy"_s},
        {"every start", u"\\w+\\s*\\(x"_s, QString(5000, u'a') + u"(x"_s},
    }};
    return all;
}

void BM_endlessBacktracking(benchmark::State &state) {
    const Trap &trap = traps()[static_cast<std::size_t>(state.range(0))];
    SyntaxDefinition definition;
    for (int i = 0; i < 6; ++i)
        definition.rules.append({trap.pattern, u"#000000"_s, i});
    CompiledSyntax syntax(definition);
    double worst = 0;
    for ([[maybe_unused]] auto _ : state) {
        const double seconds = secondsOf([&] { benchmark::DoNotOptimize(syntax.collectedMatches(trap.line)); });
        worst = std::max(worst, seconds);
        state.SetIterationTime(seconds);
    }
    state.SetLabel(trap.name);
    state.counters["worst_ms"] = 1000 * worst;
    state.counters["ratio"] = 1000 * worst / 2;
}
BENCHMARK(BM_endlessBacktracking)->DenseRange(0, 9)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(20);

} // namespace
} // namespace kestor

#include "../parsers/side_by_side.h"
#include "analysis/word_marks.h"

#include <QString>
#include <QStringList>

#include <array>
#include <benchmark/benchmark.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

constexpr int linesOfRun = 200;
/// Of which a screen shows the pairs of 60 lines.
constexpr int pairsInView = 30;

struct Run {
    QStringList removed{};
    QStringList added{};
};

/// Neighbours are much alike, as in tables and in code that is written again.
Run codeRun() {
    Run run;
    for (int i = 0; i < linesOfRun / 2; ++i) {
        run.removed.append(
            u"        settings.insert(\"option_%1\", Option{default%1, Kind::number, %2});"_s.arg(i).arg(i * 7));
        run.added.append(
            u"        settings.add(\"option_%1\", Option{fallback(%1), Kind::number, %2});"_s.arg(i).arg(i * 7));
    }
    return run;
}

/// As many characters, words in common and differences as are compared at all.
Run worstRun() {
    Run run;
    for (int i = 0; i < linesOfRun / 2; ++i) {
        QString line = u"%1 "_s.arg(i);
        for (int word = 0; word < 95; ++word)
            line += QChar(u'a' + word % 26) + QString::number(word) + u' ';
        run.removed.append(line);
        run.added.append(u"x"_s + line.sliced(line.size() / 2) + line.first(line.size() / 2));
    }
    return run;
}

std::vector<QStringView> views(const QStringList &lines) {
    return {lines.begin(), lines.end()};
}

void measure(benchmark::State &state, const Run &run) {
    const std::vector<QStringView> removed = views(run.removed);
    const std::vector<QStringView> added = views(run.added);
    double worst = 0;
    qsizetype paired = 0;
    for ([[maybe_unused]] auto _ : state) {
        const double seconds = secondsOf([&] {
            const std::vector<qsizetype> pairs = pairedLines(removed, added);
            paired = linesOfRun / 2 - std::count(pairs.begin(), pairs.end(), -1);
            for (std::size_t i = 0; i < pairsInView; ++i)
                benchmark::DoNotOptimize(wordMarks(removed[i], added[i]));
        });
        worst = std::max(worst, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["pairs"] = static_cast<double>(paired);
    state.counters["worst_ms"] = 1000 * worst;
    state.counters["ratio"] = 1000 * worst / 4;
}

void BM_wordMarksOfCode(benchmark::State &state) {
    measure(state, codeRun());
}
BENCHMARK(BM_wordMarksOfCode)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(20);

void BM_wordMarksAtWorst(benchmark::State &state) {
    measure(state, worstRun());
}
BENCHMARK(BM_wordMarksAtWorst)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(20);

} // namespace
} // namespace kestor

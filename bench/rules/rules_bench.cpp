#include "rules/ignore_rules.h"

#include <QStringList>

#include <array>
#include <benchmark/benchmark.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

/// As the ignore files of a large project have them: extensions, names, folders, paths and a few ways back.
IgnoreRules realisticRules(int count) {
    const std::array<QString, 12> shapes{u"*.x%1"_s,       u"cache%1/"_s, u"/dist%1"_s,    u"doc%1/*.txt"_s,
                                         u"**/gen%1/**"_s, u"Name%1"_s,   u"[a-z]*.t%1"_s, u"!keep%1.x%1"_s,
                                         u"lib%1*.so.?"_s, u"out%1/*"_s,  u"*~%1"_s,       u"src/**/tmp%1/*.o"_s};
    QList<IgnoreRule> rules;
    for (int i = 0; i < count; ++i) {
        const QString &line = shapes[static_cast<std::size_t>(i) % shapes.size()];
        rules.append(*IgnoreRule::fromLine(line.arg(i), u""));
    }
    return IgnoreRules(rules);
}

/// Distinct paths of three to six pieces, a few of which some rule matches.
QStringList distinctPaths(int count) {
    const std::array<QString, 8> folders{u"src"_s, u"include"_s, u"modules"_s, u"tests"_s,
                                         u"doc"_s, u"assets"_s,  u"gen4"_s,    u"internal"_s};
    const std::array<QString, 6> names{u"file_%1.cpp"_s, u"Widget%1.h"_s, u"page%1.html"_s,
                                       u"img-%1.png"_s,  u"readme%1"_s,   u"object%1.x0"_s};
    QStringList paths;
    paths.reserve(count);
    for (int i = 0; i < count; ++i) {
        const std::size_t n = static_cast<std::size_t>(i);
        QString path;
        for (std::size_t depth = 0; depth < 2 + n % 4; ++depth)
            path += folders[(n / (depth * 7 + 1) + depth) % folders.size()] + u'/';
        paths.append(path + names[n % names.size()].arg(i));
    }
    return paths;
}

void decidePaths(benchmark::State &state) {
    const IgnoreRules rules = realisticRules(static_cast<int>(state.range(0)));
    const QStringList paths = distinctPaths(1000000);
    qsizetype ignored = 0;
    while (state.KeepRunning()) {
        for (const QString &path : paths)
            ignored += rules.decision(path, false) == true ? 1 : 0;
    }
    benchmark::DoNotOptimize(ignored);
    state.counters["s_per_path"] = benchmark::Counter(static_cast<double>(paths.size() * state.iterations()),
                                                      benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(decidePaths)->Arg(30)->Arg(300)->Arg(3000)->Unit(benchmark::kMillisecond);

void compileRules(benchmark::State &state) {
    while (state.KeepRunning())
        benchmark::DoNotOptimize(realisticRules(300));
}
BENCHMARK(compileRules)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace kestor

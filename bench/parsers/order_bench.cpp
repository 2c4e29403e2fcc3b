#include "model/file_order.h"
#include "samples.h"
#include "side_by_side.h"

#include <random>

namespace kestor {
namespace {

QStringList shuffledPaths(int count) {
    QStringList paths;
    paths.reserve(count);
    for (int i = 0; i < count; ++i)
        paths.append(QString::fromUtf8(samplePath(i)));
    std::shuffle(paths.begin(), paths.end(), std::mt19937(1)); // NOLINT(bugprone-random-generator-seed,cert-msc*)
    return paths;
}

/// Against the same sort by plain UTF-16 units.
void compareWithPlainOrder(benchmark::State &state, const QStringList &paths) {
    qsizetype bytes = 0;
    for (const QString &path : paths)
        bytes += path.size();
    const auto plain = [&paths] {
        QStringList sorted = paths;
        std::stable_sort(sorted.begin(), sorted.end());
        benchmark::DoNotOptimize(sorted);
    };
    runSideBySide(state, bytes, plain, [&paths] { benchmark::DoNotOptimize(standardOrder(paths)); });
}

void BM_naturalSort(benchmark::State &state) {
    compareWithPlainOrder(state, shuffledPaths(static_cast<int>(state.range(0))));
}

BENCHMARK(BM_naturalSort)->Arg(100000)->Arg(200000)->Arg(400000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kestor

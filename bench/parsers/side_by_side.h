#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <limits>

namespace kestor {

template <typename Work>
double secondsOf(const Work &work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Runs `baseline` and `measured` in turn, so that both see the same machine, and reports the best time of each and
/// their ratio. `bytes` is the size of the input of either.
template <typename Baseline, typename Measured>
void runSideBySide(benchmark::State &state, qsizetype bytes, const Baseline &baseline, const Measured &measured) {
    double baselineBest = std::numeric_limits<double>::max();
    double measuredBest = baselineBest;
    for (auto _ : state) {
        baselineBest = std::min(baselineBest, secondsOf(baseline));
        const double seconds = secondsOf(measured);
        measuredBest = std::min(measuredBest, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["baseline_ms"] = 1000 * baselineBest;
    state.counters["best_ms"] = 1000 * measuredBest;
    state.counters["MB_per_s"] = static_cast<double>(bytes) / measuredBest / 1e6;
    state.counters["ratio"] = measuredBest / baselineBest;
}

} // namespace kestor

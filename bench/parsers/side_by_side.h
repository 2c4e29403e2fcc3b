#pragma once

#include <QtGlobal>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <limits>
#include <malloc.h>
#include <sys/resource.h>
#include <time.h>

namespace kestor {

/// Processor time of this process and of the children it has waited for. Unlike elapsed time it hardly depends on
/// what else the machine does, and everything measured here runs on one thread.
inline double processorSeconds() {
    timespec own{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &own);
    rusage children{};
    getrusage(RUSAGE_CHILDREN, &children);
    return static_cast<double>(own.tv_sec + children.ru_utime.tv_sec + children.ru_stime.tv_sec) +
           static_cast<double>(own.tv_nsec) / 1e9 +
           static_cast<double>(children.ru_utime.tv_usec + children.ru_stime.tv_usec) / 1e6;
}

template <typename Work>
double secondsOf(const Work &work) {
    const double start = processorSeconds();
    work();
    return processorSeconds() - start;
}

/// Runs `baseline` and `measured` in turn, so that both see the same machine, and reports the best time of each and
/// their ratio. `bytes` is the size of the input of either.
template <typename Baseline, typename Measured>
void runSideBySide(benchmark::State &state, qsizetype bytes, const Baseline &baseline, const Measured &measured) {
    double baselineBest = std::numeric_limits<double>::max();
    double measuredBest = baselineBest;
    for (auto _ : state) {
        baselineBest = std::min(baselineBest, secondsOf(baseline));
        malloc_trim(0); // as in a program that does it once: memory of the round before is no help
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

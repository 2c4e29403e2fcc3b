#pragma once

#include <QByteArray>
#include <QElapsedTimer>

#include <cstdio>
#include <optional>
#include <time.h>

namespace kestor {

/// Tells one figure in the words of the table in bench/rows.txt: a line of name, value, unit and, where something else
/// did the same work in the same run, what that took in the same unit. For what is measured once; the others tell
/// theirs as counters of Google Benchmark.
inline void report(const QByteArray &name, double value, const char *unit, double floor = 0) {
    std::printf("%s\t%.4g\t%s\t%.4g\n", name.constData(), value, unit, floor);
    std::fflush(stdout);
}

/// Tells why there is nothing to compare with, beside our own figure if there is one.
inline void reportAlone(const QByteArray &name, std::optional<double> value, const char *unit, const char *why) {
    const QByteArray figure = value ? QByteArray::number(*value) : "-";
    std::printf("%s\t%s\t%s\t-\t%s\n", name.constData(), figure.constData(), unit, why);
    std::fflush(stdout);
}

inline double milliseconds(const QElapsedTimer &timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// The processor time that the calling thread has used.
inline double ownMilliseconds() {
    timespec used{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
}

} // namespace kestor

// The longest turn of the main thread's event loop while the window of a large project is used.

#include "../support/measures.h"
#include "pause_scenarios.h"

#include <QApplication>

#include <algorithm>

namespace kestor {
namespace {

/// Turns that nobody feels need no report.
constexpr double shortest = 1;
constexpr double felt = 16;

void measure(const testing::PauseScenario &scenario) {
    double longest = 0;
    for (const Pause &turn : scenario.pauses(shortest)) {
        longest = std::max(longest, turn.computed);
        if (turn.computed > felt)
            std::fprintf(stderr, "  %.1f ms: %s\n", turn.computed, qPrintable(turn.cause));
    }
    report(QByteArray("longest turn: ") + scenario.name, longest, "ms");
}

} // namespace
} // namespace kestor

int main(int argc, char **argv) {
    using namespace kestor;
    const QApplication application(argc, argv);
    for (const testing::PauseScenario &scenario : testing::pauseScenarios())
        measure(scenario);
    return 0;
}

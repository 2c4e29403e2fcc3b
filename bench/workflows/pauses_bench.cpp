// The longest turn of the main thread's event loop while the window of a large project is used.

#include "../support/measures.h"
#include "support/pause_scenarios.h"

#include <QApplication>

#include <algorithm>

namespace kestor {
namespace {

/// Turns that nobody feels need no report.
constexpr double shortest = 1;

void measure(const char *name, QList<Pause> (*scenario)(double longest)) {
    double longest = 0;
    for (const Pause &turn : scenario(shortest)) {
        longest = std::max(longest, turn.computed);
        if (turn.computed > longestTurn)
            logPause(turn);
    }
    report(QByteArray("longest turn: ") + name, longest, "ms");
}

} // namespace
} // namespace kestor

int main(int argc, char **argv) {
    using namespace kestor;
    const QApplication application(argc, argv);
    measure("100,000 changed rows", testing::manyChangedRows);
    measure("1,000,000-line diff", testing::longDiff);
    measure("20,000 revisions", testing::longHistory);
    measure("50,000 unversioned files", testing::manyUnversionedFiles);
}

#include "support/pause_scenarios.h"
#include "support/window_test.h"

#include <QEventLoop>
#include <QThread>

#include <time.h>

namespace kestor {
namespace {

constexpr double bound = 20;

void compute(double milliseconds) {
    timespec used{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    const auto started = used;
    while (static_cast<double>(used.tv_sec - started.tv_sec) * 1e3 +
               static_cast<double>(used.tv_nsec - started.tv_nsec) / 1e6 <
           milliseconds)
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
}

/// The pauses of a program that does `work` in one turn of its event loop.
QList<Pause> pausesOf(const std::function<void()> &work) {
    QList<Pause> pauses;
    const PauseWatch watch(
        bound, [] { return u"Working"_s; }, [&pauses](const Pause &pause) { pauses.append(pause); });
    QTimer timer;
    timer.setSingleShot(true);
    QEventLoop loop;
    QObject::connect(&timer, &QTimer::timeout, work);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit, Qt::QueuedConnection);
    timer.start(1);
    loop.exec();
    QCoreApplication::processEvents();
    return pauses;
}

TEST(PauseWatch, ReportsWhatComputesOrBlocksForTooLong) {
    const Rows<std::function<void()>, qsizetype> rows{
        {"computes for too long", [] { compute(2 * bound); }, 1},
        {"blocks for much longer", [] { QThread::msleep(15 * static_cast<unsigned long>(bound)); }, 1},
        {"waits a little", [] { QThread::msleep(2 * static_cast<unsigned long>(bound)); }, 0},
        {"computes a little", [] { compute(bound / 4); }, 0},
    };
    for (const auto &[name, work, count] : rows) {
        const QList<Pause> pauses = pausesOf(work);
        ASSERT_EQ(pauses.size(), count);
        for (const Pause &pause : pauses)
            EXPECT_TRUE(startsWith(pause.cause, u"Timer of QTimer ("_s) &&
                        pause.cause.contains(u"during \"Working\""_s));
    }
}

void expectNone(QList<Pause> (*scenario)(double longest)) {
    for (const Pause &pause : scenario(longestTurn * buildSlowdown))
        ADD_FAILURE() << qPrintable(pause.cause);
}

TEST(LargeProject, HundredThousandChangedRowsHoldNothingUp) {
    expectNone(manyChangedRows);
}

TEST(LargeProject, AMillionLinesOfDiffHoldNothingUp) {
    expectNone(longDiff);
}

TEST(LargeProject, TwentyThousandRevisionsHoldNothingUp) {
    expectNone(longHistory);
}

TEST(LargeProject, FiftyThousandUnversionedFilesHoldNothingUp) {
    expectNone(manyUnversionedFiles);
}

} // namespace
} // namespace kestor

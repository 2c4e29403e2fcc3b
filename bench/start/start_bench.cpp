#include "painted_signal.h"
#include "sample_project.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <csignal>
#include <limits>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr int files = 20000;
constexpr int rounds = 9;
constexpr int growthRounds = 5;
constexpr int patienceMs = 60000;
constexpr double noTime = std::numeric_limits<double>::max();

pid_t spawned(const QString &program, int descriptor) {
    QByteArray path = (QCoreApplication::applicationDirPath() + u'/' + program).toLocal8Bit();
    QByteArray number = QByteArray::number(descriptor);
    std::array<char *, 3> arguments{path.data(), number.data(), nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, path.constData(), nullptr, nullptr, arguments.data(), environ) != 0)
        qFatal("cannot start %s", path.constData());
    return child;
}

void awaitLetter(int descriptor, char wanted) {
    char letter = 0;
    while (letter != wanted) {
        pollfd ready{descriptor, POLLIN, 0};
        if (::poll(&ready, 1, patienceMs) != 1 || ::read(descriptor, &letter, 1) != 1)
            qFatal("the program did not paint");
    }
}

/// Seconds from the start of the program until it tells that it has painted.
double secondsUntilPainted(const QString &program, char wanted, const SampleProject &project) {
    qputenv("XDG_CONFIG_HOME", project.configHome.toLocal8Bit());
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0)
        qFatal("no pipe");
    QElapsedTimer timer;
    timer.start();
    const pid_t child = spawned(program, ends[1]);
    ::close(ends[1]);
    awaitLetter(ends[0], wanted);
    const double seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(ends[0]);
    return seconds;
}

double minimalWindow(const SampleProject &project) {
    return secondsUntilPainted(u"minimal_window"_s, PaintedSignal::windowPainted, project);
}

double window(const SampleProject &project) {
    return secondsUntilPainted(u"announced_start"_s, PaintedSignal::windowPainted, project);
}

double changesList(const SampleProject &project) {
    return secondsUntilPainted(u"announced_start"_s, PaintedSignal::listPainted, project);
}

/// Seconds of the tool's own status run, with its output read.
double bareStatus(RepositoryKind kind, const SampleProject &project) {
    QProcess process;
    process.setWorkingDirectory(project.path);
    QElapsedTimer timer;
    timer.start();
    if (kind == RepositoryKind::git)
        process.start(u"git"_s, {u"status"_s, u"--porcelain=v1"_s, u"--untracked-files=normal"_s});
    else
        process.start(u"svn"_s, {u"status"_s, u"--xml"_s, u"--no-ignore"_s});
    process.waitForFinished(-1);
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

/// Runs both in turn, so that they see the same machine, and reports the best of each and their ratio.
template <typename Baseline, typename Measured>
void compare(benchmark::State &state, const Baseline &baseline, const Measured &measured) {
    double baselineBest = noTime;
    double measuredBest = noTime;
    for (auto _ : state) {
        baselineBest = std::min(baselineBest, baseline());
        const double seconds = measured();
        measuredBest = std::min(measuredBest, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["baseline_ms"] = 1000 * baselineBest;
    state.counters["best_ms"] = 1000 * measuredBest;
    state.counters["ratio"] = measuredBest / baselineBest;
}

void windowAgainstMinimalWindow(benchmark::State &state) {
    const SampleProject project = sampleProject(RepositoryKind::git, files);
    compare(
        state, [&] { return minimalWindow(project); }, [&] { return window(project); });
}

void listAgainstMinimalWindowAndStatusRun(benchmark::State &state, RepositoryKind kind) {
    const SampleProject project = sampleProject(kind, files);
    double statusBest = noTime;
    const auto baseline = [&] {
        const double status = bareStatus(kind, project);
        statusBest = std::min(statusBest, status);
        return minimalWindow(project) + status;
    };
    compare(state, baseline, [&] { return changesList(project); });
    state.counters["status_ms"] = 1000 * statusBest;
}

void listOfDoubledAgainstSingleProject(benchmark::State &state, RepositoryKind kind) {
    const SampleProject single = sampleProject(kind, files);
    const SampleProject doubled = sampleProject(kind, 2 * files);
    compare(
        state, [&] { return changesList(single); }, [&] { return changesList(doubled); });
}

void listOfSize(benchmark::State &state, RepositoryKind kind) {
    const SampleProject project = sampleProject(kind, static_cast<int>(state.range(0)));
    double best = noTime;
    for ([[maybe_unused]] auto _ : state) {
        const double seconds = changesList(project);
        best = std::min(best, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["best_ms"] = 1000 * best;
}

void onTheClock(benchmark::internal::Benchmark *starts) {
    starts->UseManualTime()->Iterations(rounds)->Unit(benchmark::kMillisecond);
}

void growing(benchmark::internal::Benchmark *starts) {
    onTheClock(starts);
    starts->Arg(files / 2)->Arg(files)->Arg(2 * files)->Iterations(growthRounds);
}

BENCHMARK(windowAgainstMinimalWindow)->Apply(onTheClock);
BENCHMARK_CAPTURE(listAgainstMinimalWindowAndStatusRun, git, RepositoryKind::git)->Apply(onTheClock);
BENCHMARK_CAPTURE(listAgainstMinimalWindowAndStatusRun, svn, RepositoryKind::svn)->Apply(onTheClock);
BENCHMARK_CAPTURE(listOfDoubledAgainstSingleProject, git, RepositoryKind::git)->Apply(onTheClock);
BENCHMARK_CAPTURE(listOfDoubledAgainstSingleProject, svn, RepositoryKind::svn)->Apply(onTheClock);
BENCHMARK_CAPTURE(listOfSize, git, RepositoryKind::git)->Apply(growing);
BENCHMARK_CAPTURE(listOfSize, svn, RepositoryKind::svn)->Apply(growing);

} // namespace

} // namespace kestor

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

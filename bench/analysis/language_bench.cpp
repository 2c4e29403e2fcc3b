#include "analysis/language_distribution.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

constexpr int filesPerFolder = 50;

void writeFile(const QString &path, const QByteArray &content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// Three levels of folders with sources, pictures and objects, and ignore files as a large project has them.
void writeTree(const QString &root, int files) {
    const QStringList names{u"source-file%1.cpp"_s, u"header%1.h"_s,     u"script_%1.py"_s, u"page%1.html"_s,
                            u"picture%1.png"_s,     u"component%1.ts"_s, u"object%1.o"_s,   u"data%1.json"_s};
    for (int i = 0; i < files; ++i) {
        const int number = i / filesPerFolder;
        const QString folder = u"%1/module%2/part%3"_s.arg(root).arg(number / 40).arg(number % 40);
        if (i % filesPerFolder == 0)
            QDir().mkpath(folder);
        if (i % 10'000 == 0)
            writeFile(folder + u"/.gitignore"_s, "/generated\n*.log\n!important.log\n");
        writeFile(folder + u'/' + names[i % names.size()].arg(i), QByteArray(i % 64, 'x'));
    }
    writeFile(root + u"/.gitignore"_s, "*.o\n*.a\n*.so.?\n*~\n/out\ncache/\n*.tmp\n!keep.tmp\ndoc/*.pdf\n**/gen/**\n");
}

template <typename Work>
double elapsedSeconds(const Work &work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

void runFind(const QString &root) {
    QProcess find;
    find.setStandardOutputFile(QProcess::nullDevice());
    find.start(u"find"_s, {root, u"-type"_s, u"f"_s, u"-printf"_s, u"%s"_s});
    if (!find.waitForFinished(-1) || find.exitCode() != 0)
        qFatal("find failed");
}

/// On the clock, since the walk uses all cores and `find` one; both find the tree in the system's cache.
void BM_languageDistribution(benchmark::State &state) {
    const QTemporaryDir directory;
    writeTree(directory.path(), static_cast<int>(state.range(0)));
    double floor = 1e9;
    double best = 1e9;
    for ([[maybe_unused]] auto _ : state) {
        floor = std::min(floor, elapsedSeconds([&] { runFind(directory.path()); }));
        const double seconds = elapsedSeconds(
            [&] { benchmark::DoNotOptimize(LanguageDistributionAnalyzer::analyzeSync(directory.path(), {})); });
        best = std::min(best, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["find_ms"] = 1000 * floor;
    state.counters["best_ms"] = 1000 * best;
    state.counters["ratio"] = best / floor;
}

BENCHMARK(BM_languageDistribution)
    ->Arg(25'000)
    ->Arg(50'000)
    ->Arg(100'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10);

} // namespace
} // namespace kestor

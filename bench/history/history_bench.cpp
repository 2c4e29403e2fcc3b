#include "bare_expat.h"
#include "controller/arriving_log.h"
#include "controller/file_grouping.h"
#include "controller/log_loading.h"
#include "log_samples.h"
#include "parsers/git_parsers.h"
#include "parsers/svn_xml_parsers.h"
#include "side_by_side.h"

#include <malloc.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

constexpr int paths = 5;

double allocatedBytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

void BM_svnLogToRecords(benchmark::State &state) {
    const QByteArray xml = svnLog(static_cast<int>(state.range(0)), paths);
    runSideBySide(
        state, xml.size(), [&] { bareExpatPass(xml); },
        [&] { benchmark::DoNotOptimize(LogParser::parse(QByteArrayView(xml))); });
}

/// The ratio is that of 150 MB/s to the speed.
void BM_gitLogToRecords(benchmark::State &state) {
    const QByteArray log = gitLog(static_cast<int>(state.range(0)), paths);
    const QString text = QString::fromUtf8(log);
    double best = std::numeric_limits<double>::max();
    for ([[maybe_unused]] auto _ : state) {
        const double seconds = secondsOf([&] { benchmark::DoNotOptimize(GitParsers::parseLog(text)); });
        best = std::min(best, seconds);
        state.SetIterationTime(seconds);
    }
    const double megabytesPerSecond = static_cast<double>(log.size()) / best / 1e6;
    state.counters["MB_per_s"] = megabytesPerSecond;
    state.counters["ratio"] = 150 / megabytesPerSecond;
}

/// From the tool's last byte to what is published.
void BM_logToGroupedFiles(benchmark::State &state) {
    constexpr int revisions = 20000;
    const bool isSvn = state.range(0) == 0;
    const QByteArray log = isSvn ? svnLog(revisions, paths) : gitLog(revisions, paths);
    for ([[maybe_unused]] auto _ : state) {
        ArrivingLog arrived(isSvn ? RepositoryKind::svn : RepositoryKind::git);
        const QList<LogEntry> entries = loadedLog(arrived, log, {});
        benchmark::DoNotOptimize(loadedHistory(entries, isSvn ? u"^/trunk"_s : QString(), {}));
    }
}

/// The changed paths of a log. The ratios are those to a second and to 200 bytes for each, the log itself included.
void BM_grouping(benchmark::State &state) {
    const auto changes = static_cast<int>(state.range(0));
    const QByteArray log = svnLog(changes / 50, 50);
    const double before = allocatedBytes();
    const QList<LogEntry> entries = LogParser::parse(QByteArrayView(log));
    const double withLog = allocatedBytes();
    double best = std::numeric_limits<double>::max();
    double withGroups = 0;
    for ([[maybe_unused]] auto _ : state) {
        const FileHistory *files = nullptr;
        const double seconds = secondsOf([&] { files = new FileHistory(groupedByFile(entries, u"^/trunk"_s)); });
        withGroups = allocatedBytes();
        delete files;
        best = std::min(best, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["bytes_log"] = (withLog - before) / changes;
    state.counters["bytes_groups"] = (withGroups - withLog) / changes;
    state.counters["ratio_time"] = best;
    state.counters["ratio_bytes"] = (withGroups - before) / changes / 200;
}

BENCHMARK(BM_svnLogToRecords)->Arg(10000)->Arg(20000)->Arg(40000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_gitLogToRecords)->Arg(20000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_logToGroupedFiles)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_grouping)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
} // namespace kestor

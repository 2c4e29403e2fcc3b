#include "parsers/line_changes.h"
#include "parsers/unified_diff_parser.h"
#include "samples.h"
#include "side_by_side.h"

#include <QProcess>
#include <QTemporaryFile>

#include <malloc.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

ParsedDiff parsed(const QByteArray &bytes) {
    return UnifiedDiffParser::parse(withLineFeeds(QString::fromUtf8(bytes)));
}

std::size_t allocatedBytes() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void reportMemory(benchmark::State &state, const QByteArray &bytes) {
    const std::size_t before = allocatedBytes();
    const ParsedDiff diff = parsed(bytes);
    const std::size_t grown = allocatedBytes() - before;
    state.counters["memory_per_byte"] = static_cast<double>(grown) / static_cast<double>(bytes.size());
    state.counters["additions"] = static_cast<double>(lineChanges(diff).additions);
}

void runTool(const QString &program, const QStringList &arguments) {
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        qFatal("%s failed: %s", qPrintable(program), process.readAllStandardError().constData());
}

/// `git apply --numstat` reads a patch and counts its lines too, and so does `diffstat`.
void compareWithTools(benchmark::State &state, const QByteArray &bytes) {
    QTemporaryFile file;
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush()) {
        state.SkipWithError("cannot write the patch");
        return;
    }
    double diffstat = std::numeric_limits<double>::max();
    for (int round = 0; round < 3; ++round)
        diffstat = std::min(diffstat, secondsOf([&file] { runTool(u"diffstat"_s, {file.fileName()}); }));
    runSideBySide(
        state, bytes.size(),
        [&file] {
            runTool(u"git"_s, {u"apply"_s, u"--numstat"_s, file.fileName()});
        },
        [&bytes] { benchmark::DoNotOptimize(parsed(bytes)); });
    state.counters["diffstat_ms"] = 1000 * diffstat;
    reportMemory(state, bytes);
}

void BM_diff(benchmark::State &state) {
    compareWithTools(state, unifiedDiff(static_cast<int>(state.range(0))));
}

void BM_diffWithCarriageReturns(benchmark::State &state) {
    compareWithTools(state, unifiedDiff(static_cast<int>(state.range(0))).replace("\n", "\r\n"));
}

void BM_oneLineHunks(benchmark::State &state) {
    compareWithTools(state, oneLineHunks(static_cast<int>(state.range(0))));
}

/// The records alone, against the decoding that comes before them.
void BM_diffRecords(benchmark::State &state) {
    const QByteArray bytes = unifiedDiff(static_cast<int>(state.range(0)));
    const QString text = QString::fromUtf8(bytes);
    runSideBySide(
        state, bytes.size(), [&bytes] { benchmark::DoNotOptimize(QString::fromUtf8(bytes)); },
        [&text] { benchmark::DoNotOptimize(UnifiedDiffParser::parse(withLineFeeds(text))); });
}

BENCHMARK(BM_diff)->Arg(500000)->Arg(1000000)->Arg(2000000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_diffRecords)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_diffWithCarriageReturns)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_oneLineHunks)->Arg(300000)->Arg(600000)->Arg(1200000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kestor

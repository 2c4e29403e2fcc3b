#include "parsers/line_changes.h"
#include "parsers/unified_diff_parser.h"
#include "samples.h"
#include "side_by_side.h"

#include <QProcess>
#include <QTemporaryFile>

#include <malloc.h>

namespace kestor {
namespace {

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

/// `git apply --numstat` reads a patch and counts its lines too.
void compareWithGit(benchmark::State &state, const QByteArray &bytes) {
    QTemporaryFile file;
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush()) {
        state.SkipWithError("cannot write the patch");
        return;
    }
    QProcess git;
    git.setStandardOutputFile(QProcess::nullDevice());
    git.setProgram(QStringLiteral("git"));
    git.setArguments({QStringLiteral("apply"), QStringLiteral("--numstat"), file.fileName()});
    const auto runGit = [&git] {
        git.start();
        if (!git.waitForFinished(-1) || git.exitCode() != 0)
            qFatal("git apply failed: %s", git.readAllStandardError().constData());
    };
    runSideBySide(state, bytes.size(), runGit, [&bytes] { benchmark::DoNotOptimize(parsed(bytes)); });
    reportMemory(state, bytes);
}

void BM_diff(benchmark::State &state) {
    compareWithGit(state, unifiedDiff(static_cast<int>(state.range(0))));
}

void BM_diffWithCarriageReturns(benchmark::State &state) {
    compareWithGit(state, unifiedDiff(static_cast<int>(state.range(0))).replace("\n", "\r\n"));
}

void BM_oneLineHunks(benchmark::State &state) {
    compareWithGit(state, oneLineHunks(static_cast<int>(state.range(0))));
}

BENCHMARK(BM_diff)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_diffWithCarriageReturns)->Arg(1000000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_oneLineHunks)->Arg(300000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kestor

// What is left to do of a long diff when Git has printed its last byte: decoding, the words about binary files,
// records.

#include "controller/printed_diff.h"
#include "parsers/unified_diff_parser.h"
#include "tools/arguments.h"
#include "tools/git_client.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThreadPool>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

void writeLines(const QString &path, int count, const QByteArray &changed) {
    QByteArray text;
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i);
        text += "    for (int item = 0; item < " + number + "; ++item) // as everywhere\n";
        text += "    const QString " + changed + " = textOf(items, " + number + ", Strict::yes);\n";
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(path));
}

QCoro::Task<> store(QCoro::Task<LoadedDiff> loading, QString *text) {
    const LoadedDiff diff = co_await loading;
    *text = diff.text;
}

/// Two versions of a file, each third line of whose diff is the same in both.
void BM_printedDiff(benchmark::State &state) {
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    const QTemporaryDir directory;
    const auto lines = static_cast<int>(state.range(0));
    writeLines(directory.filePath(u"a"_s), lines / 3, "before");
    writeLines(directory.filePath(u"b"_s), lines / 3, "behind");
    const Project project{QUuid::createUuid(), u"p"_s, directory.path(), RepositoryKind::git};
    const DiffRun run = diffRun(std::make_shared<GitClient>(), project, args("diff", "--no-index", "a", "b"));
    QThreadPool workers;
    double best = std::numeric_limits<double>::max();
    for ([[maybe_unused]] auto _ : state) {
        QElapsedTimer sinceLastByte;
        const DiffRun timed = [&](OutputReader reader) {
            return run([&sinceLastByte, reader = std::move(reader)](QByteArrayView printed) {
                sinceLastByte.start();
                reader(printed);
            });
        };
        QString text;
        const QCoro::Task<> loading = store(printedDiff(timed, u"a"_s, &workers), &text);
        while (text.isEmpty())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const ParsedDiff diff = UnifiedDiffParser::parse(text);
        best = std::min(best, static_cast<double>(sinceLastByte.nsecsElapsed()) / 1e6);
        if (diff.files.size() != 1 || diff.files.constFirst().additions != lines / 3)
            state.SkipWithError("not the whole diff");
    }
    state.counters["best_ms"] = best;
}

BENCHMARK(BM_printedDiff)->Arg(500000)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
} // namespace kestor

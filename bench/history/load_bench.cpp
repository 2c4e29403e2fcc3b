// What the controller does with a log between the tool's last byte and the published list.

#include "../support/measures.h"
#include "controller/app_state.h"
#include "log_samples.h"

#include <QCoreApplication>
#include <QCoroTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <malloc.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

constexpr std::chrono::milliseconds untilShown{500};
constexpr qsizetype pieceSize = 65536; ///< what a pipe holds

/// Answers at once: a log where one is asked for, else nothing. Who reads gets its beginning early enough for it to be
/// shown.
class PreparedTool final : public Tool {
public:
    explicit PreparedTool(QByteArray printedLog) : log(std::move(printedLog)) {}

    QCoro::Task<SVNCommandResult> run(QStringList arguments, QString, CheckStatus, RunPurpose) override {
        SVNCommandResult result;
        if (arguments.first() == u"log"_s && arguments.contains(u"--xml"_s))
            result.stdoutData = log;
        co_return result;
    }
    QCoro::Task<SVNCommandResult> runReading(QStringList arguments, QString, RunPurpose, OutputReader reader) override {
        if (arguments.first() != u"log"_s)
            co_return SVNCommandResult();
        for (qsizetype start = 0; start < log.size() / 2; start += pieceSize) {
            reader(QByteArrayView(log).sliced(start, std::min(pieceSize, log.size() - start)));
            co_await QCoro::sleepFor(std::chrono::milliseconds(0));
        }
        co_await QCoro::sleepFor(untilShown);
        SVNCommandResult result;
        result.stdoutData = log;
        co_return result;
    }

    QByteArray log;
};

/// Nobody is asked.
class NoUser final : public UserInteraction {
public:
    QCoro::Task<bool> confirm(QString, QString) override { co_return false; }
    QCoro::Task<std::optional<QMap<QString, QString>>> prompt(QString, QList<PromptField>) override {
        co_return std::nullopt;
    }
    QCoro::Task<std::optional<QString>> chooseDirectory(QString) override { co_return std::nullopt; }
    QCoro::Task<std::optional<QString>> chooseFile(QString, QString) override { co_return std::nullopt; }
    QCoro::Task<std::optional<QString>> chooseSaveFile(QString, QString, QString) override { co_return std::nullopt; }
    QCoro::Task<std::optional<QString>> chooseNewFolder(NewFolderTexts) override { co_return std::nullopt; }
    QCoro::Task<std::optional<SwitchTarget>> chooseBranch(QList<GitBranch>, std::optional<QString>) override {
        co_return std::nullopt;
    }
    QCoro::Task<bool> openInFileManager(QString) override { co_return false; }
    QCoro::Task<TerminalResult> openTerminal(QString) override { co_return TerminalResult(); }
};

/// The longest turn of the event loop until `ended`, in milliseconds of the main thread's own time.
template <typename Condition>
double longestTurn(double longest, Condition ended) {
    while (!ended()) {
        const double before = ownMilliseconds();
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        longest = std::max(longest, ownMilliseconds() - before);
    }
    return longest;
}

QCoro::Task<> noteEnd(QCoro::Task<> loading, bool *ended) {
    co_await loading;
    *ended = true;
}

/// Each round another log replaces the one that is shown. The ratio compares the longest turn with 16 ms.
void BM_loadHistory(benchmark::State &state) {
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    const QTemporaryDir directory;
    QSettings settings(directory.filePath(u"bench.conf"_s), QSettings::IniFormat);
    ProjectStore(settings).save({{QUuid::createUuid(), u"p"_s, directory.path(), RepositoryKind::svn}});
    const auto revisions = static_cast<int>(state.range(0));
    const auto tool = std::make_shared<PreparedTool>(QByteArray());
    NoUser user;
    AppState app(settings, user, {tool, tool, tool});
    app.repositoryInfo = RepositoryInfo{.relativeURL = u"^/trunk"_s};
    double longest = 0;
    int round = 0;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        tool->log = svnLog(revisions + ++round % 2, static_cast<int>(state.range(1)));
        malloc_trim(0); // what is left of making it would be tidied up in a turn that counts
        state.ResumeTiming();
        bool ended = false;
        const double before = ownMilliseconds();
        const QCoro::Task<> loading = noteEnd(app.loadHistory(), &ended);
        const double first = ownMilliseconds() - before;
        longest = longestTurn(std::max(longest, first), [&ended] { return ended; });
    }
    state.counters["longest_turn_ms"] = longest;
    state.counters["ratio"] = longest / 16;
}

BENCHMARK(BM_loadHistory)
    ->Args({20000, 5})
    ->Args({20000, 50})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Iterations(6);

} // namespace
} // namespace kestor

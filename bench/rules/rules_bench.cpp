#include "../parsers/side_by_side.h"
#include "rules/ignore_rules.h"

#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <array>
#include <benchmark/benchmark.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

/// As the ignore files of a large project have them: extensions, names, folders, paths and a few ways back.
QStringList realisticLines(int count) {
    const std::array<QString, 12> shapes{u"*.x%1"_s,       u"cache%1/"_s, u"/dist%1"_s,    u"doc%1/*.txt"_s,
                                         u"**/gen%1/**"_s, u"Name%1"_s,   u"[a-z]*.t%1"_s, u"!keep%1.x%1"_s,
                                         u"lib%1*.so.?"_s, u"out%1/*"_s,  u"*~%1"_s,       u"src/**/tmp%1/*.o"_s};
    QStringList lines;
    for (int i = 0; i < count; ++i)
        lines.append(shapes[static_cast<std::size_t>(i) % shapes.size()].arg(i));
    return lines;
}

IgnoreRules realisticRules(int count) {
    QList<IgnoreRule> rules;
    for (const QString &line : realisticLines(count))
        rules.append(*IgnoreRule::fromLine(line, u""));
    return IgnoreRules(rules);
}

/// Distinct paths of three to six pieces in the order of a walk, a few of which some rule matches.
QStringList distinctPaths(int count) {
    const std::array<QString, 8> folders{u"src"_s, u"include"_s, u"modules"_s, u"tests"_s,
                                         u"doc"_s, u"assets"_s,  u"gen4"_s,    u"internal"_s};
    const std::array<QString, 6> names{u"file_%1.cpp"_s, u"Widget%1.h"_s, u"page%1.html"_s,
                                       u"img-%1.png"_s,  u"readme%1"_s,   u"object%1.x0"_s};
    QStringList paths;
    paths.reserve(count);
    for (int i = 0; i < count; ++i) {
        const std::size_t n = static_cast<std::size_t>(i);
        QString path;
        for (std::size_t depth = 0; depth < 2 + n % 4; ++depth)
            path += folders[(n / (depth * 7 + 1) + depth) % folders.size()] + u'/';
        paths.append(path + names[n % names.size()].arg(i));
    }
    paths.sort();
    QStringList walked; // neighbours in memory too
    for (const QString &path : std::as_const(paths))
        walked.append(QString(path.constData(), path.size()));
    return walked;
}

void decidePaths(benchmark::State &state) {
    const IgnoreRules rules = realisticRules(static_cast<int>(state.range(0)));
    static const QStringList paths = distinctPaths(1000000); // takes longer than the rest
    qsizetype ignored = 0;
    while (state.KeepRunning()) {
        for (const QString &path : paths)
            ignored += rules.decision(path, false) == true ? 1 : 0;
    }
    benchmark::DoNotOptimize(ignored);
    state.counters["s_per_path"] = benchmark::Counter(static_cast<double>(paths.size() * state.iterations()),
                                                      benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(decidePaths)->Arg(30)->Arg(300)->Arg(600)->Arg(1200)->Arg(3000)->Unit(benchmark::kMillisecond);

void runGit(const QStringList &arguments, const QString &directory, const QString &input = {}) {
    QProcess git;
    git.setWorkingDirectory(directory);
    git.setStandardInputFile(input.isEmpty() ? QProcess::nullDevice() : input);
    git.setStandardOutputFile(QProcess::nullDevice());
    git.start(u"git"_s, arguments);
    if (!git.waitForFinished(-1) || git.exitCode() > 1) // 1: no path is ignored
        qFatal("git failed: %s", git.readAllStandardError().constData());
}

void writeLines(const QString &path, const QStringList &lines) {
    QFile file(path);
    const QByteArray bytes = lines.join(u'\n').toUtf8() + '\n';
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// The same patterns and paths, which are not on the disk, for Git.
void againstCheckIgnore(benchmark::State &state) {
    constexpr int patterns = 300;
    const IgnoreRules rules = realisticRules(patterns);
    const QStringList paths = distinctPaths(100000);
    const QTemporaryDir directory;
    writeLines(directory.filePath(u".gitignore"_s), realisticLines(patterns));
    writeLines(directory.filePath(u"paths"_s), paths);
    runGit({u"init"_s, u"-q"_s}, directory.path());
    qsizetype bytes = 0;
    for (const QString &path : paths)
        bytes += path.size();
    runSideBySide(
        state, bytes,
        [&] {
            runGit({u"check-ignore"_s, u"--stdin"_s}, directory.path(), directory.filePath(u"paths"_s));
        },
        [&] {
            for (const QString &path : paths)
                benchmark::DoNotOptimize(rules.decision(path, false));
        });
}
BENCHMARK(againstCheckIgnore)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(2);

void compileRules(benchmark::State &state) {
    while (state.KeepRunning())
        benchmark::DoNotOptimize(realisticRules(static_cast<int>(state.range(0))));
}
BENCHMARK(compileRules)->Arg(300)->Arg(600)->Arg(1200)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace kestor

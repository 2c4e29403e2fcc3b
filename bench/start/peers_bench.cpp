// Other programs for the same work, started on the projects of start_bench on the same display, in turn with ours:
// until the window is mapped, until nothing on the screen changes any more, and the memory then. All are seen from
// outside.

#include "../support/measures.h"
#include "process_family.h"
#include "sample_project.h"
#include "screen_watch.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr int files = 20000;
constexpr int patienceMs = 60'000;
constexpr int rounds = 3;
/// After which no further round of a slow program begins.
constexpr qint64 enoughMs = 15'000;

struct Peer {
    const char *name = nullptr;
    RepositoryKind kind = RepositoryKind::git;
    QStringList options{};
};

/// Beside this program or else in the system; empty if there is none.
QString executable(const QString &name) {
    const QString beside = QStandardPaths::findExecutable(name, {QCoreApplication::applicationDirPath()});
    return beside.isEmpty() ? QStandardPaths::findExecutable(name) : beside;
}

SeenStart best(const SeenStart &left, const SeenStart &right) {
    SeenStart both = right;
    both.idleMs = std::max(left.idleMs, right.idleMs);
    both.windowMs = std::min(left.windowMs, right.windowMs);
    both.restMs = left.restMs && right.restMs ? std::min(left.restMs, right.restMs) : std::nullopt;
    return both;
}

SeenStart ours(ScreenWatch &watch) {
    const auto seen =
        watch.seenStart({QCoreApplication::applicationDirPath() + u"/../../src/ui/kestorsvn"_s}, patienceMs);
    if (!seen)
        qFatal("the program showed no window");
    return *seen;
}

void reportBoth(const QByteArray &name, const SeenStart &program, const SeenStart &peer) {
    report(name + ": start to window", program.windowMs, "ms", peer.windowMs);
    report(name + ": memory at window", program.windowMegabytes, "MB", peer.windowMegabytes);
    if (program.restMs && peer.restMs)
        report(name + ": start to rest", *program.restMs, "ms", *peer.restMs);
    else
        reportAlone(name + ": start to rest", program.restMs, "ms", "not at rest within a minute");
    report(name + ": memory at rest", program.megabytes, "MB", peer.megabytes);
    report(name + ": processor time in a second at rest", program.idleMs, "ms", peer.idleMs);
}

void reportAllMissing(const QByteArray &name, const char *why) {
    reportAlone(name + ": start to window", std::nullopt, "ms", why);
    reportAlone(name + ": memory at window", std::nullopt, "MB", why);
    reportAlone(name + ": start to rest", std::nullopt, "ms", why);
    reportAlone(name + ": memory at rest", std::nullopt, "MB", why);
    reportAlone(name + ": processor time in a second at rest", std::nullopt, "ms", why);
}

void compare(ScreenWatch &watch, const Peer &peer) {
    const QByteArray name(peer.name);
    const QString path = executable(QString::fromLatin1(name));
    if (path.isEmpty())
        return reportAllMissing(name, "not installed");
    const SampleProject project = sampleProject(peer.kind, files);
    QDir::setCurrent(project.path);
    qputenv("XDG_CONFIG_HOME", project.configHome.toLocal8Bit());
    SeenStart program = ours(watch);
    std::optional<SeenStart> other;
    QElapsedTimer timer;
    timer.start();
    for (int round = 0; round < rounds && timer.elapsed() < enoughMs; ++round) {
        const auto seen = watch.seenStart(QStringList{path} + peer.options, patienceMs);
        if (!seen)
            return reportAllMissing(name, "no window within a minute");
        other = other ? best(*other, *seen) : seen;
        program = best(program, ours(watch));
    }
    reportBoth(name, program, *other);
}

void run() {
    const std::array<Peer, 5> peers{{
        {"minimal_window", RepositoryKind::git, {u"2"_s}}, // what it tells has no reader
        {"git-cola", RepositoryKind::git, {u"--repo"_s, u"."_s}},
        {"gitg", RepositoryKind::git, {u"--standalone"_s, u"--commit"_s, u"."_s}},
        {"qgit", RepositoryKind::git, {}},
        {"kdesvn", RepositoryKind::svn, {u"."_s}},
    }};
    adoptOrphans();
    ScreenWatch watch;
    for (const Peer &peer : peers)
        compare(watch, peer);
}

} // namespace

} // namespace kestor

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    kestor::run();
}

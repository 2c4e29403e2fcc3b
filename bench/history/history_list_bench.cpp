// A log of 20,000 revisions with 5 paths each in the History and Archives tabs, by the program's own way: from the
// tool's last byte until the list is painted, and the longest time in which the event loop could do nothing else. Each
// line's "ratio" compares with the bound beside it.

#include "log_samples.h"
#include "ui/frame/window_interaction.h"
#include "ui/tabs/archives_tab.h"
#include "ui/tabs/history_tab.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

constexpr int revisions = 20'000;
constexpr int paths = 5;
constexpr double million = 1e6;

double milliseconds(const QElapsedTimer &timer) {
    return static_cast<double>(timer.nsecsElapsed()) / million;
}

void report(const char *name, double value, double bound) {
    std::printf("%-52s %8.2f ms  bound %6.1f  ratio %5.2f\n", name, value, bound, value / bound);
}

/// Has printed the log already when it is run; anything else prints nothing.
class PrintedLog final : public Tool {
public:
    QByteArray log{};

    QCoro::Task<SVNCommandResult> run(QStringList arguments, QString, CheckStatus, RunPurpose) override {
        SVNCommandResult result;
        if (arguments.first() == u"log")
            result.stdoutData = log;
        co_return result;
    }
};

void turnOfLoop() {
    QCoreApplication::processEvents();
}

/// Leaves the processor to the workers.
void idle() {
    QThread::usleep(200);
}

struct Bench {
    QTemporaryDir folder{};
    QSettings settings{folder.filePath(u"bench.conf"_s), QSettings::IniFormat};
    WindowInteraction user{};
    AppState app;
    QAction action{};

    explicit Bench(const std::shared_ptr<Tool> &tool) : app(settings, user, Tools{tool, tool, tool}) {
        const Project project{QUuid::createUuid(), u"project"_s, folder.path(), RepositoryKind::svn};
        app.projects = QList<Project>{project};
        app.selectedProjectID = project.id;
    }

    /// Runs `load` until `list` has painted what it published.
    void measure(const char *name, QWidget &tab, const std::function<void()> &load,
                 const std::function<bool()> &isLoaded) {
        tab.resize(1280, 700);
        tab.show();
        QCoreApplication::processEvents();
        QElapsedTimer whole;
        QElapsedTimer turn;
        double longest = 0;
        const auto take = [&](const std::function<void()> &step) {
            turn.start();
            step();
            longest = std::max(longest, milliseconds(turn));
        };
        whole.start();
        take(load);
        while (!isLoaded())
            idle(), take(turnOfLoop);
        take([&] { tab.repaint(); });
        const double untilPainted = milliseconds(whole);
        while (app.busyMessage.value())
            idle(), take(turnOfLoop);
        std::printf("%s\n", name);
        report("  tool's last byte to painted list", untilPainted, 400);
        report("  longest turn of the event loop", longest, 16);
    }
};

void run() {
    const auto tool = std::make_shared<PrintedLog>();
    Bench bench(tool);
    AppState &app = bench.app;
    HistoryTab history(app, {&bench.action, &bench.action, &bench.action, &bench.action, &bench.action});
    ArchivesTab archives(app, &bench.action);
    for (const int count : {revisions, revisions + 1}) {
        tool->log = svnLog(count, paths);
        const auto logIsHere = [&] {
            return app.logEntries.value().size() == count;
        };
        const auto archivesAreHere = [&] {
            return app.archiveEntries.value().size() == count;
        };
        bench.measure(
            "History", history, [&] { app.loadHistory(); }, logIsHere);
        bench.measure(
            "Archives", archives, [&] { app.loadArchives(); }, archivesAreHere);
    }
}

} // namespace
} // namespace kestor

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    kestor::run();
}

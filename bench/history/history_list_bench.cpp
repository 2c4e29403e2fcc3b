// A log of 20,000 revisions with 5 paths each in the History and Archives tabs, and one of 5,000 with as many items out
// of date in the Incoming tab, by the program's own way: from the tool's last byte until the list is painted, and the
// longest time in which the event loop could do nothing else.

#include "../support/measures.h"
#include "log_samples.h"
#include "ui/frame/window_interaction.h"
#include "ui/tabs/archives_tab.h"
#include "ui/tabs/history_tab.h"
#include "ui/tabs/incoming_tab.h"

#include <QAction>
#include <QApplication>
#include <QHash>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

constexpr int revisions = 20'000;
constexpr int incomingRevisions = 5'000;
constexpr int paths = 5;

/// Has printed everything already when it is run.
class PrintedLog final : public Tool {
public:
    QHash<QString, QByteArray> printed{}; ///< by the first argument; anything else prints nothing

    QCoro::Task<SVNCommandResult> run(QStringList arguments, QString, CheckStatus, RunPurpose) override {
        SVNCommandResult result;
        result.stdoutData = printed.value(arguments.first());
        co_return result;
    }
};

/// As many files out of date as there are revisions, below a working copy at revision 0.
QByteArray remoteStatus(int head) {
    QByteArray status = "<status><target path='.'>";
    for (int file = 0; file < head; ++file) {
        status += "<entry path='src/part_" + QByteArray::number(file / 40) + "/file" + QByteArray::number(file) +
                  ".cpp'><wc-status item='normal' props='none' revision='0'/>"
                  "<repos-status item='modified' props='none'/></entry>";
    }
    return status + "<against revision='" + QByteArray::number(head) + "'/></target></status>";
}

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
    void measure(const QByteArray &name, QWidget &tab, const std::function<void()> &load,
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
        report(name + ": last byte to painted list", untilPainted, "ms");
        report(name + ": longest turn of the event loop", longest, "ms");
    }
};

void run() {
    const auto tool = std::make_shared<PrintedLog>();
    Bench bench(tool);
    AppState &app = bench.app;
    QAction *any = &bench.action;
    HistoryTab history(app, {any, any, any, any, any, any});
    ArchivesTab archives(app, &bench.action);
    for (const int count : {revisions, revisions + 1}) {
        tool->printed.insert(u"log"_s, svnLog(count, paths));
        const QByteArray again(count > revisions ? ", again" : "");
        const auto logIsHere = [&] {
            return app.logEntries.value().size() == count;
        };
        const auto archivesAreHere = [&] {
            return app.archiveEntries.value().size() == count;
        };
        bench.measure(
            "History" + again, history, [&] { app.loadHistory(); }, logIsHere);
        bench.measure(
            "Archives" + again, archives, [&] { app.loadArchives(); }, archivesAreHere);
    }
}

void runIncoming() {
    const auto tool = std::make_shared<PrintedLog>();
    Bench bench(tool);
    AppState &app = bench.app;
    IncomingTab incoming(app, &bench.action);
    for (const int count : {incomingRevisions, incomingRevisions + 1}) {
        tool->printed.insert(u"status"_s, remoteStatus(count));
        tool->printed.insert(u"log"_s, svnLog(count, paths));
        const QByteArray again(count > incomingRevisions ? ", again" : "");
        const auto isHere = [&] {
            return app.incomingEntries.value().size() == count;
        };
        bench.measure(
            "Incoming" + again, incoming, [&] { app.incoming.loadIncoming(); }, isHere);
    }
}

} // namespace
} // namespace kestor

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    kestor::run();
    kestor::runIncoming();
}

// What a user waits for in a window that is open already, each time in turn with the tool alone: a refresh that finds
// something new, the diff of another row, and the log. Real projects, real tools; the best of the rounds counts.

#include "../support/measures.h"
#include "controller/log_loading.h"
#include "controller/status_rows.h"
#include "controller/working_diff.h"
#include "sample_project.h"
#include "ui/diff/diff_view.h"
#include "ui/frame/program.h"
#include "ui/list/row_list_view.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>

#include <algorithm>
#include <limits>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

constexpr int files = 20'000;
constexpr int commits = 20'000;
constexpr int revisions = 5'000; ///< of Subversion, whose repositories take long to make
constexpr int refreshes = 10;
constexpr int clicks = 12;
constexpr int loads = 3;
constexpr double noTime = std::numeric_limits<double>::max();

/// Milliseconds that the tool needs, its output read.
double bareRun(RepositoryKind kind, const QStringList &arguments, const QString &directory) {
    QProcess process;
    process.setWorkingDirectory(directory);
    QElapsedTimer timer;
    timer.start();
    process.start(kind == RepositoryKind::git ? u"git"_s : u"svn"_s, arguments);
    process.waitForFinished(-1);
    const QByteArray output = process.readAll();
    if (process.exitCode() != 0 || output.isEmpty())
        qFatal("the tool failed");
    return milliseconds(timer);
}

/// The program's window on a project, at rest.
class OpenWindow {
public:
    explicit OpenWindow(const SampleProject &project)
        : settings(project.configHome + u"/KestorSVN/KestorSVN.conf"_s, QSettings::IniFormat),
          program(settings, systemTools(settings)) {
        waking.start(100);
        program.start();
        rest();
    }
    AppState &app() { return program.state(); }
    template <typename Part>
    Part &part() {
        const QList<Part *> parts = program.window().findChildren<Part *>();
        const auto seen = std::find_if(parts.begin(), parts.end(), [](const Part *part) { return part->isVisible(); });
        if (seen == parts.end())
            qFatal("it is not in the window");
        return **seen;
    }
    template <typename Condition>
    void spinUntil(Condition holds) {
        const QDeadlineTimer patience(60'000);
        while (!holds()) {
            if (patience.hasExpired())
                qFatal("it did not happen");
            QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        }
    }
    void rest() {
        spinUntil([this] { return app().operations.isIdle() && app().workers.activeThreadCount() == 0; });
        QApplication::processEvents();
    }

private:
    QSettings settings;
    Program program;
    QTimer waking{}; ///< so that a wait in vain ends
};

QByteArray named(const char *work, RepositoryKind kind) {
    return QByteArray(work) + '/' + (kind == RepositoryKind::git ? "git" : "svn");
}

/// A file comes or goes before each refresh; until the list with it is painted.
void measureRefresh(RepositoryKind kind) {
    const SampleProject project = sampleProject(kind, files);
    OpenWindow window(project);
    QFile file(project.path + u"/output0/new.dat"_s);
    file.remove();
    double tool = noTime;
    double ours = noTime;
    for (int round = 0; round < refreshes; ++round) {
        if (file.exists() ? !file.remove() : !file.open(QIODevice::WriteOnly))
            qFatal("the project cannot be changed");
        file.close();
        tool = std::min(tool, bareRun(kind, statusArguments(kind), project.path));
        const qsizetype rows = window.app().changes.value().size();
        QElapsedTimer timer;
        timer.start();
        window.app().refreshAll();
        window.spinUntil([&] { return window.app().changes.value().size() != rows; });
        window.part<RowListView>().viewport()->repaint();
        ours = std::min(ours, milliseconds(timer));
        window.rest();
    }
    file.remove();
    report(named("refresh", kind), ours, "ms", tool);
}

/// Another modified file is clicked; until its diff is painted.
void measureClick(RepositoryKind kind) {
    const SampleProject project = sampleProject(kind, files);
    OpenWindow window(project);
    auto &list = window.part<RowListView>();
    int row = static_cast<int>(window.app().changes.value().size());
    double tool = noTime;
    double ours = noTime;
    for (int click = 0; click < clicks; ++click) {
        const QString path = window.app().changes.value().pathAt(--row).toString(); // modified ones come last
        tool = std::min(tool, bareRun(kind, workingDiffArguments(kind, path, u"HEAD"_s), project.path));
        const DiffDocument *before = &window.part<DiffView>().document();
        QElapsedTimer timer;
        timer.start();
        list.setCurrentIndex(list.model()->index(row, 0));
        window.spinUntil([&] { return window.app().diffPath.value() == path; });
        window.spinUntil([&] { return &window.part<DiffView>().document() != before; });
        window.part<DiffView>().viewport()->repaint();
        ours = std::min(ours, milliseconds(timer));
        window.rest();
    }
    report(named("click to diff", kind), ours, "ms", tool);
}

/// The History tab is clicked in a window that has not shown it yet; until its first rows and all of them are painted.
void measureHistory(RepositoryKind kind) {
    const int entries = kind == RepositoryKind::git ? commits : revisions;
    const SampleProject project = sampleHistory(kind, entries);
    double tool = noTime;
    double first = noTime;
    double all = noTime;
    for (int load = 0; load < loads; ++load) {
        tool = std::min(tool, bareRun(kind, logArguments(kind), project.path));
        OpenWindow window(project);
        QElapsedTimer timer;
        timer.start();
        window.app().selectedTab = WorkflowTab::history;
        window.app().tabChanged();
        auto &list = window.part<RowListView>();
        window.spinUntil([&] { return list.model()->rowCount() > 0; });
        list.viewport()->repaint();
        first = std::min(first, milliseconds(timer));
        window.spinUntil([&] { return window.app().logEntries.value().size() >= entries; });
        list.viewport()->repaint();
        all = std::min(all, milliseconds(timer));
        window.rest();
    }
    report(named("first rows of the history", kind), first, "ms", tool);
    report(named("all rows of the history", kind), all, "ms", tool);
}

} // namespace
} // namespace kestor

int main(int argc, char **argv) {
    using namespace kestor;
    const QApplication application(argc, argv);
    setProgramNames();
    for (const RepositoryKind kind : {RepositoryKind::git, RepositoryKind::svn}) {
        measureRefresh(kind);
        measureClick(kind);
        measureHistory(kind);
    }
}

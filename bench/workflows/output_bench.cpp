// What a command that prints 100 MB costs until its output stands in the window: how far memory grows, and the longest
// turn of the main thread.

#include "../support/measures.h"
#include "support/app_fixture.h"
#include "ui/frame/main_window.h"

#include <QApplication>
#include <QFile>

#include <algorithm>
#include <malloc.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::AppFixture;

/// A field of this process's status in MB.
double statusField(const QByteArray &name) {
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        qFatal("no /proc");
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(name))
            return line.mid(name.size()).trimmed().chopped(3).toDouble() / 1000;
    }
    return 0;
}

void forgetPeak() {
    malloc_trim(0);
    QFile peak(u"/proc/self/clear_refs"_s);
    if (!peak.open(QIODevice::WriteOnly) || peak.write("5") != 1)
        qFatal("the peak cannot be forgotten");
}

QCoro::Task<> noteEnd(QCoro::Task<> work, bool *ended) {
    co_await work;
    *ended = true;
}

/// Runs `operation` in a window of its own until everything is read.
template <typename Operation>
void measure(const char *name, AppFixture &f, Operation operation) {
    MainWindow window(f.app, f.settings);
    window.show();
    QApplication::processEvents();
    forgetPeak();
    const double before = statusField("VmRSS:");
    double longest = 0;
    bool ended = false;
    const QCoro::Task<> running = noteEnd(operation(f.app), &ended);
    while (!ended || !QThreadPool::globalInstance()->waitForDone(0)) {
        const double began = ownMilliseconds();
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
        longest = std::max(longest, ownMilliseconds() - began);
    }
    QApplication::processEvents();
    const double grown = statusField("VmHWM:") - before;
    report(QByteArray(name) + ": memory grown", grown, "MB");
    report(QByteArray(name) + ": longest turn, own time", longest, "ms");
}

} // namespace
} // namespace kestor

int main(int argc, char **argv) {
    using namespace kestor;
    const QApplication application(argc, argv);
    testing::TempTree tree;
    tree.write(u"svn"_s, "#!/bin/sh\n"
                         "[ \"$1\" = checkout ] && mkdir \"$3\"\n"
                         "line='A    a/folder/of/a/working/copy/with/a/file/of_an_ordinary_name.cpp'\n"
                         "[ \"$1\" = info ] || yes \"$line\" | head -c 100000000\n"
                         "[ \"$1\" != list ]\n");
    QFile::setPermissions(tree.path(u"svn"_s), QFile::ReadOwner | QFile::ExeOwner);
    qputenv("PATH", QFile::encodeName(tree.path()) + ':' + qgetenv("PATH"));
    const auto run = [](const QString &command) {
        return [command](AppState &app) {
            return app.runCommand(u"Output"_s, {command}, QString(), RefreshAfter::no, ShowOutput::always);
        };
    };
    testing::AppFixture f;
    f.app.projects = QList<Project>{{QUuid::createUuid(), u"p"_s, tree.path(), RepositoryKind::svn}};
    measure("100 MB printed", f, run(u"log"_s));
    f.app.commandOutput = std::nullopt;
    measure("100 MB printed by a run that fails", f, run(u"list"_s));
}

#include "controller/status_run.h"
#include "ui/frame/program.h"
#include "ui/frame/waiting_start.h"
#include "ui/look/early_fonts.h"
#include "ui/start/instance_start.h"
#ifdef KESTOR_WATCH_PAUSES
#include "ui/watch/pause_watch.h"
#endif

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QSettings>
#include <QTimer>

#include <chrono>

namespace {

using namespace std::chrono_literals;
using Outcome = kestor::InstanceStart::Outcome;

/// A running window answers within milliseconds, one that is just starting within some hundred.
constexpr std::chrono::milliseconds patience = 2s;

kestor::OpenRequest requestOf(int argc, char **argv) {
    const QList<QByteArray> words(argv + qMin(argc, 1), argv + argc);
    // The second is what older launchers set.
    const QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    return kestor::openRequest(words, QDir::currentPath(), token.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : token);
}

} // namespace

/// Its arguments are folders to be added as projects; there are no options, not even Qt's own.
int main(int argc, char **argv) {
    kestor::setProgramNames();
    kestor::InstanceStart start(QSettings().fileName(), requestOf(argc, argv));
    Outcome outcome = start.tryFor(patience);
    if (outcome == Outcome::handedOver)
        return EXIT_SUCCESS;
    QSettings settings;
    const kestor::Tools tools = kestor::systemTools(settings);
    // Of a start that shows no window the tool's work would be in vain.
    if (outcome == Outcome::first)
        kestor::beginFirstStatus(settings, tools);
    const std::future<void> fonts = kestor::readFontsEarly();
    int nameAlone = qMin(argc, 1);
    const QApplication application(nameAlone, argv);
    fonts.wait();
    if (outcome == Outcome::unanswered)
        outcome = kestor::waitForAnswer(start);
    if (outcome != Outcome::first)
        return outcome == Outcome::handedOver ? EXIT_SUCCESS : EXIT_FAILURE;
    kestor::Program program(settings, tools);
#ifdef KESTOR_WATCH_PAUSES
    const kestor::PauseWatch pauses(
        kestor::longestTurn, [&program] { return program.state().busyMessage.value().value_or(QString()); },
        kestor::logPause);
#endif
    program.start();
    program.serve(start);
    // Behind what shows the window, which needs no icon for that.
    QTimer::singleShot(0, [] { QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/kestorsvn-64.png"))); });
    return QApplication::exec();
}

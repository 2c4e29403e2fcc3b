#include "controller/status_run.h"
#include "painted_signal.h"
#include "ui/frame/program.h"
#include "ui/look/early_fonts.h"

#include <QApplication>
#include <QSettings>

#include <cstdlib>
#include <unistd.h>

/// The program itself, which tells when it has painted. The argument is the file descriptor of PaintedSignal.
int main(int argc, char **argv) {
    kestor::setProgramNames();
    QSettings settings;
    const kestor::Tools tools = kestor::systemTools(settings);
    kestor::beginFirstStatus(settings, tools);
    const std::future<void> fonts = kestor::readFontsEarly();
    const QApplication application(argc, argv);
    fonts.wait();
    const kestor::PaintedSignal painted(argc > 1 ? std::atoi(argv[1]) : STDOUT_FILENO);
    kestor::Program program(settings, tools);
    program.start();
    return QApplication::exec();
}

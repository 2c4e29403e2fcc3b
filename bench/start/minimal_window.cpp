#include "painted_signal.h"

#include <QApplication>
#include <QMainWindow>

#include <cstdlib>
#include <unistd.h>

/// The least that a program with a window does. The argument is the file descriptor of PaintedSignal.
int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    const kestor::PaintedSignal painted(argc > 1 ? std::atoi(argv[1]) : STDOUT_FILENO);
    QMainWindow window;
    window.resize(1280, 800);
    window.show();
    return QApplication::exec();
}

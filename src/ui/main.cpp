#include "ui/frame/program.h"

#include <QApplication>
#include <QSettings>

int main(int argc, char **argv) {
    const QApplication application(argc, argv);
    kestor::setProgramNames();
    QSettings settings;
    kestor::Program program(settings);
    program.start();
    return QApplication::exec();
}

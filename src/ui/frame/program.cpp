#include "ui/frame/program.h"

#include <QCoreApplication>

namespace kestor {

using namespace Qt::StringLiterals;

void setProgramNames() {
    QCoreApplication::setOrganizationName(u"KestorSVN"_s);
    QCoreApplication::setApplicationName(u"KestorSVN"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTOR_VERSION));
}

Program::Program(QSettings &settings)
    : appState(settings, interaction, systemTools(settings)), mainWindow(appState, settings) {
    interaction.setWindow(&mainWindow);
}

void Program::start() {
    mainWindow.show();
    appState.projectSelectionChanged();
    colors.followDesktop();
}

} // namespace kestor

#include "ui/frame/program.h"

#include "tools/temporary_folder.h"
#include "ui/start/instance_start.h"
#include "ui/start/request_server.h"

#include <QDir>
#include <QGuiApplication>
#include <QSessionManager>

#include <utility>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

constexpr const char *activationVariable = "XDG_ACTIVATION_TOKEN";

} // namespace

void setProgramNames() {
    QCoreApplication::setOrganizationName(u"KestorSVN"_s);
    QCoreApplication::setApplicationName(u"KestorSVN"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTOR_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral(KESTOR_APPLICATION_ID));
}

Program::Program(QSettings &settings, Tools tools)
    : appState(settings, interaction, std::move(tools)), mainWindow(appState, settings), folders(appState) {
    interaction.setWindow(&mainWindow);
}

Program::~Program() {
    leaving.request_stop();
}

void Program::start() {
    mainWindow.show();
    // However much there is to remove: nobody sees the process once its window is closed.
    appState.workers.start([stop = leaving.get_token()] { removeAbandonedFolders(QDir::tempPath(), stop); });
    appState.projectSelectionChanged();
    colors.followDesktop();
}

void Program::serve(const InstanceStart &first) {
    folders.add(first.request().paths);
    requests = std::make_unique<RequestServer>(first.listening(),
                                               [this](const OpenRequest &request) { return open(request); });
    // The next session starts it without Qt's own arguments, which would be read as folders.
    QObject::connect(qApp, &QGuiApplication::saveStateRequest, &mainWindow, [](QSessionManager &session) {
        session.setRestartCommand({QCoreApplication::applicationFilePath()});
    });
}

bool Program::open(const OpenRequest &request) {
    if (mainWindow.isClosed())
        return false;
    // Wayland's plug-in takes it from there.
    qputenv(activationVariable, request.activationToken);
    mainWindow.bringForward();
    qunsetenv(activationVariable);
    folders.add(request.paths);
    return true;
}

} // namespace kestor

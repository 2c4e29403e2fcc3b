#include "ui/frame/desktop.h"

#include "ui/frame/session_bus.h"
#include "ui/frame/terminal_commands.h"

#include <QCoroFuture>
#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

QDBusMessage showFolderCall(const QString &directory) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowFolders"_s);
    call << QStringList{QUrl::fromLocalFile(directory).toString(QUrl::FullyEncoded)} << QString();
    return call;
}

} // namespace

QCoro::Task<bool> showInFileManager(QString directory) {
    const QDBusMessage call = showFolderCall(directory);
    const QFuture<std::optional<QVariantList>> asked = callSessionBus(call);
    const std::optional<QVariantList> answer = co_await asked;
    co_return answer.has_value() || QDesktopServices::openUrl(QUrl::fromLocalFile(directory));
}

TerminalResult startTerminal(const QString &directory) {
    const DesktopEnvironment environment{qEnvironmentVariable("XDG_CURRENT_DESKTOP"), qEnvironmentVariable("TERMINAL")};
    TerminalResult result{TerminalResult::Outcome::notFound, {}};
    for (const TerminalCommand &command : terminalCommands(environment, directory)) {
        const QString program = QStandardPaths::findExecutable(command.program);
        if (program.isEmpty())
            continue;
        QProcess process;
        process.setProgram(program);
        process.setArguments(command.arguments);
        process.setWorkingDirectory(directory);
        if (process.startDetached())
            return {TerminalResult::Outcome::opened, {}};
        result = {TerminalResult::Outcome::failed, process.errorString()};
    }
    return result;
}

} // namespace kestor

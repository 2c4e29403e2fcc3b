#include "controller/path_command_run.h"

#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

void writePaths(QTemporaryFile &file, const QByteArray &content) {
    if (!file.open() || file.write(content) != content.size() || !file.flush())
        throw SVNClientError::launchFailed(u"Could not write the list of paths: "_s + file.errorString());
}

} // namespace

QCoro::Task<SVNCommandResult> runPathCommand(std::shared_ptr<Tool> tool, RepositoryKind kind, QString directory,
                                             PathCommand command) {
    if (!needsPathFile(command)) {
        const QStringList arguments = plainArguments(kind, command);
        co_return co_await tool->run(arguments, directory, CheckStatus::yes);
    }
    QTemporaryFile file;
    writePaths(file, pathFileContent(kind, command));
    const QStringList arguments = argumentsWithPathFile(kind, command, file.fileName());
    co_return co_await tool->run(arguments, directory, CheckStatus::yes);
}

} // namespace kestor

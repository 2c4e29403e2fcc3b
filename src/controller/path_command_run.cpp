#include "controller/path_command_run.h"

#include "tools/temporary_folder.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

void writePaths(const QString &path, const QByteArray &content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        throw SVNClientError::launchFailed(u"Could not write the list of paths: "_s + file.errorString());
}

} // namespace

QCoro::Task<SVNCommandResult> runPathCommand(std::shared_ptr<Tool> tool, RepositoryKind kind, QString directory,
                                             PathCommand command) {
    if (!needsPathFile(command)) {
        const QStringList arguments = plainArguments(kind, command);
        co_return co_await tool->run(arguments, directory, CheckStatus::yes);
    }
    const TemporaryFolder folder;
    const QString file = folder.path() + u"/paths"_s;
    writePaths(file, pathFileContent(kind, command));
    const QStringList arguments = argumentsWithPathFile(kind, command, file);
    co_return co_await tool->run(arguments, directory, CheckStatus::yes);
}

} // namespace kestor

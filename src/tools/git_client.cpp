#include "tools/git_client.h"

#include "tools/child_environment.h"
#include "tools/executable_search.h"

namespace kestor {

using namespace Qt::StringLiterals;

QCoro::Task<SVNCommandResult> GitClient::run(QStringList arguments, QString directory, CheckStatus check,
                                             RunPurpose purpose) {
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const std::optional<QString> executable = resolvedGitPath(environment, isExecutableFile);
    if (!executable) {
        throw SVNClientError::launchFailed(u"Could not find git. Install Apple's command line tools or choose a Git "
                                           "repository only after git is available in PATH."_s);
    }
    const ChildCommand command{*executable, *executable, arguments, directory,
                               gitChildEnvironment(environment, purpose)};
    co_return co_await children.run(command, check);
}

} // namespace kestor

#include "tools/svn_admin_client.h"

#include "tools/child_environment.h"
#include "tools/executable_search.h"
#include "tools/svn_preference.h"

namespace kestor {

using namespace Qt::StringLiterals;

SVNAdminClient::SVNAdminClient(QSettings &settings) : defaults(settings) {}

QCoro::Task<SVNCommandResult> SVNAdminClient::run(QStringList arguments, QString directory, CheckStatus check,
                                                  RunPurpose /*purpose*/) {
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const std::optional<QString> executable =
        resolvedSVNAdminPath(preferredSVNPath(defaults), environment, isExecutableFile);
    if (!executable) {
        throw SVNClientError::launchFailed(u"Could not find svnadmin. Choose an svn executable from SVN > Set svn "
                                           "Executable..., or make svnadmin available in PATH."_s);
    }
    const ChildCommand command{*executable, *executable, arguments, directory, childEnvironment(environment)};
    co_return co_await children.run(command, check);
}

} // namespace kestor

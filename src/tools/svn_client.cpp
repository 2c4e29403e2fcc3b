#include "tools/svn_client.h"

#include "tools/child_environment.h"
#include "tools/executable_search.h"
#include "tools/svn_preference.h"

namespace kestor {

using namespace Qt::StringLiterals;

SVNClient::SVNClient(QSettings &settings) : defaults(settings) {}

QCoro::Task<SVNCommandResult> SVNClient::run(QStringList arguments, QString directory, CheckStatus check,
                                             RunPurpose /*purpose*/) {
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const std::optional<QString> executable =
        resolvedSVNPath(preferredSVNPath(defaults), environment, isExecutableFile);
    if (!executable) {
        throw SVNClientError::launchFailed(u"Could not find svn. Choose an executable from SVN > Set svn "
                                           "Executable..., or make svn available in PATH."_s);
    }
    const ChildCommand command{*executable, displayExecutable(), arguments, directory,
                               svnChildEnvironment(environment)};
    co_return co_await children.run(command, check);
}

QString SVNClient::displayExecutable() const {
    if (defaults.contains(svnExecutablePathKey))
        return preferredSVNPath(defaults);
    return resolvedSVNPath({}, QProcessEnvironment::systemEnvironment(), isExecutableFile).value_or(u"svn from PATH"_s);
}

} // namespace kestor

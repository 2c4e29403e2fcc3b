#include "tools/svn_admin_client.h"

#include "tools/child_environment.h"
#include "tools/executable_search.h"
#include "tools/svn_preference.h"

namespace kestor {

using namespace Qt::StringLiterals;

SearchedTool::Search SVNAdminClient::search(const QString & /*directory*/, RunPurpose /*purpose*/) const {
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const std::optional<QString> executable =
        resolvedSVNAdminPath(preferredSVNPath(defaults), environment, isExecutableFile);
    return {executable, executable.value_or(QString()),
            u"Could not find svnadmin. Choose an svn executable from SVN > Set svn "
            "Executable..., or make svnadmin available in PATH."_s,
            childEnvironment(environment)};
}

} // namespace kestor

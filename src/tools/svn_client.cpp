#include "tools/svn_client.h"

#include "tools/child_environment.h"
#include "tools/executable_search.h"
#include "tools/svn_preference.h"

namespace kestor {

using namespace Qt::StringLiterals;

SearchedTool::Search SVNClient::search(const QString & /*directory*/, RunPurpose /*purpose*/) const {
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const std::optional<QString> executable =
        resolvedSVNPath(preferredSVNPath(defaults), environment, isExecutableFile);
    return {executable, displayExecutable(),
            u"Could not find svn. Choose an executable from SVN > Set svn "
            "Executable..., or make svn available in PATH."_s,
            svnChildEnvironment(environment)};
}

QString SVNClient::displayExecutable() const {
    if (defaults.contains(svnExecutablePathKey))
        return preferredSVNPath(defaults);
    return resolvedSVNPath({}, QProcessEnvironment::systemEnvironment(), isExecutableFile).value_or(u"svn from PATH"_s);
}

} // namespace kestor

#include "tools/git_client.h"

#include "tools/child_environment.h"
#include "tools/executable_search.h"

namespace kestor {

using namespace Qt::StringLiterals;

SearchedTool::Search GitClient::search(const QString &directory, RunPurpose purpose) const {
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const std::optional<QString> executable = resolvedGitPath(environment, isExecutableFile);
    return {executable, executable.value_or(QString()),
            u"Could not find git. Install Apple's command line tools or choose a Git "
            "repository only after git is available in PATH."_s,
            gitChildEnvironment(environment, purpose, directory)};
}

} // namespace kestor

#include "controller/svn_executable.h"

#include "tools/executable_search.h"

namespace kestor {

SVNExecutable svnExecutableInUse(const QString &chosen) {
    using Source = SVNExecutable::Source;
    if (!chosen.isEmpty())
        return {chosen, isExecutableFile(chosen) ? Source::chosen : Source::chosenUnusable};
    const std::optional<QString> found =
        resolvedSVNPath({}, QProcessEnvironment::systemEnvironment(), isExecutableFile);
    return {found.value_or(QString()), found ? Source::found : Source::missing};
}

} // namespace kestor

#include "controller/git_reference.h"

#include "tools/arguments.h"

using namespace Qt::StringLiterals;

namespace kestor {

QCoro::Task<SVNCommandResult> lookedUpReference(std::shared_ptr<Tool> git, QString name, QString directory) {
    return git->run(args(u"rev-parse", u"--verify", u"--quiet", name), directory, CheckStatus::no,
                    RunPurpose::backgroundRead);
}

} // namespace kestor

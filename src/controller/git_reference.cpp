#include "controller/git_reference.h"

#include "tools/arguments.h"

using namespace Qt::StringLiterals;

namespace kestor {

QCoro::Task<SVNCommandResult> lookedUpReference(std::shared_ptr<Tool> git, QString name, QString directory) {
    return git->run(args(u"rev-parse", u"--verify", u"--quiet", name), directory, CheckStatus::no,
                    RunPurpose::backgroundRead);
}

QCoro::Task<QString> emptyTreeBeforeFirstCommit(std::shared_ptr<Tool> git, QString directory) {
    const SVNCommandResult head = co_await lookedUpReference(git, u"HEAD"_s, directory);
    if (head.status == 0)
        co_return QString();
    const SVNCommandResult tree = co_await git->run(args(u"hash-object", u"-t", u"tree", u"/dev/null"), directory,
                                                    CheckStatus::no, RunPurpose::backgroundRead);
    co_return QString::fromLatin1(tree.stdoutData).trimmed();
}

} // namespace kestor

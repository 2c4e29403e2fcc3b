#include "tools/searched_tool.h"

namespace kestor {

QCoro::Task<SVNCommandResult> SearchedTool::run(QStringList arguments, QString directory, CheckStatus check,
                                                RunPurpose purpose) {
    const Search found = search(directory, purpose);
    if (!found.executable)
        throw SVNClientError::launchFailed(found.missing);
    const ChildCommand command{*found.executable, found.displayName, arguments, directory, found.environment};
    co_return co_await children.run(command, check);
}

} // namespace kestor

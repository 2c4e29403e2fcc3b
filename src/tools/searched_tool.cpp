#include "tools/searched_tool.h"

#include <utility>

namespace kestor {

void SearchedTool::begin(const QStringList &arguments, const QString &directory, RunPurpose purpose) {
    if (const Search found = search(directory, purpose); found.executable)
        children.begin({*found.executable, found.displayName, arguments, directory, found.environment});
}

QCoro::Task<SVNCommandResult> SearchedTool::run(QStringList arguments, QString directory, CheckStatus check,
                                                RunPurpose purpose) {
    const ChildCommand started = command(arguments, directory, purpose);
    co_return co_await children.run(started, check);
}

QCoro::Task<SVNCommandResult> SearchedTool::runReading(QStringList arguments, QString directory, RunPurpose purpose,
                                                       OutputReader reader) {
    ChildCommand started = command(arguments, directory, purpose);
    started.reader = std::move(reader);
    co_return co_await children.run(started, CheckStatus::no);
}

ChildCommand SearchedTool::command(const QStringList &arguments, const QString &directory, RunPurpose purpose) const {
    const Search found = search(directory, purpose);
    if (!found.executable)
        throw SVNClientError::launchFailed(found.missing);
    return {*found.executable, found.displayName, arguments, directory, found.environment};
}

} // namespace kestor

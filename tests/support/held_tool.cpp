#include "support/held_tool.h"

#include <QCoroFuture>

namespace kestor::testing {

QCoro::Task<SVNCommandResult> HeldTool::run(QStringList arguments, QString directory, CheckStatus check,
                                            RunPurpose purpose) {
    if (stopped)
        throw SVNClientError::launchFailed(QStringLiteral("stopped"));
    const auto promise = std::make_shared<QPromise<SVNCommandResult>>();
    promise->start();
    runs.append({arguments, directory, purpose, promise});
    const QFuture<SVNCommandResult> future = promise->future();
    const SVNCommandResult result = co_await future;
    if (check == CheckStatus::yes && result.status != 0)
        throw SVNClientError::commandFailed(result);
    co_return result;
}

void HeldTool::stop() {
    stopped = true;
    for (const Run &run : std::as_const(runs)) {
        if (run.promise->future().isFinished())
            continue;
        run.promise->setException(std::make_exception_ptr(SVNClientError::launchFailed(QStringLiteral("stopped"))));
        run.promise->finish();
    }
}

bool HeldTool::finish(const QStringList &arguments, const QByteArray &output, qint32 status, const QByteArray &errors) {
    for (const Run &run : std::as_const(runs)) {
        if (run.arguments != arguments || run.promise->future().isFinished())
            continue;
        run.promise->addResult(SVNCommandResult{arguments.join(u' '), status, output, errors});
        run.promise->finish();
        return true;
    }
    return false;
}

QList<QStringList> HeldTool::vectors() const {
    QList<QStringList> all;
    for (const Run &run : runs)
        all.append(run.arguments);
    return all;
}

} // namespace kestor::testing

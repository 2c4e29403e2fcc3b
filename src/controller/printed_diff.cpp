#include "controller/printed_diff.h"

#include <QCoroFuture>
#include <QtConcurrent>

namespace kestor {

QCoro::Task<LoadedDiff> printedDiff(std::shared_ptr<Tool> tool, Project project, QStringList arguments, QString path,
                                    QThreadPool *workers) {
    SVNCommandResult result;
    try {
        result = co_await tool->run(arguments, project.path, CheckStatus::no, RunPurpose::backgroundRead);
    } catch (const SVNClientError &) {
        // A tool that cannot be run has printed nothing.
    }
    const auto decode = [path, result] {
        return loadedDiff(path, result.stdoutData, result.stderrData);
    };
    co_return co_await QtConcurrent::run(workers, decode);
}

} // namespace kestor

#include "controller/printed_diff.h"

#include "controller/arriving_diff.h"

#include <QCoroFuture>
#include <QtConcurrent>

namespace kestor {

QCoro::Task<LoadedDiff> printedDiff(DiffRun run, QString path, QThreadPool *workers) {
    const auto arriving = std::make_shared<ArrivingDiff>(path);
    const OutputReader reader = [arriving, workers](QByteArrayView printed) {
        if (arriving->add(printed) == ArrivingDiff::Next::decode)
            workers->start([arriving] { arriving->decodeAdded(); });
    };
    SVNCommandResult result;
    try {
        result = co_await run(reader);
    } catch (const SVNClientError &) {
        // A tool that cannot be run has printed nothing. No diff is no reason for an alert on every row.
    }
    const auto decode = [arriving, result] {
        return arriving->diff(result);
    };
    co_return co_await QtConcurrent::run(workers, decode);
}

DiffRun diffRun(std::shared_ptr<Tool> tool, Project project, QStringList arguments) {
    return [=](OutputReader reader) {
        return tool->runReading(arguments, project.path, RunPurpose::backgroundRead, std::move(reader));
    };
}

} // namespace kestor

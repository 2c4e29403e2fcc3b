#include "tools/archive_zip_client.h"

#include "tools/arguments.h"
#include "tools/child_environment.h"
#include "tools/completion.h"
#include "tools/executable_search.h"
#include "tools/shell_escaped.h"
#include "tools/zip_writer.h"

#include <QFutureWatcher>
#include <QtConcurrent>

#include <stop_token>
#include <utility>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

/// A zip that is being written by a worker thread, which goes on for a moment after `stop`.
class ZipJob final : public Stoppable {
public:
    ZipJob(const QString &source, const QString &destination) {
        // Queued: what waits for the end destroys the watcher, which must not happen inside its own functions.
        QObject::connect(
            &watcher, &QFutureWatcherBase::finished, &watcher, [this] { end.complete(); }, Qt::QueuedConnection);
        const std::stop_token token = stopping.get_token();
        watcher.setFuture(QtConcurrent::run([=] { return writeZip(source, destination, token); }));
    }

    void askToEnd() override { stopping.request_stop(); }
    void endWait() override { end.complete(); }
    bool wasStopped() const { return stopping.stop_requested(); }
    QString failure() const { return watcher.result(); }

    Completion end;

private:
    std::stop_source stopping;
    QFutureWatcher<QString> watcher;
};

} // namespace

ArchiveZipClient::ArchiveZipClient(QString executable) : executablePath(std::move(executable)) {}

QCoro::Task<SVNCommandResult> ArchiveZipClient::zipDirectoryKeepingParent(QString sourcePath, QString destinationPath) {
    if (!isExecutableFile(executablePath)) {
        co_return co_await zipWithLibrary(sourcePath, destinationPath);
    }
    const ChildCommand command{.executable = executablePath,
                               .displayName = u"ditto"_s,
                               .arguments = args("-c", "-k", "--keepParent", sourcePath, destinationPath),
                               .environment = childEnvironment(QProcessEnvironment::systemEnvironment())};
    co_return co_await children.run(command, CheckStatus::yes);
}

QCoro::Task<SVNCommandResult> ArchiveZipClient::zipWithLibrary(QString sourcePath, QString destinationPath) {
    if (zips.isStopped())
        throw SVNClientError::launchFailed(u"Could not launch zip: The application is closing."_s);
    ZipJob job(sourcePath, destinationPath);
    const Running::Entry entry(zips, &job);
    co_await job.end;
    if (job.wasStopped())
        throw SVNClientError::launchFailed(u"zip was stopped: The application is closing."_s);
    SVNCommandResult result{.commandLine = u"zip (libarchive) "_s + shellEscaped(args(sourcePath, destinationPath))};
    result.stderrData = job.failure().toUtf8();
    if (!result.stderrData.isEmpty()) {
        result.status = 1;
        throw SVNClientError::commandFailed(std::move(result));
    }
    co_return result;
}

void ArchiveZipClient::stop() {
    children.stop();
    zips.stop();
}

} // namespace kestor

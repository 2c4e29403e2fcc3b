#pragma once

#include "tools/child_process.h"
#include "tools/command_result.h"
#include "tools/running.h"

#include <QCoroTask>
#include <QString>

namespace kestor {

/// Writes zip files: with /usr/bin/ditto where it exists, elsewhere with libarchive on a worker thread. Main thread
/// only; several zips may be written at once.
class ArchiveZipClient {
public:
    explicit ArchiveZipClient(QString executable = QStringLiteral("/usr/bin/ditto"));

    /// Writes a zip at `destinationPath` whose single top-level entry is the folder `sourcePath` itself, with modes,
    /// times and symbolic links kept (links are stored as links, never followed). Throws SVNClientError. libarchive
    /// leaves nothing behind of a zip that could not be completed, and an older file as it was; its result has the
    /// command line "zip (libarchive) SOURCE DESTINATION".
    QCoro::Task<SVNCommandResult> zipDirectoryKeepingParent(QString sourcePath, QString destinationPath);
    /// For closing, as Tool::stop.
    void stop();

private:
    QCoro::Task<SVNCommandResult> zipWithLibrary(QString sourcePath, QString destinationPath);

    QString executablePath;
    ChildProcesses children;
    Running zips;
};

} // namespace kestor

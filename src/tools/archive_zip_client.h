#pragma once

#include "tools/command_result.h"

#include <QCoroTask>
#include <QString>

namespace kestor {

/// Writes zip files: with /usr/bin/ditto where it exists, elsewhere with libarchive on a worker thread.
class ArchiveZipClient {
public:
    explicit ArchiveZipClient(QString executable = QStringLiteral("/usr/bin/ditto"));

    /// Writes a zip at `destinationPath` whose single top-level entry is the folder `sourcePath` itself, with modes,
    /// times and symbolic links kept (links are stored as links, never followed). Throws SVNClientError; a file that
    /// could not be completed is removed.
    QCoro::Task<SVNCommandResult> zipDirectoryKeepingParent(QString sourcePath, QString destinationPath);

private:
    QString executablePath;
};

} // namespace kestor

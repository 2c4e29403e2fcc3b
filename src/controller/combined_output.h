#pragma once

#include "model/command_output.h"
#include "model/repository_info.h"
#include "tools/command_result.h"

#include <QString>
#include <QStringList>

namespace kestor {

/// The output record of a workflow that ran several commands: the trimmed parts, empty ones left out, with a blank line
/// between them.
CommandOutput combinedOutput(const QString &title, const QString &commandLine, qint32 status,
                             const QStringList &stdoutParts, const QStringList &stderrParts);

/// The output record of one run, with its texts as printed.
CommandOutput commandOutputOf(const QString &title, const SVNCommandResult &result);

/// What an alert says of a failed run: its standard error, else its standard output, else its status.
QString failureMessage(const CommandOutput &output);

/// The fields of `info` that are present, one labelled line each.
QString repositoryInfoText(const RepositoryInfo &info);

} // namespace kestor

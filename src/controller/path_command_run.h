#pragma once

#include "controller/path_command.h"
#include "tools/tool.h"

#include <QCoroTask>
#include <QString>

#include <memory>

namespace kestor {

/// Runs the command in `directory`, its paths handed over by file when they are too many. Throws SVNClientError when
/// the tool does not start or exits non-zero.
QCoro::Task<SVNCommandResult> runPathCommand(std::shared_ptr<Tool> tool, RepositoryKind kind, QString directory,
                                             PathCommand command);

} // namespace kestor

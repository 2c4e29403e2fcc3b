#pragma once

#include "model/project.h"
#include "tools/tool.h"

#include <memory>

namespace kestor {

/// Runs the vector that lists the local changes. Git may renew its index meanwhile when the user asked for them;
/// without room for a new one it lists them all the same. Throws as Tool::run does with CheckStatus::yes.
QCoro::Task<SVNCommandResult> runStatus(std::shared_ptr<Tool> tool, Project project, RunPurpose purpose);

} // namespace kestor

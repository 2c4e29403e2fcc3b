#pragma once

#include "model/project.h"
#include "tools/tool.h"

#include <QSettings>

#include <memory>

namespace kestor {

struct Tools;

/// Begins the status run of the project that a start of the program shows, as Tool::begin does.
void beginFirstStatus(QSettings &settings, const Tools &tools);

/// Runs the vector that lists the local changes. Git may renew its index meanwhile when the user asked for them;
/// without room for a new one it lists them all the same. Throws as Tool::run does with CheckStatus::yes.
QCoro::Task<SVNCommandResult> runStatus(std::shared_ptr<Tool> tool, Project project, RunPurpose purpose);

} // namespace kestor

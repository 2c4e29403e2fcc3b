#pragma once

#include "controller/working_diff.h"
#include "model/project.h"
#include "tools/tool.h"

#include <QCoroTask>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class QThreadPool;

namespace kestor {

/// A run whose output is read by what it is given.
using DiffRun = std::function<QCoro::Task<SVNCommandResult>(OutputReader reader)>;

/// The run of `tool` with `arguments` in the folder of the project.
DiffRun diffRun(std::shared_ptr<Tool> tool, Project project, QStringList arguments);

/// The diff that a run prints, as published for the file at `path`. It never throws: no diff is no reason for an alert
/// on every row. Decodes on `workers`, which must outlive the task.
QCoro::Task<LoadedDiff> printedDiff(DiffRun run, QString path, QThreadPool *workers);

} // namespace kestor

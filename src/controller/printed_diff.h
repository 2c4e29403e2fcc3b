#pragma once

#include "controller/working_diff.h"
#include "tools/tool.h"

#include <QCoroTask>
#include <QString>
#include <QStringList>

#include <memory>

class QThreadPool;

namespace kestor {

/// The diff that `tool` prints with `arguments` in the folder of the project, as published for the file at `path`. It
/// never throws: no diff is no reason for an alert on every row. Decodes on `workers`, which must outlive the task.
QCoro::Task<LoadedDiff> printedDiff(std::shared_ptr<Tool> tool, Project project, QStringList arguments, QString path,
                                    QThreadPool *workers);

} // namespace kestor

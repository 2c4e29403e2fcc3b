#include "controller/status_run.h"

#include "controller/status_rows.h"

namespace kestor {

QCoro::Task<SVNCommandResult> runStatus(std::shared_ptr<Tool> tool, Project project, RunPurpose purpose) {
    const QStringList arguments = statusArguments(project.kind);
    if (project.kind == RepositoryKind::git && purpose == RunPurpose::userCommand) {
        const SVNCommandResult result = co_await tool->run(arguments, project.path, CheckStatus::no, purpose);
        if (result.status == 0)
            co_return result;
        purpose = RunPurpose::backgroundRead;
    }
    co_return co_await tool->run(arguments, project.path, CheckStatus::yes, purpose);
}

} // namespace kestor

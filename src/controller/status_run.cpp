#include "controller/status_run.h"

#include "controller/status_rows.h"
#include "controller/workspace.h"
#include "model/project_store.h"

namespace kestor {

void beginFirstStatus(QSettings &settings, const Tools &tools) {
    const QList<Project> projects = ProjectStore(settings).load();
    if (projects.isEmpty())
        return;
    const Project &first = projects.first();
    tools.of(first.kind)->begin(statusArguments(first.kind), first.path, RunPurpose::backgroundRead);
}

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

#include "controller/path_command_run.h"
#include "controller/workspace.h"

using namespace Qt::StringLiterals;

namespace kestor {

QCoro::Task<> Workspace::runCommand(QString title, QStringList arguments, QString workingDirectory,
                                    RefreshAfter refreshAfter, ShowOutput showOutput, BusyKind work) {
    return reporting(title + u" Failed"_s, runToolCommand(RepositoryKind::svn, title, {arguments, {}, {}},
                                                          workingDirectory, refreshAfter, showOutput, work));
}

QCoro::Task<> Workspace::runGitCommand(QString title, QStringList arguments, QString workingDirectory,
                                       RefreshAfter refreshAfter, ShowOutput showOutput) {
    return reporting(title + u" Failed"_s, runToolCommand(RepositoryKind::git, title, {arguments, {}, {}},
                                                          workingDirectory, refreshAfter, showOutput));
}

QCoro::Task<> Workspace::runToolCommand(RepositoryKind kind, QString title, PathCommand command,
                                        QString workingDirectory, RefreshAfter refreshAfter, ShowOutput showOutput,
                                        BusyKind work) {
    CommandOutput output;
    {
        const BusyScope running(busy, title, work);
        SVNCommandResult result = co_await runPathCommand(toolFor(kind), kind, workingDirectory, command);
        output = co_await outputOf(title, std::move(result));
    }
    if (showOutput == ShowOutput::always || !output.stdoutText.isEmpty() || !output.stderrText.isEmpty()) {
        release(commandOutput.value());
        commandOutput = output;
    }
    if (refreshAfter == RefreshAfter::yes)
        co_await reloadAfterChange();
}

QCoro::Task<> Workspace::runSelectedProjectCommand(QString title, QStringList arguments, RefreshAfter refreshAfter,
                                                   ShowOutput showOutput) {
    return runInSelectedProject(RepositoryKind::svn, title, arguments, refreshAfter, showOutput);
}

QCoro::Task<> Workspace::runSelectedGitCommand(QString title, QStringList arguments, RefreshAfter refreshAfter,
                                               ShowOutput showOutput) {
    return runInSelectedProject(RepositoryKind::git, title, arguments, refreshAfter, showOutput);
}

QCoro::Task<> Workspace::runInSelectedProject(RepositoryKind kind, QString title, QStringList arguments,
                                              RefreshAfter refreshAfter, ShowOutput showOutput) {
    const std::optional<Project> project = requiredProject(kind);
    if (!project)
        co_return;
    const PathCommand command{arguments, {}, {}};
    const QString failureTitle = title + u" Failed"_s;
    co_await reporting(failureTitle, runToolCommand(kind, title, command, project->path, refreshAfter, showOutput));
}

QCoro::Task<> Workspace::runAskedCommand(Project project, QString title, QStringList arguments,
                                         RefreshAfter refreshAfter) {
    return runPathsCommand(project, title, {arguments, {}, {}}, refreshAfter);
}

QCoro::Task<> Workspace::runPathsCommand(Project project, QString title, PathCommand command,
                                         RefreshAfter refreshAfter) {
    const BusyKind work = refreshAfter == RefreshAfter::no ? BusyKind::interruptible : BusyKind::command;
    return reporting(title + u" Failed"_s, runToolCommand(project.kind, title, command, project.path, refreshAfter,
                                                          ShowOutput::always, work));
}

} // namespace kestor

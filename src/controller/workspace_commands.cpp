#include "controller/combined_output.h"
#include "controller/workspace.h"

using namespace Qt::StringLiterals;

namespace kestor {

QCoro::Task<> Workspace::runCommand(QString title, QStringList arguments, QString workingDirectory,
                                    RefreshAfter refreshAfter, ShowOutput showOutput) {
    return reporting(title + u" Failed"_s,
                     runToolCommand(RepositoryKind::svn, title, arguments, workingDirectory, refreshAfter, showOutput));
}

QCoro::Task<> Workspace::runGitCommand(QString title, QStringList arguments, QString workingDirectory,
                                       RefreshAfter refreshAfter, ShowOutput showOutput) {
    return reporting(title + u" Failed"_s,
                     runToolCommand(RepositoryKind::git, title, arguments, workingDirectory, refreshAfter, showOutput));
}

QCoro::Task<> Workspace::runToolCommand(RepositoryKind kind, QString title, QStringList arguments,
                                        QString workingDirectory, RefreshAfter refreshAfter, ShowOutput showOutput) {
    SVNCommandResult result;
    {
        const BusyScope running(busy, title);
        const std::shared_ptr<Tool> tool = toolFor(kind);
        result = co_await tool->run(arguments, workingDirectory, CheckStatus::yes);
    }
    if (showOutput == ShowOutput::always || !result.stdoutData.isEmpty() || !result.stderrData.isEmpty())
        commandOutput = commandOutputOf(title, result);
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
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    if (project->kind == RepositoryKind::git && kind == RepositoryKind::svn) {
        showAlert(u"SVN Command Unavailable"_s,
                  u"This project is a Git repository. Use Git-backed actions from Changes and History."_s);
        co_return;
    }
    if (project->kind == RepositoryKind::svn && kind == RepositoryKind::git) {
        showAlert(u"Git Command Unavailable"_s, u"This project is an SVN working copy."_s);
        co_return;
    }
    const QString failureTitle = title + u" Failed"_s;
    co_await reporting(failureTitle, runToolCommand(kind, title, arguments, project->path, refreshAfter, showOutput));
}

QCoro::Task<> Workspace::runAskedCommand(Project project, QString title, QStringList arguments,
                                         RefreshAfter refreshAfter) {
    if (project.kind == RepositoryKind::git)
        return runGitCommand(title, arguments, project.path, refreshAfter, ShowOutput::always);
    return runCommand(title, arguments, project.path, refreshAfter, ShowOutput::always);
}

} // namespace kestor

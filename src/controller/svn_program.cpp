#include "controller/svn_program.h"

#include "tools/argument_line.h"
#include "tools/svn_preference.h"

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

constexpr qsizetype longestTitle = 60;

QString titleOf(const QString &subcommand) {
    return u"svn "_s + (subcommand.size() > longestTitle ? subcommand.first(longestTitle) + u'…' : subcommand);
}

} // namespace

QCoro::Task<> SvnProgram::runCustomSVNCommand() {
    const RunningOperations::Scope running(workspace.operations);
    const QList<PromptField> fields{{u"arguments"_s, u"Arguments"_s, QString()}};
    const std::optional<QMap<QString, QString>> answer = co_await workspace.user.prompt(u"Run svn Command"_s, fields);
    const QString line = answer ? answer->value(u"arguments"_s) : QString();
    if (!line.isEmpty())
        co_await runTyped(line);
}

QCoro::Task<> SvnProgram::runTyped(QString line) {
    QStringList arguments;
    try {
        arguments = parseArgumentLine(line);
    } catch (const ArgumentParsingError &error) {
        workspace.showAlert(u"Could Not Parse Arguments"_s, error.errorDescription());
        co_return;
    }
    if (arguments.isEmpty()) {
        workspace.showAlert(u"No Arguments"_s, u"Enter svn arguments to run."_s);
        co_return;
    }
    const std::optional<Project> project = workspace.selectedProject();
    const QString directory = project ? project->path : QString();
    const RefreshAfter refreshAfter = project ? RefreshAfter::yes : RefreshAfter::no;
    co_await workspace.runCommand(titleOf(arguments.first()), arguments, directory, refreshAfter, ShowOutput::always);
}

QCoro::Task<> SvnProgram::showSVNHelp() {
    return workspace.runCommand(u"svn Help"_s, {u"help"_s}, QString(), RefreshAfter::no, ShowOutput::always);
}

QCoro::Task<> SvnProgram::showSVNVersion() {
    return workspace.runCommand(u"svn Version"_s, {u"--version"_s}, QString(), RefreshAfter::no, ShowOutput::always);
}

QCoro::Task<> SvnProgram::setSVNExecutable() {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<QString> file = co_await workspace.user.chooseFile(u"Choose svn Executable"_s);
    if (file)
        storeExecutable(*file);
}

QCoro::Task<> SvnProgram::useSVNFromPath() {
    storeExecutable(QString());
    co_return;
}

void SvnProgram::storeExecutable(const QString &path) {
    if (path.isEmpty())
        workspace.preferences.remove(svnExecutablePathKey);
    else
        workspace.preferences.setValue(svnExecutablePathKey, path);
    workspace.svnExecutablePath = path;
    workspace.writePreferences();
}

} // namespace kestor

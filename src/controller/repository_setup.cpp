#include "controller/repository_setup.h"

#include "controller/combined_output.h"
#include "controller/commit_plan.h"
#include "controller/path_targets.h"
#include "controller/repository_addresses.h"
#include "controller/repository_detection.h"
#include "tools/arguments.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

using Answer = std::optional<QMap<QString, QString>>;

/// The text of one field; "" when the prompt was cancelled.
QString typedText(const Answer &answer, const QString &key) {
    return answer ? answer->value(key) : QString();
}

QStringList messageArguments(const QString &message, const QString &directory) {
    const bool isForced = messageNamesFile(message, directory) == MessageNamesFile::yes;
    return args(u"-m", message) + (isForced ? args(u"--force-log") : QStringList());
}

/// The same failure with a further sentence.
SVNClientError withSentence(const SVNClientError &failure, const QString &sentence) {
    if (sentence.isEmpty())
        return failure;
    const SVNCommandResult *result = failure.failedResult();
    if (result == nullptr)
        return SVNClientError::launchFailed(failure.errorDescription() + u'\n' + sentence);
    SVNCommandResult told = *result;
    // What stands on standard error hides the other output.
    QByteArray &words = told.stderrData.isEmpty() ? told.stdoutData : told.stderrData;
    if (words.isEmpty())
        words = failure.errorDescription().toUtf8();
    words += (words.endsWith('\n') ? "" : "\n") + sentence.toUtf8();
    return SVNClientError::commandFailed(told);
}

} // namespace

RepositorySetup::RepositorySetup(Workspace &shared) : workspace(shared) {}

bool RepositorySetup::refuses(const std::optional<Refusal> &refusal) {
    if (refusal)
        workspace.showAlert(refusal->title, refusal->message);
    return refusal.has_value();
}

QCoro::Task<> RepositorySetup::createSVNRepository() {
    const RunningOperations::Scope running(workspace.operations);
    const NewFolderTexts texts{.title = u"Create SVN Repository"_s,
                               .message = u"Choose the name and parent folder for the local SVN working copy."_s,
                               .button = u"Create"_s,
                               .nameLabel = u"Repository Name:"_s,
                               .name = u"NewRepository"_s};
    const std::optional<QString> chosen = co_await workspace.user.chooseNewFolder(texts);
    if (!chosen)
        co_return;
    const std::optional<NewRepository> folders = newRepositoryAt(*chosen);
    if (!folders) {
        workspace.showAlert(u"Repository Name Required"_s, u"Choose a folder name for the new SVN repository."_s);
        co_return;
    }
    if (refuses(standingRepositoryRefusal(*folders)))
        co_return;
    co_await workspace.reporting(u"Create SVN Repository Failed"_s, create(*folders));
}

QCoro::Task<> RepositorySetup::create(NewRepository folders) {
    SVNCommandResult result;
    std::optional<SVNClientError> failure;
    try {
        result = co_await createAndCheckOut(folders);
    } catch (const SVNClientError &error) {
        failure = error;
    }
    if (failure)
        throw withSentence(*failure, remainsText(folders.repository));
    const QCoro::Task<> adding = workspace.addProject(folders.workingCopy, RepositoryKind::svn);
    const QString text =
        u"Created repository at "_s + folders.repository + u"\nCreated working copy at "_s + folders.workingCopy;
    workspace.commandOutput =
        combinedOutput(u"Create SVN Repository"_s, result.commandLine, result.status, QStringList(text), QStringList());
    co_await adding;
}

QCoro::Task<SVNCommandResult> RepositorySetup::createAndCheckOut(NewRepository folders) {
    const QString parent = QFileInfo(folders.workingCopy).path();
    SVNCommandResult created;
    {
        const BusyScope creating(workspace.busy, u"Creating repository"_s);
        created = co_await workspace.tools.svnAdmin->run(args(u"create", folders.repository), parent, CheckStatus::yes);
    }
    const BusyScope checkingOut(workspace.busy, u"Checking out working copy"_s);
    const QString url = svnURLTarget(fileURL(folders.repository));
    SVNCommandResult result =
        co_await workspace.tools.svn->run(args(u"checkout", url, folders.workingCopy), parent, CheckStatus::yes);
    result.commandLine = created.commandLine + u"; "_s + result.commandLine;
    co_return result;
}

QCoro::Task<std::optional<QString>> RepositorySetup::chosenDestination(QString panelTitle, QString promptTitle,
                                                                       QString offeredName,
                                                                       StandingRefusal standingRefusal) {
    const std::optional<QString> parent = co_await workspace.user.chooseDirectory(panelTitle);
    if (!parent)
        co_return std::nullopt;
    const QList<PromptField> fields{{u"name"_s, u"Folder Name"_s, offeredName}};
    const Answer answer = co_await workspace.user.prompt(promptTitle, fields);
    if (!answer)
        co_return std::nullopt;
    const QString name = answer->value(u"name"_s);
    const QString destination = folderIn(*parent, name);
    if (refuses(folderNameRefusal(name)) || refuses(standingRefusal(destination)))
        co_return std::nullopt;
    co_return destination;
}

QCoro::Task<> RepositorySetup::checkoutRepository() {
    const RunningOperations::Scope running(workspace.operations);
    const QList<PromptField> fields{{u"url"_s, u"Repository URL"_s, QString()}};
    const Answer answer = co_await workspace.user.prompt(u"Checkout"_s, fields);
    const QString url = typedText(answer, u"url"_s);
    if (url.isEmpty() || refuses(addressRefusal(url)))
        co_return;
    const std::optional<QString> destination = co_await chosenDestination(
        u"Choose Checkout Parent Folder"_s, u"Checkout Folder"_s, offeredFolderName(url), standingDestinationRefusal);
    if (!destination)
        co_return;
    const Checkout checkout{repositoryKindOf(url), url, *destination};
    co_await workspace.reporting(u"Checkout Failed"_s, checkOut(checkout));
}

QCoro::Task<> RepositorySetup::checkOut(Checkout checkout) {
    const bool isGit = checkout.kind == RepositoryKind::git;
    const QStringList arguments = isGit ? args(u"clone", checkout.url, checkout.destination)
                                        : args(u"checkout", svnURLTarget(checkout.url), checkout.destination);
    const QString parent = QFileInfo(checkout.destination).path();
    CommandOutput output;
    std::optional<SVNClientError> failure;
    {
        const BusyScope checkingOut(workspace.busy, isGit ? u"Cloning repository"_s : u"Checking out working copy"_s,
                                    BusyKind::interruptible);
        const std::shared_ptr<Tool> tool = workspace.toolFor(checkout.kind);
        try {
            SVNCommandResult result = co_await tool->run(arguments, parent, CheckStatus::yes);
            output = co_await workspace.outputOf(u"Checkout"_s, std::move(result));
        } catch (const SVNClientError &error) {
            failure = error;
        }
    }
    if (failure)
        co_await giveUpCheckout(checkout, *failure);
    else
        co_await publishCheckout(checkout, output);
}

QCoro::Task<> RepositorySetup::publishCheckout(Checkout checkout, CommandOutput output) {
    std::optional<QCoro::Task<>> adding;
    if (QFileInfo::exists(checkout.destination))
        adding = workspace.addProject(checkout.destination, checkout.kind);
    workspace.commandOutput = output;
    if (adding)
        co_await *adding;
}

QCoro::Task<> RepositorySetup::giveUpCheckout(Checkout checkout, SVNClientError failure) {
    const QString remains = remainsText(checkout.destination);
    const bool isUsable = co_await isWorkingCopy(checkout);
    if (isUsable)
        co_await workspace.addProject(checkout.destination, checkout.kind);
    throw withSentence(failure, remains);
}

QCoro::Task<bool> RepositorySetup::isWorkingCopy(Checkout checkout) {
    const std::shared_ptr<Tool> tool = workspace.toolFor(checkout.kind);
    std::optional<QString> root;
    if (checkout.kind == RepositoryKind::git)
        root = co_await gitWorkingCopyRoot(tool, checkout.destination);
    else
        root = co_await svnWorkingCopyRoot(tool, checkout.destination);
    co_return root &&isSameFolder(*root, checkout.destination);
}

QCoro::Task<> RepositorySetup::importDirectory() {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<QString> folder = co_await workspace.user.chooseDirectory(u"Choose Directory To Import"_s);
    if (!folder)
        co_return;
    const QList<PromptField> fields{{u"url"_s, u"Repository URL"_s, QString()},
                                    {u"message"_s, u"Message"_s, u"Initial import"_s}};
    const Answer answer = co_await workspace.user.prompt(u"Import"_s, fields);
    const QString url = typedText(answer, u"url"_s);
    if (url.isEmpty() || refuses(addressRefusal(url)))
        co_return;
    // The one command that takes "@" in both as it stands.
    const QStringList arguments =
        args(u"import", *folder, url) + messageArguments(answer->value(u"message"_s), *folder);
    co_await workspace.runCommand(u"Import"_s, arguments, *folder, RefreshAfter::no, ShowOutput::always);
}

QCoro::Task<> RepositorySetup::exportRepository() {
    const RunningOperations::Scope running(workspace.operations);
    const QList<PromptField> fields{{u"source"_s, u"URL Or Path"_s, QString()}};
    const Answer answer = co_await workspace.user.prompt(u"Export"_s, fields);
    const QString source = exportTarget(typedText(answer, u"source"_s));
    if (source.isEmpty() || refuses(addressRefusal(source)))
        co_return;
    const std::optional<QString> destination = co_await chosenDestination(
        u"Choose Export Destination Parent"_s, u"Export Folder"_s, QString(), standingExportRefusal);
    if (!destination)
        co_return;
    const std::optional<Project> project = workspace.selectedProject();
    const QString directory = project ? project->path : QFileInfo(*destination).path();
    const QStringList arguments = args(u"export", source, svnTarget(*destination));
    co_await workspace.runCommand(u"Export"_s, arguments, directory, RefreshAfter::no, ShowOutput::always,
                                  BusyKind::interruptible);
}

QString RepositorySetup::exportTarget(const QString &source) const {
    const std::optional<Project> project = workspace.selectedProject();
    if (project && workspace.isKnownPath(*project, source))
        return svnTarget(source);
    const bool isStanding = QFileInfo(source).isAbsolute() && QFileInfo::exists(source);
    return isStanding ? svnTarget(source) : svnURLTarget(source);
}

QCoro::Task<> RepositorySetup::makeRemoteDirectory() {
    const RunningOperations::Scope running(workspace.operations);
    const std::optional<Project> project = workspace.requiredProject(RepositoryKind::svn);
    if (!project)
        co_return;
    const QList<PromptField> fields{
        {u"url"_s, u"Repository URL"_s, workspace.repositoryInfo.value().url.value_or(QString())},
        {u"message"_s, u"Message"_s, QString()}};
    const Answer answer = co_await workspace.user.prompt(u"Remote Directory"_s, fields);
    const QString url = typedText(answer, u"url"_s);
    const QString message = typedText(answer, u"message"_s);
    if (url.isEmpty() || message.isEmpty() || refuses(addressRefusal(url)))
        co_return;
    const QStringList arguments = args(u"mkdir", svnNewURLTarget(url)) + messageArguments(message, project->path);
    co_await workspace.runSelectedProjectCommand(u"Remote Directory"_s, arguments, RefreshAfter::no,
                                                 ShowOutput::always);
}

} // namespace kestor

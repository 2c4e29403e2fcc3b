#include "controller/app_state.h"
#include "controller/archive_names.h"
#include "controller/arriving_log.h"
#include "controller/combined_output.h"
#include "controller/tool_text.h"
#include "controller/written_file.h"
#include "parsers/svn_xml_parsers.h"
#include "tools/arguments.h"
#include "tools/temporary_folder.h"

#include <QCoroFuture>
#include <QFileInfo>
#include <QtConcurrent>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// Leaves a file alone that the user was not asked about, because its name was completed afterwards.
FileBeside placeFor(const QString &chosenPath, const QString &destination) {
    if (destination != chosenPath && QFileInfo::exists(destination))
        return {nullptr, {}, destination + u" already exists."_s};
    return placeBeside(destination);
}

/// The URL of the working copy with the revision as its peg. Throws SVNClientError.
QCoro::Task<QString> svnArchiveSource(std::shared_ptr<Tool> svn, Project project, QString revision) {
    const SVNCommandResult result =
        co_await svn->run(args(u"info", u"--xml"), project.path, CheckStatus::yes, RunPurpose::backgroundRead);
    const QString url = parsedOutput<InfoParser>(result.stdoutData).url.value_or(QString());
    if (url.isEmpty()) {
        throw SVNClientError::launchFailed(u"Could not determine the SVN repository URL for "_s + project.path + u'.');
    }
    co_return url + u'@' + revision;
}

} // namespace

QCoro::Task<> AppState::refreshArchives() {
    const RunningOperations::Scope running(operations);
    const bool isLoadable = co_await refreshSelectedProjectKind();
    if (!isLoadable)
        co_return;
    co_await loadInfo();
    co_await loadArchives();
}

QCoro::Task<> AppState::loadArchives() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = selectedProject();
    if (!project)
        co_return;
    const quint64 generation = ++archivesGeneration;
    const std::function<bool()> isRelevant = [this, project, generation] {
        return isCurrent(*project, generation, archivesGeneration);
    };
    co_await reporting(u"Archives Failed"_s, loadArchivesOf(*project, generation), isRelevant);
}

QCoro::Task<> AppState::loadArchivesOf(Project project, quint64 generation) {
    const BusyScope loading(busy, loadingArchives.toString(), BusyKind::load);
    const quint64 changesBefore = repositoryChanges;
    const QByteArray output = co_await printedLog(toolFor(project.kind), project);
    const QList<QList<LogEntry>> known{archiveEntries, logEntries};
    const auto read = [kind = project.kind, output, known] {
        ArrivingLog log(kind);
        return loadedLog(log, output, known);
    };
    const QList<LogEntry> entries = co_await QtConcurrent::run(&workers, read);
    if (!isCurrent(project, generation, archivesGeneration))
        co_return;
    publishArchives(entries);
    release(output);
    archivesLoadedAt = changesBefore;
}

void AppState::publishArchives(const QList<LogEntry> &entries) {
    const QList<LogEntry> before = archiveEntries;
    const std::optional<qint64> selected = revisionAfterLoad(selectedArchiveEntryID, before, entries);
    archiveEntries = entries;
    archivesLoaded = true;
    selectedArchiveEntryID = entryWithRevision(entries, selected) ? selected : std::nullopt;
    release(before);
}

void AppState::resetArchives() {
    ++archivesGeneration;
    const QList<LogEntry> before = archiveEntries;
    archiveEntries = QList<LogEntry>();
    archivesLoaded = false;
    archivesLoadedAt = repositoryChanges;
    selectedArchiveEntryID = std::nullopt;
    release(before);
}

std::optional<LogEntry> AppState::selectedArchiveEntry() const {
    return entryWithRevision(archiveEntries, selectedArchiveEntryID);
}

std::optional<LogEntry> AppState::entryToArchive() const {
    if (selectedTab.value() == WorkflowTab::history)
        return entryWithRevision(logEntries, selectedRevision);
    return selectedArchiveEntry();
}

QCoro::Task<> AppState::createArchiveZip() {
    const RunningOperations::Scope running(operations);
    const std::optional<Project> project = requiredProject();
    if (!project)
        co_return;
    const std::optional<LogEntry> entry = entryToArchive();
    if (!entry) {
        showAlert(u"No Archive Selected"_s, u"Select a revision or commit in Archives first."_s);
        co_return;
    }
    const QString name = archiveRootName(*project, *entry) + u".zip"_s;
    const std::optional<QString> chosen = co_await user.chooseSaveFile(u"Create Archive Zip"_s, u"Create Zip"_s, name);
    if (chosen)
        co_await reporting(u"Create Archive Zip Failed"_s, writeArchive(*project, *entry, *chosen));
}

QCoro::Task<> AppState::writeArchive(Project project, LogEntry entry, QString chosenPath) {
    const QString destination = archiveFileName(chosenPath);
    SVNCommandResult result;
    {
        const BusyScope creating(busy, u"Creating archive"_s, BusyKind::interruptible);
        const auto create = [chosenPath, destination] {
            return placeFor(chosenPath, destination);
        };
        const FileBeside file = co_await QtConcurrent::run(&workers, create);
        if (!file.failure.isEmpty())
            throw SVNClientError::launchFailed(file.failure);
        result = co_await writeArchiveBeside(project, entry, file, destination);
        result.commandLine.replace(file.path, destination);
    }
    commandOutput = combinedOutput(u"Create Archive Zip"_s, result.commandLine, result.status,
                                   QStringList(u"Created "_s + destination), QStringList());
}

QCoro::Task<SVNCommandResult> AppState::writeArchiveBeside(Project project, LogEntry entry, FileBeside file,
                                                           QString destination) {
    SVNCommandResult result;
    std::optional<SVNClientError> failure;
    try {
        if (project.kind == RepositoryKind::git)
            result = co_await archiveFromGit(project, entry, file.path);
        else
            result = co_await archiveFromSubversion(project, entry, file.path);
    } catch (const SVNClientError &error) {
        failure = error;
    }
    const auto finish = [file, destination, isWritten = !failure] {
        if (isWritten)
            return moveIntoPlace(file, destination);
        file.folder->remove();
        return QString();
    };
    const QString notMoved = co_await QtConcurrent::run(&workers, finish);
    if (failure)
        throw *failure;
    if (!notMoved.isEmpty())
        throw SVNClientError::launchFailed(notMoved);
    co_return result;
}

QCoro::Task<SVNCommandResult> AppState::archiveFromGit(Project project, LogEntry entry, QString path) {
    const QString token = archiveRevisionToken(entry, project);
    const QString prefix = u"--prefix="_s + archiveRootName(project, entry) + u'/';
    const QStringList arguments = args(u"archive", u"--format=zip", u"--output", path, prefix, token);
    co_return co_await tools.git->run(arguments, project.path, CheckStatus::yes);
}

QCoro::Task<SVNCommandResult> AppState::archiveFromSubversion(Project project, LogEntry entry, QString path) {
    // What is private in the repository stays so while it is zipped.
    const auto folder = std::make_shared<TemporaryFolder>();
    const QString tree = folder->path() + u'/' + archiveRootName(project, entry);
    SVNCommandResult result;
    std::optional<SVNClientError> failure;
    try {
        co_await exportTree(project, archiveRevisionToken(entry, project), tree);
        result = co_await archiveZipClient.zipDirectoryKeepingParent(tree, path);
    } catch (const SVNClientError &error) {
        failure = error;
    }
    const auto cleanUp = [folder] {
        folder->remove();
    };
    co_await QtConcurrent::run(&workers, cleanUp);
    if (failure)
        throw *failure;
    co_return result;
}

QCoro::Task<> AppState::exportTree(Project project, QString revision, QString tree) {
    const QString source = co_await svnArchiveSource(tools.svn, project, revision);
    const QStringList arguments = args(u"export", u"--force", u"-r", revision, source, tree);
    co_await tools.svn->run(arguments, project.path, CheckStatus::yes);
}

} // namespace kestor

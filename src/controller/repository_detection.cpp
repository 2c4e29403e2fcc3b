#include "controller/repository_detection.h"

#include "controller/tool_text.h"
#include "parsers/svn_xml_parsers.h"
#include "tools/arguments.h"

#include <QFile>

#include <filesystem>
#include <system_error>

namespace kestor {

namespace {

/// What the tool reports as the root, perhaps "". Throws SVNClientError.
QCoro::Task<QString> svnRoot(std::shared_ptr<Tool> svn, QString folder) {
    const SVNCommandResult result =
        co_await svn->run(args(u"info", u"--xml"), folder, CheckStatus::yes, RunPurpose::backgroundRead);
    const RepositoryInfo info = parsedOutput<InfoParser>(result.stdoutData);
    co_return info.workingCopyRoot.value_or(QString());
}

QCoro::Task<QString> gitRoot(std::shared_ptr<Tool> git, QString folder, RunPurpose purpose) {
    const SVNCommandResult result =
        co_await git->run(args(u"rev-parse", u"--show-toplevel"), folder, CheckStatus::yes, purpose);
    QString root = toolText(result.stdoutData);
    // Blanks at its ends are of its name.
    if (root.endsWith(u'\n'))
        root.chop(1);
    co_return root;
}

/// The root that `search` finds; nothing when it fails or finds none.
QCoro::Task<std::optional<QString>> foundRoot(QCoro::Task<QString> search) {
    QString root;
    try {
        root = co_await search;
    } catch (const SVNClientError &) {
        // No such folder, no such tool, or the folder belongs to nothing: all the same here.
    }
    co_return root.isEmpty() ? std::nullopt : std::optional(root);
}

} // namespace

QCoro::Task<DetectedRepository> probeSubversion(std::shared_ptr<Tool> svn, QString folder) {
    const QString root = co_await svnRoot(svn, folder);
    co_return DetectedRepository{root.isEmpty() ? folder : root, RepositoryKind::svn};
}

QCoro::Task<DetectedRepository> probeGit(std::shared_ptr<Tool> git, QString folder, RunPurpose purpose) {
    const QString root = co_await gitRoot(git, folder, purpose);
    co_return DetectedRepository{root.isEmpty() ? folder : root, RepositoryKind::git};
}

bool isSameFolder(const QString &one, const QString &other) {
    std::error_code missing;
    return one == other || std::filesystem::equivalent(QFile::encodeName(one).toStdString(),
                                                       QFile::encodeName(other).toStdString(), missing);
}

QCoro::Task<std::optional<QString>> svnWorkingCopyRoot(std::shared_ptr<Tool> svn, QString folder) {
    return foundRoot(svnRoot(svn, folder));
}

QCoro::Task<std::optional<QString>> gitWorkingCopyRoot(std::shared_ptr<Tool> git, QString folder) {
    return foundRoot(gitRoot(git, folder, RunPurpose::backgroundRead));
}

} // namespace kestor

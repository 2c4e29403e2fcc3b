#include "controller/history_diff.h"

#include "controller/path_targets.h"
#include "controller/repository_paths.h"
#include "controller/tool_text.h"
#include "controller/working_diff.h"
#include "parsers/line_changes.h"
#include "tools/arguments.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

/// The file's own change among those of the revision; nothing when none is.
std::optional<SVNPathChange> changeOf(const QString &path, const FileHistoryRevision &revision,
                                      const RepositoryInfo &info) {
    const QString folder = repositoryFolder(info.relativeURL.value_or(QString()));
    const auto isOwn = [&](const SVNPathChange &change) {
        return change.kind != u"dir"_s && workingCopyPath(change.path, folder) == path;
    };
    const auto found = std::find_if(revision.paths.begin(), revision.paths.end(), isOwn);
    return found == revision.paths.end() ? std::nullopt : std::optional(*found);
}

/// The file as it is called in revision `peg`.
QString svnSource(const RepositoryInfo &info, const QString &path, const FileHistoryRevision &revision, qint64 peg) {
    const std::optional<SVNPathChange> change = changeOf(path, revision, info);
    const std::optional<QString> url = change ? repositoryURLForRepositoryPath(info, change->path, peg) : std::nullopt;
    return url.value_or(svnTarget(path));
}

bool deletes(const FileHistoryRevision &revision) {
    return revision.action == u"D";
}

} // namespace

QString svnHistoryTarget(const RepositoryInfo &info, const QString &path, const FileHistoryRevision &revision) {
    return svnSource(info, path, revision, deletes(revision) ? revision.revision - 1 : revision.revision);
}

SvnVersions svnVersions(const RepositoryInfo &info, const QString &path, const FileHistoryRevision &revision) {
    const qint64 number = revision.revision;
    SvnVersions versions;
    // A replaced file has no history of its own to follow backwards; a changed one may have come from elsewhere in the
    // same revision, with the folder around it.
    const qint64 peg = revision.action == u"M" ? number : number - 1;
    if (revision.action != u"A")
        versions.before = SvnVersion{svnSource(info, path, revision, peg), number - 1};
    if (!deletes(revision))
        versions.after = SvnVersion{svnSource(info, path, revision, number), number};
    return versions;
}

GitVersions gitVersions(const FileHistoryRevision &revision) {
    const QString hash = revision.commitHash.value_or(QString());
    GitVersions versions;
    if (revision.action != u"A")
        versions.before = hash + u'^';
    if (!deletes(revision))
        versions.after = hash;
    return versions;
}

QStringList historyDiffArguments(const Project &project, const RepositoryInfo &info, const QString &path,
                                 const FileHistoryRevision &revision) {
    if (project.kind == RepositoryKind::svn)
        return readableSvnDiff() +
               args(u"-c", QString::number(revision.revision), svnHistoryTarget(info, path, revision));
    return args(u"show", u"--format=", u"--patch", u"--find-renames", u"--no-ext-diff",
                revision.commitHash.value_or(QString()), u"--", gitTarget(path));
}

QStringList historySummaryArguments(RepositoryKind kind, const RepositoryInfo &info, const QList<LogEntry> &entries) {
    if (kind == RepositoryKind::git)
        return args(u"log", u"--numstat", u"--format=");
    const qint64 newest = entries.first().revision;
    const QString range = QString::number(entries.last().revision - 1) + u':' + QString::number(newest);
    const QString target = repositoryURLForWorkingCopyPath(info, QString(), newest).value_or(u"."_s);
    return readableSvnDiff() + args(u"-r", range, target);
}

LineChangeSummary historyLineChanges(RepositoryKind kind, const QByteArray &output) {
    return kind == RepositoryKind::git ? numstatLineChanges(toolText(output)) : diffLineChanges(output);
}

} // namespace kestor

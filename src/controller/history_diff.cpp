#include "controller/history_diff.h"

#include "controller/repository_paths.h"
#include "controller/svn_target.h"
#include "controller/tool_text.h"
#include "parsers/line_changes.h"
#include "tools/arguments.h"

#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

std::optional<SVNPathChange> changeOf(const QString &path, const FileHistoryRevision &revision,
                                      const QString &relativeURL) {
    const QString folder = repositoryFolder(QUrl::fromPercentEncoding(relativeURL.toUtf8()));
    const auto isOwn = [&](const SVNPathChange &change) {
        return change.kind != u"dir"_s && workingCopyPath(change.path, folder) == path;
    };
    const auto found = std::find_if(revision.paths.begin(), revision.paths.end(), isOwn);
    return found == revision.paths.end() ? std::nullopt : std::optional(*found);
}

QString svnHistoryTarget(const RepositoryInfo &info, const QString &path, const FileHistoryRevision &revision) {
    std::optional<QString> url;
    if (const std::optional<SVNPathChange> change = changeOf(path, revision, info.relativeURL.value_or(QString()))) {
        const qint64 peg = change->action == u"D" ? revision.revision - 1 : revision.revision;
        url = repositoryURLForRepositoryPath(info, change->path, peg);
    }
    return url.value_or(svnTarget(path));
}

QStringList historyDiffArguments(const Project &project, const RepositoryInfo &info, const QString &path,
                                 const FileHistoryRevision &revision) {
    if (project.kind == RepositoryKind::svn)
        return args(u"diff", u"-c", QString::number(revision.revision), svnHistoryTarget(info, path, revision));
    return args(u"show", u"--format=", u"--patch", u"--find-renames", u"--no-ext-diff",
                revision.commitHash.value_or(QString()), u"--", path);
}

QStringList historySummaryArguments(RepositoryKind kind, const RepositoryInfo &info, const QList<LogEntry> &entries) {
    if (kind == RepositoryKind::git)
        return args(u"log", u"--numstat", u"--format=");
    const qint64 newest = entries.first().revision;
    const QString range = QString::number(entries.last().revision - 1) + u':' + QString::number(newest);
    const QString target = repositoryURLForWorkingCopyPath(info, QString(), newest).value_or(u"."_s);
    return args(u"diff", u"-r", range, target);
}

LineChangeSummary historyLineChanges(RepositoryKind kind, const QByteArray &output) {
    return kind == RepositoryKind::git ? numstatLineChanges(toolText(output)) : diffLineChanges(output);
}

} // namespace kestor

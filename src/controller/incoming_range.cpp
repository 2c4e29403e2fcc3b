#include "controller/incoming_range.h"

#include "controller/repository_paths.h"
#include "controller/tool_text.h"
#include "controller/working_diff.h"
#include "parsers/decimal_integer.h"
#include "parsers/svn_xml_parsers.h"
#include "tools/arguments.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kestor {

namespace {

QStringList externalFolders(const QByteArray &printedStatus) {
    QStringList folders;
    for (const WorkingCopyItem &item : parsedOutput<StatusParser>(printedStatus)) {
        if (item.kind == SVNStatusKind::external)
            folders.append(item.path);
    }
    return folders;
}

bool isInside(const QString &path, const QStringList &folders) {
    return std::any_of(folders.begin(), folders.end(), [&path](const QString &folder) {
        return path.startsWith(folder) && (path.size() == folder.size() || path[folder.size()] == u'/');
    });
}

/// svn prints -1 for an item that has no revision yet.
std::optional<qint64> revisionOf(const std::optional<QString> &text) {
    const std::optional<qint64> number = text ? decimalInteger(*text) : std::nullopt;
    return number && *number >= 0 ? number : std::nullopt;
}

std::optional<qint64> smallestRevision(const QList<WorkingCopyItem> &items, const QStringList &externals) {
    std::optional<qint64> smallest;
    for (const WorkingCopyItem &item : items) {
        const std::optional<qint64> revision = revisionOf(item.revision);
        if (revision && (!smallest || *revision < *smallest) && !isInside(item.path, externals))
            smallest = revision;
    }
    return smallest;
}

QString revisionPair(qint64 first, qint64 last) {
    return QString::number(first) + u':' + QString::number(last);
}

} // namespace

std::optional<QString> rangeDescription(const IncomingRange &range) {
    if (!range.base || !range.head)
        return std::nullopt;
    return u'r' + QString::number(*range.base) + u" to r"_s + QString::number(*range.head);
}

std::optional<qint64> workingRevision(const RepositoryInfo &info) {
    return revisionOf(info.workingRevision);
}

IncomingStatus incomingStatus(const QByteArray &printedInfo, const QByteArray &printedStatus) {
    IncomingStatus status;
    const RemoteStatus remote = parsedOutput<RemoteStatusParser>(printedStatus);
    status.info = parsedOutput<InfoParser>(printedInfo);
    status.range.base = smallestRevision(remote.items, externalFolders(printedStatus));
    if (!status.range.base)
        status.range.base = workingRevision(status.info);
    status.range.head = remote.repositoryRevision;
    status.outdatedItems = remote.items;
    return status;
}

QStringList incomingLogArguments(const IncomingRange &range) {
    return args(u"log", u"--xml", u"--verbose", u"-r", revisionPair(*range.base + 1, *range.head));
}

QStringList incomingLogArguments(const RepositoryInfo &info, const IncomingRange &range) {
    const std::optional<QString> url = repositoryURLForWorkingCopyPath(info, QString(), *range.head);
    return url ? incomingLogArguments(range) + QStringList(*url) : QStringList();
}

QList<LogEntry> incomingEntriesOf(const QByteArray &printedLog, const IncomingRange &range,
                                  const QList<LogEntry> &known) {
    QList<LogEntry> entries = parsedOutput<LogParser>(printedLog);
    entries.removeIf(
        [&range](const LogEntry &entry) { return entry.revision <= *range.base || entry.revision > *range.head; });
    return entries == known ? known : entries;
}

QStringList incomingSummaryArguments(const RepositoryInfo &info, const IncomingRange &range) {
    const QString target = repositoryURLForWorkingCopyPath(info, QString(), *range.head).value_or(u"."_s);
    return readableSvnDiff() + args(u"-r", revisionPair(*range.base, *range.head), target);
}

QStringList incomingDiffArguments(qint64 revision) {
    return readableSvnDiff() + args(u"-c", QString::number(revision), u".");
}

std::optional<ChangedFile> onlyChangedFile(const LogEntry &entry, const RepositoryInfo &info) {
    const QString folder = repositoryFolder(info.relativeURL.value_or(QString()));
    const QStringList workingCopy(folder.isEmpty() ? QString() : u'/' + folder);
    QList<SVNPathChange> changes = entry.paths;
    changes.removeIf([&workingCopy](const SVNPathChange &change) { return !isInside(change.path, workingCopy); });
    if (changes.size() != 1 || changes.first().kind == u"dir"_s)
        return std::nullopt;
    const SVNPathChange &change = changes.first();
    return ChangedFile{workingCopyPath(change.path, folder).toString(),
                       {.revision = entry.revision,
                        .action = change.action,
                        .author = entry.author,
                        .date = entry.date,
                        .message = entry.message,
                        .paths = entry.paths}};
}

} // namespace kestor

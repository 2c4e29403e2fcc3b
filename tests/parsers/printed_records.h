#pragma once

#include "model/log_entry.h"
#include "model/repository_info.h"
#include "model/working_copy_item.h"

#include <QStringList>

namespace kestor::testing {

inline QString printed(const std::optional<QString> &text) {
    return text ? *text : QStringLiteral("-");
}

inline QString printed(const std::optional<QDateTime> &date) {
    return date ? date->toUTC().toString(Qt::ISODateWithMs) : QStringLiteral("-");
}

/// Path, status, property status, revision, author and what else is set, blank-separated; "-" for what is absent.
inline QStringList printed(const QList<WorkingCopyItem> &items) {
    QStringList texts;
    for (const WorkingCopyItem &item : items) {
        QStringList pieces{item.path, rawValue(item.kind).toString(), rawValue(item.propertiesKind).toString(),
                           printed(item.revision), printed(item.author)};
        if (item.treeConflict)
            pieces.append(QStringLiteral("tree-conflict"));
        if (item.unversionedRoot)
            pieces.append(QStringLiteral("in ") + *item.unversionedRoot);
        texts.append(pieces.join(u' '));
    }
    return texts;
}

/// Revision, author, date and message, then the action, path and kind of each change, separated by bars.
inline QStringList printed(const QList<LogEntry> &entries) {
    QStringList texts;
    for (const LogEntry &entry : entries) {
        QStringList pieces{QString::number(entry.revision), entry.author, printed(entry.date), entry.message};
        for (const SVNPathChange &change : entry.paths)
            pieces.append(change.action + u' ' + change.path + u' ' + printed(change.kind));
        texts.append(pieces.join(u'|'));
    }
    return texts;
}

/// The ten fields in their order.
inline QStringList printed(const RepositoryInfo &info) {
    return {printed(info.workingCopyRoot),   printed(info.url),
            printed(info.relativeURL),       printed(info.repositoryRoot),
            printed(info.repositoryUUID),    printed(info.revision),
            printed(info.workingRevision),   printed(info.lastChangedRevision),
            printed(info.lastChangedAuthor), printed(info.lastChangedDate)};
}

} // namespace kestor::testing

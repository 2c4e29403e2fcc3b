#pragma once

#include "model/log_entry.h"
#include "parsers/git_parsers.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace kestor::fuzz {

/// A line of --name-status by the plain rules.
inline std::optional<SVNPathChange> plainChange(const QString &line) {
    const QStringList pieces = line.split(u'\t');
    if (pieces.size() < 2)
        return std::nullopt;
    const QString action = pieces[0].left(1);
    const bool hasNewName = (action == u"R" || action == u"C") && pieces.size() > 2;
    return SVNPathChange{action, GitParsers::unquotePath(pieces[hasNewName ? 2 : 1]), QStringLiteral("file")};
}

/// The line that a change is read from; its paths in quotes, in which every sign may stand but tabs and line feeds.
inline QString printedChange(const SVNPathChange &change) {
    QString path = change.path;
    path.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    const QString quoted = u'"' + path + u'"';
    const bool moves = change.action == u"R" || change.action == u"C";
    return change.action + (moves ? QStringLiteral("100\told name\t") : QStringLiteral("\t")) + quoted;
}

} // namespace kestor::fuzz

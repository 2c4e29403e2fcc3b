#include "controller/arriving_log.h"

#include "controller/tool_text.h"

#include <algorithm>
#include <utility>

namespace kestor {

void ArrivingLog::add(QByteArrayView printed) {
    const QMutexLocker lock(&adding);
    added.append(printed.toByteArray());
}

QList<LogEntry> ArrivingLog::entriesSoFar() {
    const QMutexLocker lock(&reading);
    takeAdded();
    const qsizetype length = wholeEntries();
    if (length > 0) {
        read(QByteArrayView(unread).first(length));
        unread = unread.sliced(length);
    }
    return entries();
}

QList<LogEntry> ArrivingLog::entriesOf(QByteArrayView output) {
    const QMutexLocker lock(&reading);
    takeAdded();
    read(output.sliced(std::min(taken - unread.size(), output.size())));
    taken = output.size();
    unread.clear();
    // What could not be told into pieces is read in one.
    return kind == RepositoryKind::svn && !svn.isIntact() ? parsedOutput<LogParser>(output) : entries();
}

void ArrivingLog::takeAdded() {
    QMutexLocker lock(&adding);
    const QByteArrayList pieces = std::exchange(added, {});
    lock.unlock();
    for (const QByteArray &piece : pieces) {
        taken += piece.size();
        unread.append(piece);
    }
}

/// How many bytes of what is unread hold entries that have ended.
qsizetype ArrivingLog::wholeEntries() const {
    return kind == RepositoryKind::git ? GitParsers::LogReader::wholeEntries(unread)
                                       : SvnLogReader::wholeEntries(unread);
}

void ArrivingLog::read(QByteArrayView piece) {
    if (kind == RepositoryKind::git)
        git.read(toolText(piece));
    else if (isValidUtf8(piece))
        svn.read(piece);
    else
        svn.read(toolText(piece).toUtf8());
}

QList<LogEntry> ArrivingLog::entries() const {
    return kind == RepositoryKind::git ? git.entries() : svn.entries();
}

} // namespace kestor

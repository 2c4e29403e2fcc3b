#pragma once

#include "model/log_entry.h"
#include "model/project.h"
#include "parsers/git_parsers.h"
#include "parsers/svn_xml_parsers.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QByteArrayView>
#include <QList>
#include <QMutex>

namespace kestor {

/// A log that is read while its tool prints it, so that little is left to read when the tool ends. One thread adds what
/// was printed, workers read it.
class ArrivingLog {
public:
    explicit ArrivingLog(RepositoryKind repositoryKind) : kind(repositoryKind) {}

    /// What was printed next.
    void add(QByteArrayView printed);
    /// Reads the whole entries of what was added; the entries so far, newest first. Workers.
    QList<LogEntry> entriesSoFar();
    /// Reads the rest of `output`, which is all that the tool printed; all entries, newest first. Workers.
    QList<LogEntry> entriesOf(QByteArrayView output);

private:
    // All of them hold `reading`.
    qsizetype wholeEntries() const;
    void read(QByteArrayView piece);
    QList<LogEntry> entries() const;
    void takeAdded();

    RepositoryKind kind;
    QMutex adding{};
    QByteArrayList added{}; ///< since it was read last; one text would be copied whenever it grows
    QMutex reading{};
    QByteArray unread{}; ///< the beginning of an entry
    qsizetype taken = 0; ///< how many of the bytes added left `added`
    SvnLogReader svn{};
    GitParsers::LogReader git{};
};

} // namespace kestor

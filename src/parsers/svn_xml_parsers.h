#pragma once

#include "model/log_entry.h"
#include "model/repository_info.h"
#include "model/working_copy_item.h"

#include <QByteArrayView>
#include <QList>
#include <QSet>
#include <QStringView>

#include <memory>
#include <optional>

namespace kestor {

// Parsers of the XML that `svn` prints with --xml. Each stops at the first error and returns what was gathered; none
// fails. They take the tool's UTF-8 bytes, or text that is encoded first (text with lone surrogates gives the empty
// result). Any thread.

/// What the repository would change in a working copy.
struct RemoteStatus {
    std::optional<qint64> repositoryRevision{}; ///< head revision
    QList<WorkingCopyItem> items{};             ///< in the localised standard order of their paths

    friend bool operator==(const RemoteStatus &, const RemoteStatus &) = default;
};

/// Reads `svn status --xml`.
struct StatusParser {
    /// The entries that are changes, in the localised standard order of their paths.
    static QList<WorkingCopyItem> parse(QByteArrayView utf8);
    static QList<WorkingCopyItem> parse(QStringView text);
    /// The same entries; nothing when the document breaks off or cannot be read to its end.
    static std::optional<QList<WorkingCopyItem>> parseWhole(QByteArrayView utf8);
};

/// Reads of `svn status --xml` which paths are copies of others, moved or not. Nothing when the output breaks off.
struct CopiedPathsParser {
    static std::optional<QSet<QString>> parse(QByteArrayView utf8);
    static std::optional<QSet<QString>> parse(QStringView text);
};

/// Reads `svn status --xml --show-updates`.
struct RemoteStatusParser {
    static RemoteStatus parse(QByteArrayView utf8);
    static RemoteStatus parse(QStringView text);
};

/// Reads `svn log --xml --verbose`.
struct LogParser {
    /// Highest revision first.
    static QList<LogEntry> parse(QByteArrayView utf8);
    static QList<LogEntry> parse(QStringView text);
};

/// Reads `svn log --xml --verbose` in pieces. What comes again shares its characters over all of them. One thread at a
/// time.
class SvnLogReader {
public:
    SvnLogReader();
    ~SvnLogReader();
    Q_DISABLE_COPY_MOVE(SvnLogReader)

    /// Reads what follows the pieces before; it ends behind the end tag of an entry, the last one anywhere. Nothing is
    /// read any more behind the first error.
    void read(QByteArrayView utf8);
    /// False after an error, and when "</logentry>" was no end of an entry: then pieces cannot be told from one
    /// another.
    bool isIntact() const;
    /// Those so far, highest revision first.
    QList<LogEntry> entries() const;
    /// How many of the bytes printed hold entries that have ended.
    static qsizetype wholeEntries(QByteArrayView printed);

private:
    class Handler;
    std::unique_ptr<Handler> handler;
    qsizetype expected = 0; ///< how many entries have ended
};

/// Reads `svn info --xml`. `revision` ends up as the last changed revision and `workingRevision` as the entry's own.
struct InfoParser {
    static RepositoryInfo parse(QByteArrayView utf8);
    static RepositoryInfo parse(QStringView text);
};

} // namespace kestor

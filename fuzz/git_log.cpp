#include "fuzz/input_text.h"
#include "fuzz/name_status.h"
#include "fuzz/property.h"

#include <algorithm>

namespace kestor::fuzz {

namespace {

const QString &marker() {
    static const QString text = QStringLiteral("--KESTOR-GIT-COMMIT--");
    return text;
}

QList<LogEntry> plainEntries(const QString &text) {
    QList<LogEntry> entries;
    bool inEntry = false;
    const QStringList lines = text.split(u'\n');
    for (const QString &line : lines) {
        if (line.startsWith(marker())) {
            const QStringList pieces = line.mid(marker().size()).split(u'\t');
            inEntry = pieces.size() >= 4;
            if (!inEntry)
                continue;
            LogEntry entry;
            entry.revision = 1000000 - entries.size();
            entry.commitHash = pieces[0];
            entry.author = pieces[1];
            entry.date = GitParsers::parseDate(pieces[2]);
            entry.message = pieces.mid(3).join(u'\t');
            entries.append(entry);
        } else if (const std::optional<SVNPathChange> change = plainChange(line); inEntry && change) {
            entries.back().paths.append(*change);
        }
    }
    return entries;
}

QString printed(const QList<LogEntry> &entries) {
    QString text;
    for (const LogEntry &entry : entries) {
        const QString date = entry.date ? entry.date->toString(Qt::ISODateWithMs) : QString();
        text += marker() + *entry.commitHash + u'\t' + entry.author + u'\t' + date + u'\t' + entry.message +
                QStringLiteral("\n\n");
        for (const SVNPathChange &change : entry.paths)
            text += printedChange(change) + u'\n';
    }
    return text;
}

bool isPrintable(const LogEntry &entry) {
    return !entry.date || (entry.date->date().year() >= 1 && entry.date->date().year() <= 9999);
}

QList<LogEntry> readInPieces(QByteArrayView printed) {
    const std::size_t place = printed.isEmpty() ? 0 : qHash(printed, 0) % static_cast<std::size_t>(printed.size());
    const qsizetype joint = GitParsers::LogReader::wholeEntries(printed.first(static_cast<qsizetype>(place)));
    GitParsers::LogReader reader;
    reader.read(exactText(printed.first(joint)));
    reader.read(exactText(printed.sliced(joint)));
    return reader.entries();
}

} // namespace

void check(QByteArrayView input) {
    const QString text = exactText(input);
    const QList<LogEntry> entries = GitParsers::parseLog(text);
    require(entries == plainEntries(text), "the entries are those of the plain rules");
    require(readInPieces(input) == entries, "pieces give what the whole does");
    if (std::all_of(entries.cbegin(), entries.cend(), isPrintable))
        require(GitParsers::parseLog(printed(entries)) == entries, "printing loses nothing");
}

} // namespace kestor::fuzz

#include "fuzz/printed_xml.h"
#include "fuzz/standard_order.h"
#include "parsers/svn_xml_parsers.h"

#include <algorithm>

namespace kestor::fuzz {

namespace {

QByteArray printed(const LogEntry &entry) {
    QByteArray xml = "<logentry revision=\"" + QByteArray::number(entry.revision) + "\">" +
                     element("author", entry.author) + element("date", printedDate(entry.date)) + "<paths>";
    for (const SVNPathChange &path : entry.paths)
        xml += "<path" + attribute("kind", path.kind) + attribute("action", path.action) + '>' + escaped(path.path) +
               "</path>";
    return xml + "</paths>" + element("msg", entry.message) + "</logentry>";
}

QByteArray printed(const QList<LogEntry> &entries) {
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<log>\n";
    for (const LogEntry &entry : entries)
        xml += printed(entry);
    return xml + "</log>\n";
}

bool isLower(const LogEntry &left, const LogEntry &right) {
    return left.revision < right.revision;
}

/// Joints are looked for at the ends of entries, which in comments and the like are none.
bool hasJoints(QByteArrayView document) {
    return !document.contains("<!") && document.lastIndexOf("<?") <= 0;
}

QList<LogEntry> readInPieces(QByteArrayView document, QByteArrayView beginning) {
    const qsizetype joint = SvnLogReader::wholeEntries(beginning);
    SvnLogReader reader;
    reader.read(document.first(joint));
    reader.read(document.sliced(joint));
    return reader.isIntact() ? reader.entries() : LogParser::parse(document);
}

} // namespace

void check(QByteArrayView input) {
    const QList<LogEntry> entries = parsedEitherWay<LogParser>(input);
    require(std::adjacent_find(entries.cbegin(), entries.cend(), isLower) == entries.cend(),
            "the highest revision is first");
    if (std::all_of(entries.cbegin(), entries.cend(), [](const LogEntry &entry) { return isPrintable(entry.date); }))
        require(LogParser::parse(printed(entries)) == entries, "printing loses nothing");
    if (hasJoints(input))
        require(readInPieces(input, brokenOff(input)) == entries, "pieces give what the whole does");
    require(isSubsequence(LogParser::parse(brokenOff(input)), entries), "what precedes an error is kept in its order");
}

} // namespace kestor::fuzz

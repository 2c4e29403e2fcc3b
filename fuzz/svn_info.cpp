#include "fuzz/printed_xml.h"
#include "parsers/svn_xml_parsers.h"

namespace kestor::fuzz {

namespace {

QByteArray printedCommit(const RepositoryInfo &info) {
    return "<commit" + attribute("revision", info.lastChangedRevision) + '>' +
           element("author", info.lastChangedAuthor) + element("date", printedDate(info.lastChangedDate)) + "</commit>";
}

QByteArray printed(const RepositoryInfo &info) {
    const QByteArray entry = "<entry" + attribute("revision", info.workingRevision) + '>' + element("url", info.url) +
                             element("relative-url", info.relativeURL) + "<repository>" +
                             element("root", info.repositoryRoot) + element("uuid", info.repositoryUUID) +
                             "</repository><wc-info>" + element("wcroot-abspath", info.workingCopyRoot) + "</wc-info>";
    // A later entry sets both revisions, a commit with a revision sets both of its own.
    const bool entryIsLast = info.revision == info.workingRevision;
    const QByteArray before = entryIsLast ? printedCommit(info) : QByteArray();
    const QByteArray overwritten = "<commit" + attribute("revision", info.revision) + "/>";
    return "<info>" + before + entry + (entryIsLast ? QByteArray() : overwritten + printedCommit(info)) +
           "</entry></info>";
}

} // namespace

void check(QByteArrayView input) {
    const RepositoryInfo info = parsedEitherWay<InfoParser>(input);
    const bool isOneOfTheTwo =
        info.revision == info.workingRevision || !info.lastChangedRevision || info.revision == info.lastChangedRevision;
    require(isOneOfTheTwo, "the revision is the entry's or the last change's");
    if (isPrintable(info.lastChangedDate))
        require(InfoParser::parse(printed(info)) == info, "printing loses nothing");
    const RepositoryInfo begun = InfoParser::parse(brokenOff(input));
    require(!begun.url || info.url, "what precedes an error is kept");
    require(!begun.workingCopyRoot || info.workingCopyRoot, "what precedes an error is kept");
}

} // namespace kestor::fuzz

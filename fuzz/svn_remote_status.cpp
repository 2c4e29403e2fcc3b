#include "fuzz/printed_xml.h"
#include "fuzz/standard_order.h"
#include "parsers/svn_xml_parsers.h"

namespace kestor::fuzz {

namespace {

QByteArray printed(const RemoteStatus &status) {
    QByteArray xml = "<status><target path=\".\">";
    for (const WorkingCopyItem &item : status.items) {
        xml += "<entry" + attribute("path", item.path) + "><wc-status item=\"normal\"" +
               attribute("revision", item.revision) + "><commit>" + element("author", item.author) +
               "</commit></wc-status><repos-status" + attribute("item", rawValue(item.kind).toString()) +
               attribute("props", rawValue(item.propertiesKind).toString()) + "/></entry>";
    }
    if (status.repositoryRevision)
        xml += "<against revision=\"" + QByteArray::number(*status.repositoryRevision) + "\"/>";
    return xml + "</target></status>";
}

} // namespace

void check(QByteArrayView input) {
    const RemoteStatus status = parsedEitherWay<RemoteStatusParser>(input);
    for (const WorkingCopyItem &item : status.items) {
        require(isChange(item.kind) || isChange(item.propertiesKind), "every item is a change in the repository");
        require(!item.treeConflict && !item.unversionedRoot, "only what the repository knows is set");
    }
    QList<WorkingCopyItem> sorted = status.items;
    sortByCollator(sorted, &WorkingCopyItem::path);
    require(sorted == status.items, "items are in the standard order");
    require(RemoteStatusParser::parse(printed(status)) == status, "printing loses nothing");
    require(isSubsequence(RemoteStatusParser::parse(brokenOff(input)).items, status.items),
            "what precedes an error is kept in its order");
}

} // namespace kestor::fuzz

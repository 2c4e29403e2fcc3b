#include "fuzz/printed_xml.h"
#include "fuzz/standard_order.h"
#include "parsers/svn_xml_parsers.h"

namespace kestor::fuzz {

namespace {

QByteArray printed(const QList<WorkingCopyItem> &items) {
    QByteArray xml = "<status><target path=\".\">";
    for (const WorkingCopyItem &item : items) {
        xml += "<entry" + attribute("path", item.path) + "><wc-status" +
               attribute("item", rawValue(item.kind).toString()) +
               attribute("props", rawValue(item.propertiesKind).toString()) + attribute("revision", item.revision) +
               (item.treeConflict ? " tree-conflicted=\"true\"" : "") + "><commit>" + element("author", item.author) +
               "</commit></wc-status></entry>";
    }
    return xml + "</target></status>";
}

} // namespace

void check(QByteArrayView input) {
    const QList<WorkingCopyItem> items = parsedEitherWay<StatusParser>(input);
    for (const WorkingCopyItem &item : items)
        require(isChange(item.kind) || isChange(item.propertiesKind) || item.treeConflict, "every item is a change");
    QList<WorkingCopyItem> sorted = items;
    sortByCollator(sorted, &WorkingCopyItem::path);
    require(sorted == items, "items are in the standard order");
    require(StatusParser::parse(printed(items)) == items, "printing loses nothing");
    require(isSubsequence(StatusParser::parse(brokenOff(input)), items), "what precedes an error is kept in its order");
}

} // namespace kestor::fuzz

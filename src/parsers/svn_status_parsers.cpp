#include "model/file_order.h"
#include "model/text_table.h"
#include "parsers/svn_xml_parsers.h"
#include "parsers/svn_xml_reader.h"

#include <QVarLengthArray>

#include <utility>

namespace kestor {

namespace {

enum class StatusElement : std::uint8_t { entry, wcStatus, reposStatus, treeConflict, author, against };
constexpr std::array<std::string_view, 6> statusElementNames{"entry",         "wc-status", "repos-status",
                                                             "tree-conflict", "author",    "against"};
static_assert(statusElementNames.size() == static_cast<std::size_t>(StatusElement::against) + 1);

/// The status that an attribute names: `missing` without the attribute, unknown for a word that is no status.
SVNStatusKind statusKind(XmlAttributes attributes, std::string_view name, SVNStatusKind missing) {
    const std::optional<std::string_view> utf8 = attributes.value(name);
    if (!utf8)
        return missing;
    // The words of all statuses are ASCII, so a byte is a character of each that can match.
    const QVarLengthArray<char16_t, 16> word(utf8->begin(), utf8->end());
    return statusKindFromRawValue(QStringView(word)).value_or(SVNStatusKind::unknown);
}

/// Collects one item per entry. What both kinds of status output have in common; they differ in the element that
/// carries the statuses.
class StatusHandler : public XmlHandler {
public:
    QList<WorkingCopyItem> takeSortedItems() {
        sortInStandardOrder(items, &WorkingCopyItem::path);
        return std::move(items);
    }

    void startElement(std::string_view name, XmlAttributes attributes) override {
        const std::optional<StatusElement> element = enumFromText<StatusElement>(statusElementNames, name);
        if (element == StatusElement::entry)
            startEntry(attributes);
        if (element)
            startOther(*element, attributes);
    }

    void endElement(std::string_view name, std::string_view text) override {
        const std::optional<StatusElement> element = enumFromText<StatusElement>(statusElementNames, name);
        if (element == StatusElement::author)
            item.author = authors.fromUtf8(text).trimmed();
        if (element == StatusElement::entry)
            endEntry();
    }

protected:
    explicit StatusHandler(SVNStatusKind unstated) : unstatedKind(unstated) {}

    virtual void startOther(StatusElement element, XmlAttributes attributes) = 0;

    WorkingCopyItem item;
    RepeatedText revisions;

private:
    void startEntry(XmlAttributes attributes) {
        const std::optional<QString> path = attributes.text("path");
        hasPath = path.has_value();
        item = WorkingCopyItem{.path = path.value_or(QString()), .kind = unstatedKind};
    }

    void endEntry() {
        const bool changed = isChange(item.kind) || isChange(item.propertiesKind) || item.treeConflict;
        if (hasPath && changed)
            items.append(std::move(item));
        hasPath = false;
    }

    SVNStatusKind unstatedKind; ///< of an entry without the element that carries the statuses
    bool hasPath = false;
    QList<WorkingCopyItem> items;
    RepeatedText authors;
};

class LocalStatusHandler final : public StatusHandler {
public:
    LocalStatusHandler() : StatusHandler(SVNStatusKind::unknown) {}

private:
    void startOther(StatusElement element, XmlAttributes attributes) override {
        switch (element) {
        case StatusElement::wcStatus:
            item.kind = statusKind(attributes, "item", SVNStatusKind::unknown);
            item.propertiesKind = statusKind(attributes, "props", SVNStatusKind::none);
            item.revision = attributes.text("revision", revisions);
            // Since 1.7 svn says it with an attribute; older ones print an element of its own.
            if (attributes.value("tree-conflicted") == "true")
                item.treeConflict = true;
            break;
        case StatusElement::treeConflict:
            item.treeConflict = true;
            break;
        default:
            break;
        }
    }
};

class RemoteStatusHandler final : public StatusHandler {
public:
    RemoteStatusHandler() : StatusHandler(SVNStatusKind::none) {}

    std::optional<qint64> repositoryRevision;

private:
    void startOther(StatusElement element, XmlAttributes attributes) override {
        switch (element) {
        case StatusElement::wcStatus:
            item.revision = attributes.text("revision", revisions);
            break;
        case StatusElement::reposStatus:
            item.kind = statusKind(attributes, "item", SVNStatusKind::none);
            item.propertiesKind = statusKind(attributes, "props", SVNStatusKind::none);
            break;
        case StatusElement::against:
            repositoryRevision = attributes.integer("revision");
            break;
        default:
            break;
        }
    }
};

class CopiedPathsHandler final : public XmlHandler {
public:
    void startElement(std::string_view name, XmlAttributes attributes) override {
        if (name == "entry")
            path = attributes.text("path").value_or(QString());
        else if (name == "wc-status" && attributes.value("copied") == "true")
            paths.insert(path);
    }
    void endElement(std::string_view, std::string_view) override {}

    QSet<QString> paths;

private:
    QString path;
};

} // namespace

QList<WorkingCopyItem> StatusParser::parse(QByteArrayView utf8) {
    LocalStatusHandler handler;
    readXml(utf8, handler);
    return handler.takeSortedItems();
}

QList<WorkingCopyItem> StatusParser::parse(QStringView text) {
    return parse(utf8OrEmpty(text));
}

std::optional<QList<WorkingCopyItem>> StatusParser::parseWhole(QByteArrayView utf8) {
    LocalStatusHandler handler;
    return readXml(utf8, handler) == XmlEnd::reached ? std::optional(handler.takeSortedItems()) : std::nullopt;
}

std::optional<QSet<QString>> CopiedPathsParser::parse(QByteArrayView utf8) {
    CopiedPathsHandler handler;
    return readXml(utf8, handler) == XmlEnd::reached ? std::optional(handler.paths) : std::nullopt;
}

std::optional<QSet<QString>> CopiedPathsParser::parse(QStringView text) {
    return parse(utf8OrEmpty(text));
}

RemoteStatus RemoteStatusParser::parse(QByteArrayView utf8) {
    RemoteStatusHandler handler;
    readXml(utf8, handler);
    return {handler.repositoryRevision, handler.takeSortedItems()};
}

RemoteStatus RemoteStatusParser::parse(QStringView text) {
    return parse(utf8OrEmpty(text));
}

} // namespace kestor

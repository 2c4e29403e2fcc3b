#include "parsers/iso_date.h"
#include "parsers/svn_xml_parsers.h"
#include "parsers/svn_xml_reader.h"

#include <utility>

namespace kestor {

namespace {

enum class Element : std::uint8_t {
    entry,
    repository,
    wcInfo,
    commit,
    url,
    relativeUrl,
    root,
    uuid,
    wcrootAbspath,
    author,
    date,
};
constexpr std::array<std::string_view, 11> elementNames{
    "entry", "repository", "wc-info",        "commit", "url", "relative-url",
    "root",  "uuid",       "wcroot-abspath", "author", "date"};
static_assert(elementNames.size() == static_cast<std::size_t>(Element::date) + 1);

class InfoHandler final : public XmlHandler {
public:
    RepositoryInfo info;

    void startElement(std::string_view name, XmlAttributes attributes) override {
        const std::optional<Element> element = elementNamed<Element>(elementNames, name);
        if (!element)
            return;
        setInside(*element, true);
        if (*element == Element::entry) {
            info.revision = attributes.text("revision");
            info.workingRevision = info.revision;
        } else if (*element == Element::commit) {
            info.lastChangedRevision = attributes.text("revision");
            // What counts is the last change; the entry's own revision stays available as the working revision.
            if (info.lastChangedRevision)
                info.revision = info.lastChangedRevision;
        }
    }

    void endElement(std::string_view name, std::string_view text) override {
        const std::optional<Element> element = elementNamed<Element>(elementNames, name);
        if (!element)
            return;
        store(*element, text);
        setInside(*element, false);
    }

private:
    void store(Element element, std::string_view text) {
        if (element == Element::date && inCommit)
            info.lastChangedDate = dateFromISO8601(trimmedFromUtf8(text));
        if (std::optional<QString> *const field = fieldOf(element))
            *field = trimmedFromUtf8(text);
    }

    /// The field that the text of `element` belongs to, given the elements around it; null when to none.
    std::optional<QString> *fieldOf(Element element) {
        switch (element) {
        case Element::url:
            return inRepository ? nullptr : &info.url;
        case Element::relativeUrl:
            return &info.relativeURL;
        case Element::root:
            return inRepository ? &info.repositoryRoot : nullptr;
        case Element::uuid:
            return inRepository ? &info.repositoryUUID : nullptr;
        case Element::wcrootAbspath:
            return inWorkingCopy ? &info.workingCopyRoot : nullptr;
        case Element::author:
            return inCommit ? &info.lastChangedAuthor : nullptr;
        default:
            return nullptr;
        }
    }

    void setInside(Element element, bool inside) {
        switch (element) {
        case Element::repository:
            inRepository = inside;
            break;
        case Element::wcInfo:
            inWorkingCopy = inside;
            break;
        case Element::commit:
            inCommit = inside;
            break;
        default:
            break;
        }
    }

    bool inRepository = false;
    bool inWorkingCopy = false;
    bool inCommit = false;
};

} // namespace

RepositoryInfo InfoParser::parse(QByteArrayView utf8) {
    InfoHandler handler;
    readXml(utf8, handler);
    return std::move(handler.info);
}

RepositoryInfo InfoParser::parse(QStringView text) {
    return parse(utf8OrEmpty(text));
}

} // namespace kestor

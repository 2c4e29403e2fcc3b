#include "model/text_table.h"
#include "parsers/iso_date.h"
#include "parsers/svn_xml_parsers.h"
#include "parsers/svn_xml_reader.h"

#include <utility>

namespace kestor {

namespace {

enum class InfoElement : std::uint8_t {
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
constexpr std::array<std::string_view, 11> infoElementNames{
    "entry", "repository", "wc-info",        "commit", "url", "relative-url",
    "root",  "uuid",       "wcroot-abspath", "author", "date"};
static_assert(infoElementNames.size() == static_cast<std::size_t>(InfoElement::date) + 1);

class InfoHandler final : public XmlHandler {
public:
    RepositoryInfo info;

    void startElement(std::string_view name, XmlAttributes attributes) override {
        const std::optional<InfoElement> element = enumFromText<InfoElement>(infoElementNames, name);
        if (!element)
            return;
        setInside(*element, true);
        if (*element == InfoElement::entry) {
            info.revision = attributes.text("revision");
            info.workingRevision = info.revision;
        } else if (*element == InfoElement::commit) {
            info.lastChangedRevision = attributes.text("revision");
            // What counts is the last change; the entry's own revision stays available as the working revision.
            if (info.lastChangedRevision)
                info.revision = info.lastChangedRevision;
        }
    }

    void endElement(std::string_view name, std::string_view text) override {
        const std::optional<InfoElement> element = enumFromText<InfoElement>(infoElementNames, name);
        if (!element)
            return;
        store(*element, text);
        setInside(*element, false);
    }

private:
    void store(InfoElement element, std::string_view text) {
        if (element == InfoElement::date && inCommit)
            info.lastChangedDate = dateFromISO8601(trimmedFromUtf8(text));
        if (std::optional<QString> *const field = fieldOf(element))
            *field = trimmedFromUtf8(text);
    }

    /// The field that the text of `element` belongs to, given the elements around it; null when to none.
    std::optional<QString> *fieldOf(InfoElement element) {
        switch (element) {
        case InfoElement::url:
            return inRepository ? nullptr : &info.url;
        case InfoElement::relativeUrl:
            return &info.relativeURL;
        case InfoElement::root:
            return inRepository ? &info.repositoryRoot : nullptr;
        case InfoElement::uuid:
            return inRepository ? &info.repositoryUUID : nullptr;
        case InfoElement::wcrootAbspath:
            return inWorkingCopy ? &info.workingCopyRoot : nullptr;
        case InfoElement::author:
            return inCommit ? &info.lastChangedAuthor : nullptr;
        default:
            return nullptr;
        }
    }

    void setInside(InfoElement element, bool inside) {
        switch (element) {
        case InfoElement::repository:
            inRepository = inside;
            break;
        case InfoElement::wcInfo:
            inWorkingCopy = inside;
            break;
        case InfoElement::commit:
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

#include "fuzz/forbidden_characters.h"
#include "fuzz/property.h"
#include "parsers/svn_xml_reader.h"

#include <expat.h>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace kestor::fuzz {

namespace {

/// A tag, as told to a handler: its name, then attributes or text.
using Event = std::vector<std::string>;

/// The attributes that the parsers ask for.
const std::vector<std::string> &attributeNames() {
    static const std::vector<std::string> names{"path", "item", "props",  "revision",       "action",
                                                "kind", "a",    "x:path", "tree-conflicted"};
    return names;
}

class Recorder final : public XmlHandler {
public:
    std::vector<Event> events{};

    void startElement(std::string_view name, XmlAttributes attributes) override {
        Event event{'<' + std::string(name)};
        for (const std::string &each : attributeNames()) {
            if (const std::optional<std::string_view> value = attributes.value(each))
                event.push_back(each + '=' + std::string(*value));
        }
        events.push_back(event);
    }

    void endElement(std::string_view name, std::string_view text) override {
        events.push_back({'/' + std::string(name), std::string(text)});
    }
};

/// Nothing but expat.
class Expat {
public:
    std::vector<Event> eventsOf(QByteArrayView document) {
        XML_SetUserData(parser.get(), this);
        XML_SetElementHandler(
            parser.get(), [](void *self, const char *name, const char **pairs) { of(self).start(name, pairs); },
            [](void *self, const char *name) { of(self).end(name); });
        XML_SetCharacterDataHandler(parser.get(), [](void *self, const char *piece, int length) {
            of(self).text.append(piece, static_cast<std::size_t>(length));
        });
        XML_SetStartDoctypeDeclHandler(parser.get(), [](void *self, const char *, const char *, const char *, int) {
            XML_StopParser(of(self).parser.get(), XML_FALSE);
        });
        XML_Parse(parser.get(), document.data(), static_cast<int>(document.size()), 1);
        return events;
    }

private:
    static Expat &of(void *self) { return *static_cast<Expat *>(self); }

    void start(const char *name, const char **pairs) {
        text.clear();
        Event event{'<' + std::string(name)};
        for (const std::string &each : attributeNames()) {
            for (const char **pair = pairs; *pair != nullptr; pair += 2) {
                if (each == pair[0])
                    event.push_back(each + '=' + pair[1]);
            }
        }
        events.push_back(event);
    }

    void end(const char *name) {
        events.push_back({'/' + std::string(name), text});
        text.clear();
    }

    struct Deleter {
        void operator()(XML_Parser expat) const { XML_ParserFree(expat); }
    };
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, Deleter> parser{XML_ParserCreate("UTF-8")};
    std::vector<Event> events{};
    std::string text{};
};

} // namespace

void check(QByteArrayView input) {
    if (holdsForbidden(input))
        return;
    Recorder recorder;
    readXml(input, recorder);
    require(recorder.events == Expat().eventsOf(input), "the tags and texts are those that expat reads");
}

} // namespace kestor::fuzz

#include "parsers/svn_xml_reader.h"

#include <gtest/gtest.h>
#include <random>

namespace kestor {
namespace {

class Recorder final : public XmlHandler {
public:
    std::string events;

    void startElement(std::string_view name, XmlAttributes attributes) override {
        events.append("<").append(name);
        for (const std::string_view attribute : {"a", "bb"})
            events.append(" ").append(attributes.value(attribute).value_or("-"));
    }
    void endElement(std::string_view name, std::string_view text) override {
        events.append("|").append(text).append("/").append(name).append(">");
    }
};

std::string events(const std::string &document) {
    Recorder recorder;
    readXml(QByteArrayView(document.data(), static_cast<qsizetype>(document.size())), recorder);
    return recorder.events;
}

/// A comment before the document leaves all of it to expat.
std::string eventsOfExpat(const std::string &document) {
    return events("<!---->" + document);
}

/// The scanner and expat must agree on every text, well-formed or not, wherever one hands over to the other.
TEST(SvnXmlReaderTest, reportsWhatExpatReports) {
    const std::string document =
        "\n<x\n   a=\"1 &amp; &quot;2&quot;\"\n   bb=''>\n<y bb=\"ö&#10;\" a='\"'>t &lt;&gt; ü\n</y>"
        "\t<z/>]]<y  /><y a=\"\">&#13;&apos;</y><é>\"'</é>\n</x>\n";
    ASSERT_EQ(events(document),
              "<x 1 & \"2\" <y \" ö\n|t <> ü\n/y><z - -|/z><y - -|/y><y  -|\r'/y><é - -|\"'/é>|\n/x>");
    EXPECT_EQ(events("<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + document), events(document));
    EXPECT_EQ(events("<x a='\x01\x1b\xef\xbf\xbe\x7f'>\x02</x>"), "<x \x01\x1b\xef\xbf\xbe\x7f -|\x02/x>")
        << "as svn prints names";
    const std::vector<std::string> pieces{
        "<",     ">",   "/",   "&",    "\"",    "'",       "=",     " ",         "\n",       "\r",
        "\xff",  "ö",   "]]>", "</y>", "<y>",   "a=\"2\"", "&#65;", "<![CDATA[", "<!-- -->", "<!DOCTYPE x>",
        "<?p?>", "&x;", ":",   "x",    "&amp;", "\x7f",    "<x>",   "</x>"};
    std::mt19937 random(1); // NOLINT(bugprone-random-generator-seed, cert-msc51-cpp): failures must be repeatable
    const auto below = [&random](std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
    };
    for (int i = 0; i < 10'000; ++i) {
        std::string changed = document;
        for (std::size_t changes = 1 + below(3); changes > 0 && !changed.empty(); --changes) {
            const std::size_t position = below(changed.size());
            changed.replace(position, below(3), below(4) == 0 ? std::string() : pieces[below(pieces.size())]);
        }
        ASSERT_EQ(events(changed), eventsOfExpat(changed)) << changed;
    }
}

} // namespace
} // namespace kestor

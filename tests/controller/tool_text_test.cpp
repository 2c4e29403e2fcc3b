#include "controller/tool_text.h"
#include "support/test.h"

namespace kestor {
namespace {

TEST(ToolText, OneBadByteCostsOnlyItsOwnLineTheUnicode) {
    EXPECT_EQ(toolText("gr\303\274\303\237e\n"), u"grüße\n"_s);
    EXPECT_EQ(toolText("gr\303\274n\nM\374ller\n\nend"), u"grün\nMüller\n\nend"_s);
    EXPECT_EQ(toolText(""), QString());
    EXPECT_EQ(toolText("\357\273\277a\n"), u"\uFEFFa\n"_s) << "a name may begin with a byte order mark";
    EXPECT_EQ(toolText("\377\n\357\273\277a"), u"ÿ\n\uFEFFa"_s);
}

} // namespace
} // namespace kestor

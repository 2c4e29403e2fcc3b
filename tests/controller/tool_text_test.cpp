#include "controller/tool_text.h"
#include "support/test.h"

namespace kestor {
namespace {

TEST(ToolText, OneBadByteCostsOnlyItsOwnLineTheUnicode) {
    EXPECT_EQ(toolText("gr\xC3\xBC\xC3\x9F"
                       "e\n"),
              u"grüße\n"_s);
    EXPECT_EQ(toolText("gr\xC3\xBCn\nM\xFCller\n\nend"), u"grün\nMüller\n\nend"_s);
    EXPECT_EQ(toolText("\xFF"), u"ÿ"_s);
    EXPECT_EQ(toolText(""), QString());
    EXPECT_EQ(toolText("\xEF\xBB\xBF"
                       "a\n"),
              u"\uFEFFa\n"_s)
        << "a name may begin with a byte order mark";
    EXPECT_EQ(toolText("\xFF\n\xEF\xBB\xBF"
                       "a"),
              u"ÿ\n\uFEFFa"_s);
}

} // namespace
} // namespace kestor

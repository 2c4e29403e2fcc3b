#include "controller/path_targets.h"
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

TEST(SvnTarget, HidesPegRevisionsAndOptions) {
    EXPECT_EQ(svnTarget(u"src/a.c"_s), u"src/a.c"_s);
    EXPECT_EQ(svnTarget(u"icon@2x.png"_s), u"icon@2x.png@"_s);
    EXPECT_EQ(svnTarget(u"-r@1"_s), u"./-r@1@"_s);
    EXPECT_EQ(svnTarget(u"a/-b"_s), u"a/-b"_s);
    EXPECT_EQ(svnDiffTarget(u"-r@1"_s), u"./-r@1"_s);
}

} // namespace
} // namespace kestor

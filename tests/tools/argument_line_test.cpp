#include "support/test.h"
#include "tools/argument_line.h"

namespace kestor {
namespace {

TEST(ArgumentLine, IsSplitAsTheUserReadsIt) {
    const Rows<QString, QStringList> rows{
        {"nothing", {}, {}},
        {"quoted blanks stay", uR"(commit -m "first line")"_s, u"commit|-m|first line"_list},
        {"runs of blanks", u"log -l 5   --xml"_s, u"log|-l|5|--xml"_list},
        {"empty quotes vanish", uR"(propset x "" '' file)"_s, u"propset|x|file"_list},
        {"pieces join", uR"(ab"c d"e)"_s, u"abc de"_list},
        {"other quote in quotes", uR"("it's" 'say "x"')"_s, {u"it's"_s, uR"(say "x")"_s}},
        {"line feed in quotes", u"'a\nb' c"_s, u"a\nb|c"_list},
        {"escaped blank", uR"(cat a\ b)"_s, u"cat|a b"_list},
        {"escapes in single quotes too", uR"('a\'b\\c')"_s, {uR"(a'b\c)"_s}},
        {"trailing backslash", uR"(echo end\)"_s, {u"echo"_s, uR"(end\)"_s}},
        {"quote with a combining mark", u"a\"\u0301b c"_s, u"a\"\u0301b|c"_list},
    };
    for (const auto &[name, line, arguments] : rows)
        EXPECT_EQ(parseArgumentLine(line), arguments);
}

} // namespace
} // namespace kestor

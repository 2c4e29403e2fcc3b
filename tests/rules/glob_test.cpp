#include "rules/glob.h"
#include "support/test.h"

namespace kestor {
namespace {

TEST(Glob, MatchesLikeTheExpressionItStandsFor) {
    const Rows<QString, QStringList, QStringList> rows{
        {"a star stays inside one folder", u"a/*.c"_s, u"a/.c|a/x.c"_list, u"a/b/x.c|x.c"_list},
        {"two stars cross folders", u"a/**/b"_s, u"a/x/b|a/x/y/b"_list, u"a/b"_list},
        {"leading stars need their slash", u"**/n"_s, u"d/n|/n"_list, u"n"_list},
        {"a question mark is one character", u"a?c"_s, u"abc|a\U0001F600c"_list, u"ac|a/c|abbc"_list},
        {"a backslash quotes", u"\\*\\?\\[\\a"_s, u"*?[a"_list, u"xx[a"_list},
        {"case matters", u"Ab"_s, u"Ab"_list, u"ab|AB"_list},
        {"expression characters are literal", u"(a|b)+^$.{1}"_s, {u"(a|b)+^$.{1}"_s}, u"a"_list},
        {"a range", u"[a-c]"_s, u"b"_list, u"d|-"_list},
        {"an exclamation mark negates", u"[!a]x"_s, u"bx|/x"_list, u"ax|x"_list},
        {"a caret does not negate", u"[^a]x"_s, u"^x|ax"_list, u"bx"_list},
        {"dashes at the ends are literal", u"[-a]_[a-]_[a-c-e]"_s, u"-_-_-|a_a_e"_list, u"b_a_d"_list},
        {"a set without characters never matches", u"[!]"_s, {}, u"[!]|!|a"_list},
        {"a backward range never matches", u"x[z-a]*"_s, {}, u"xz|x-|x[z-a]"_list},
        {"one final line break may follow", u"a"_s, u"a|a\n|a\r\n|a\u2028"_list, u"a\n\n|a\n\r"_list},
    };
    for (const auto &[name, pattern, matching, others] : rows) {
        const Glob glob(pattern);
        for (const QString &text : matching)
            EXPECT_TRUE(glob.matches(text)) << text.toStdString();
        for (const QString &text : others)
            EXPECT_FALSE(glob.matches(text)) << text.toStdString();
    }
}

} // namespace
} // namespace kestor

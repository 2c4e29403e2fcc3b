#include "rules/glob.h"
#include "support/printers.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

TEST(Glob, MatchesLikeTheExpressionItStandsFor) {
    struct Row {
        const char *name;
        QString pattern;
        QStringList matching;
        QStringList others;
    };
    const Row rows[] = {
        {"a star stays inside one folder", u"a/*.c"_s, {u"a/.c"_s, u"a/x.c"_s}, {u"a/b/x.c"_s, u"x.c"_s}},
        {"two stars cross folders", u"a/**/b"_s, {u"a/x/b"_s, u"a/x/y/b"_s}, {u"a/b"_s}},
        {"leading stars need their slash", u"**/n"_s, {u"d/n"_s, u"/n"_s}, {u"n"_s}},
        {"three stars are two and one", u"a***b"_s, {u"ab"_s, u"a/x/yb"_s}, {u"a/x/y"_s}},
        {"a question mark is one character", u"a?c"_s, {u"abc"_s, u"a\U0001F600c"_s}, {u"ac"_s, u"a/c"_s, u"abbc"_s}},
        {"a backslash quotes", u"\\*\\?\\[\\a"_s, {u"*?[a"_s}, {u"xx[a"_s}},
        {"a last backslash is literal", u"a\\"_s, {u"a\\"_s}, {u"a"_s}},
        {"case matters", u"Ab"_s, {u"Ab"_s}, {u"ab"_s, u"AB"_s}},
        {"expression characters are literal", u"(a|b)+^$.{1}"_s, {u"(a|b)+^$.{1}"_s}, {u"a"_s}},
        {"a range", u"[a-c]"_s, {u"b"_s}, {u"d"_s, u"-"_s}},
        {"a range of large characters", u"[\U0001F600-\U0001F610]"_s, {u"\U0001F604"_s}, {u"\U0001F620"_s, u"x"_s}},
        {"an exclamation mark negates", u"[!a]x"_s, {u"bx"_s, u"/x"_s}, {u"ax"_s, u"x"_s}},
        {"a caret does not negate", u"[^a]x"_s, {u"^x"_s, u"ax"_s}, {u"bx"_s}},
        {"dashes at the ends are literal", u"[-a]_[a-]_[a-c-e]"_s, {u"-_-_-"_s, u"a_a_e"_s}, {u"b_a_d"_s}},
        {"a set may hold a slash", u"a[/]b"_s, {u"a/b"_s}, {u"a[/]b"_s}},
        {"an open bracket alone is literal", u"[a"_s, {u"[a"_s}, {u"a"_s}},
        {"an empty bracket pair is literal", u"[]]"_s, {u"[]]"_s}, {u"]"_s}},
        {"the first bracket closes", u"[a\\]b]"_s, {u"\\b]"_s, u"ab]"_s}, {u"]"_s, u"b"_s}},
        {"a set without characters never matches", u"[!]"_s, {}, {u"[!]"_s, u"!"_s, u"a"_s}},
        {"a backward range never matches", u"x[z-a]*"_s, {}, {u"xz"_s, u"x-"_s, u"x[z-a]"_s}},
        {"set operators never match", u"[[a]"_s, {}, {u"["_s, u"a"_s, u"[[a]"_s}},
        {"one final line break may follow",
         u"a"_s,
         {u"a"_s, u"a\n"_s, u"a\r\n"_s, u"a\u2028"_s},
         {u"a\n\n"_s, u"a\n\r"_s}},
        {"a line break is no match inside one", u"a\r"_s, {u"a\r"_s, u"a\r\r"_s}, {u"a\r\n"_s}},
        {"two stars stop at line breaks", u"a**b"_s, {u"a b"_s}, {u"a\nb"_s, u"a\u0085b"_s}},
        {"one star crosses line breaks", u"a*b?c"_s, {u"a\nb\nc"_s}, {}},
        {"repetitions that compete", u"*[!a]*b"_s, {u"xy/zb"_s}, {u"xy/z"_s}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const Glob glob(row.pattern);
        for (const QString &text : row.matching)
            EXPECT_TRUE(glob.matches(text)) << text.toStdString();
        for (const QString &text : row.others)
            EXPECT_FALSE(glob.matches(text)) << text.toStdString();
    }
}

} // namespace
} // namespace kestor

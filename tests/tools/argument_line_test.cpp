#include "support/printers.h"
#include "tools/argument_line.h"

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

TEST(ArgumentLine, IsSplitAsTheUserReadsIt) {
    struct Row {
        const char *name;
        QString line;
        QStringList arguments;
    };
    const Row rows[] = {
        {"nothing", {}, {}},
        {"only blanks", u" \t\n "_s, {}},
        {"quoted blanks stay", uR"(commit -m "first line")"_s, {u"commit"_s, u"-m"_s, u"first line"_s}},
        {"runs of blanks", u"log -l 5   --xml"_s, {u"log"_s, u"-l"_s, u"5"_s, u"--xml"_s}},
        {"empty quotes vanish", uR"(propset x "" '' file)"_s, {u"propset"_s, u"x"_s, u"file"_s}},
        {"pieces join", uR"(ab"c d"e)"_s, {u"abc de"_s}},
        {"other quote in quotes", uR"("it's" 'say "x"')"_s, {u"it's"_s, uR"(say "x")"_s}},
        {"line feed in quotes", u"'a\nb' c"_s, {u"a\nb"_s, u"c"_s}},
        {"escaped blank", uR"(cat a\ b)"_s, {u"cat"_s, u"a b"_s}},
        {"escapes in single quotes too", uR"('a\'b\\c')"_s, {uR"(a'b\c)"_s}},
        {"trailing backslash", uR"(echo end\)"_s, {u"echo"_s, uR"(end\)"_s}},
        {"lone backslash", uR"(\)"_s, {uR"(\)"_s}},
        {"carriage return is ordinary", u"a\rb"_s, {u"a\rb"_s}},
        {"so is one before a line feed, with which it is one character", u"a\r\nb"_s, {u"a\r\nb"_s}},
        {"quote with a combining mark", u"a\"\u0301b c"_s, {u"a\"\u0301b"_s, u"c"_s}},
        {"blank with a combining mark", u"a \u0301b"_s, {u"a \u0301b"_s}},
        {"backslash with a combining mark", u"\\\u0301\"x\""_s, {u"\\\u0301x"_s}},
        {"escaped character of several units",
         u"\\\U0001F469\u200D\U0001F4BB x"_s,
         {u"\U0001F469\u200D\U0001F4BB"_s, u"x"_s}},
        {"zero byte", u"a\0b"_s, {u"a\0b"_s}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(parseArgumentLine(row.line), row.arguments);
    }
}

TEST(ArgumentLine, AnUnclosedQuoteIsAnError) {
    for (const QChar quote : u"\"'"_s) {
        try {
            parseArgumentLine(u"log -r "_s + quote + u"5\\"_s + quote);
            ADD_FAILURE() << "no error for " << quote.toLatin1();
        } catch (const ArgumentParsingError &error) {
            EXPECT_EQ(error.character(), quote);
            EXPECT_EQ(error.errorDescription(), u"Missing closing %1 quote."_s.arg(quote));
        }
    }
}

TEST(ArgumentLine, AMegabyteIsNothingSpecial) {
    const QString word = u"größe "_s;
    EXPECT_EQ(parseArgumentLine(word.repeated(1 << 17)).size(), 1 << 17);
    EXPECT_EQ(parseArgumentLine(u'"' + word.repeated(1 << 17) + u'"'), QStringList(word.repeated(1 << 17)));
}

} // namespace
} // namespace kestor

#include "rules/glob.h"
#include "support/printers.h"

#include <QRandomGenerator>
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

/// The expression that the glob stands for, built in the plainest way.
QString expressionFor(const QString &pattern) {
    QString expression;
    const auto appendLiteral = [&](qsizetype &i) {
        const qsizetype size = pattern[i].isHighSurrogate() ? 2 : 1;
        expression += QRegularExpression::escape(pattern.sliced(i, size));
        i += size - 1;
    };
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const qsizetype close = pattern.indexOf(u']', i + 1);
        if (pattern[i] == u'*') {
            const bool twice = pattern.sliced(i).startsWith(u"**");
            expression += twice ? u".*"_s : u"[^/]*"_s;
            i += twice ? 1 : 0;
        } else if (pattern[i] == u'?') {
            expression += u"[^/]"_s;
        } else if (pattern[i] == u'[' && close > i + 1) {
            QString body = pattern.sliced(i + 1, close - i - 1);
            const bool negated = body.startsWith(u'!');
            body = body.sliced(negated ? 1 : 0).replace(u'\\', u"\\\\"_s).replace(u'^', u"\\^"_s);
            expression += u'[' + (negated ? u"^"_s : QString()) + body + u']';
            i = close;
        } else {
            i += pattern[i] == u'\\' && i + 1 < pattern.size() ? 1 : 0;
            appendLiteral(i);
        }
    }
    return u'^' + expression + u'$';
}

QString randomText(QRandomGenerator &random, const QStringList &pieces, int maximum) {
    QString text;
    for (int count = random.bounded(maximum + 1); count > 0; --count)
        text += pieces[random.bounded(pieces.size())];
    return text;
}

// The verb in front makes the engine's line breaks those of the expressions meant here. Left out are a CR before a
// final LF and set bodies that engines read differently ("[!]", nested brackets, "--", "&&").
TEST(Glob, AgreesWithTheExpressionOnRandomTexts) {
    const QStringList patternPieces{u"a"_s,    u"b"_s,  u"/"_s,  u"."_s,     u"*"_s,         u"*"_s,    u"**"_s,
                                    u"?"_s,    u"\\"_s, u"\n"_s, u"[a]"_s,   u"[!a]"_s,      u"[^b]"_s, u"[a-b/]"_s,
                                    u"[!/]"_s, u"["_s,  u"]"_s,  u"[b-a]"_s, u"\U0001F600"_s};
    const QStringList textPieces{u"a"_s, u"a"_s, u"b"_s, u"b"_s,  u"/"_s,      u"."_s,         u"\n"_s,
                                 u"["_s, u"]"_s, u"^"_s, u"\\"_s, u"\u2028"_s, u"\U0001F600"_s};
    QRandomGenerator random(20240229);
    int matched = 0;
    for (int round = 0; round < 4000; ++round) {
        const QString pattern = randomText(random, patternPieces, 6);
        if (pattern.contains(QRegularExpression(u"\\[[^\\]]*\\[[^\\]]*\\]"_s)))
            continue;
        const Glob glob(pattern);
        const QRegularExpression expression(u"(*ANY)"_s + expressionFor(pattern),
                                            QRegularExpression::UseUnicodePropertiesOption);
        for (int attempt = 0; attempt < 20; ++attempt) {
            const QString text = randomText(random, textPieces, 6);
            const bool expected = expression.isValid() && expression.match(text).hasMatch();
            ASSERT_EQ(glob.matches(text), expected) << pattern.toStdString() << " on " << text.toStdString();
            matched += expected ? 1 : 0;
        }
    }
    EXPECT_GT(matched, 1000) << "the texts hardly ever match";
}

// What a matching text must contain is what finds the rule at all.
TEST(Glob, KnowsAPieceOfEveryMatch) {
    using Kind = GlobPiece::Kind;
    struct Row {
        const char *name;
        QString pattern;
        GlobPiece piece;
    };
    const Row rows[] = {
        {"a plain name", u"build"_s, {Kind::name, u"build"_s}},
        {"a quoted name", u"\\#x"_s, {Kind::name, u"#x"_s}},
        {"the longest name of a path", u"src/generated/*.c"_s, {Kind::name, u"generated"_s}},
        {"a name between wildcards", u"**/gen/**"_s, {Kind::name, u"gen"_s}},
        {"the last extension", u"*.tar.gz"_s, {Kind::extension, u".gz"_s}},
        {"an extension inside a path", u"*/[a-z]*.d/?"_s, {Kind::extension, u".d"_s}},
        {"a name that goes on is no piece", u"gen*"_s, {}},
        {"an end without a dot is no extension", u"*~"_s, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Glob(row.pattern).requiredPiece(), row.piece);
    }
}

} // namespace
} // namespace kestor

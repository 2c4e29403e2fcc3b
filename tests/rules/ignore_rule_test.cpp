#include "rules/ignore_rule.h"
#include "support/printers.h"

#include <gtest/gtest.h>
#include <tuple>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

enum Flag { negated = 1, directoryOnly = 2, anchored = 4, hasSlash = 8 };

int flagsOf(const IgnoreRule &rule) {
    return (rule.isNegated ? negated : 0) | (rule.directoryOnly ? directoryOnly : 0) | (rule.anchored ? anchored : 0) |
           (rule.hasSlash ? hasSlash : 0);
}

TEST(IgnoreRule, ReadsLines) {
    struct Row {
        const char *name;
        QString line;
        QString pattern;
        int flags;
    };
    const Row rows[] = {
        {"a name", u"foo"_s, u"foo"_s, 0},
        {"a carriage return goes before the spaces", u"foo  \r"_s, u"foo"_s, 0},
        {"a quoted trailing space stays", u"foo\\ "_s, u"foo\\ "_s, 0},
        {"a space behind a quoted backslash goes", u"foo\\\\ "_s, u"foo\\\\"_s, 0},
        {"only spaces are trimmed, not the tab before them", u"foo\t "_s, u"foo\t"_s, 0},
        {"a quoted number sign", u"\\# x"_s, u"# x"_s, 0},
        {"a quoted exclamation mark", u"\\!x"_s, u"!x"_s, 0},
        {"a leading space belongs to the pattern", u" # x"_s, u" # x"_s, 0},
        {"everything at once", u"!/build//"_s, u"build"_s, negated | directoryOnly | anchored},
        {"an inner slash", u"a/b"_s, u"a/b"_s, hasSlash},
        {"a quoted mark after a negation stays quoted", u"!\\#x"_s, u"\\#x"_s, negated},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const std::optional<IgnoreRule> rule = IgnoreRule::fromLine(row.line, u"");
        ASSERT_TRUE(rule.has_value());
        EXPECT_EQ(std::tuple(rule->pattern, flagsOf(*rule)), std::tuple(row.pattern, row.flags));
    }
    for (const QString &line : {u""_s, u"   "_s, u"\r"_s, u"# x"_s, u"!"_s, u"/"_s, u"!//"_s})
        EXPECT_FALSE(IgnoreRule::fromLine(line, u"")) << line.toStdString();
}

// A path that ends with "/" is asked for as a folder.
bool matches(const IgnoreRule &rule, QString path) {
    const bool isDirectory = path.endsWith(u'/');
    path.chop(isDirectory ? 1 : 0);
    return rule.matches(path, isDirectory);
}

TEST(IgnoreRule, MatchesPaths) {
    struct Row {
        const char *name;
        QString base;
        QString line;
        QStringList matching;
        QStringList others;
    };
    const Row rows[] = {
        {"a name at any depth", u""_s, u"*.o"_s, {u"c.o"_s, u"a/b/c.o"_s, u"x.o/"_s, u"x.o/y.c"_s}, {u"a.o.d"_s}},
        {"a folder by name",
         u""_s,
         u"build/"_s,
         {u"build/"_s, u"build/x"_s, u"a/build/x"_s},
         {u"build"_s, u"a/build"_s}},
        {"a slash in front anchors", u""_s, u"/build"_s, {u"build"_s, u"build/x"_s}, {u"src/build"_s}},
        {"a slash inside anchors", u""_s, u"doc/*.txt"_s, {u"doc/a.txt"_s}, {u"doc/s/a.txt"_s, u"x/doc/a.txt"_s}},
        {"below the file's folder only",
         u"sub"_s,
         u"*.log"_s,
         {u"sub/a.log"_s, u"sub/x/a.log"_s},
         {u"a.log"_s, u"sub2/a.log"_s}},
        {"never the file's folder itself", u"sub"_s, u"sub"_s, {u"sub/sub"_s}, {u"sub/"_s, u"sub/x"_s}},
        {"anchored at the file's folder", u"s/t"_s, u"/x"_s, {u"s/t/x"_s}, {u"x"_s, u"s/x"_s, u"s/t/y/x"_s}},
        {"all of a folder is the folder",
         u""_s,
         u"build/*"_s,
         {u"build/"_s, u"build/x"_s, u"build/x/y"_s},
         {u"build"_s}},
        {"two stars are not", u""_s, u"build/**"_s, {u"build/x"_s, u"build/x/y"_s}, {u"build/"_s}},
        {"a path folder and what it holds", u""_s, u"a/b*/"_s, {u"a/b1/"_s, u"a/b1/x"_s}, {u"a/b1"_s, u"c/a/b1/"_s}},
        {"a file named like the pattern stops the search", u""_s, u"/a**/"_s, {u"ab/"_s}, {u"ab/c"_s, u"ab"_s}},
        {"doubled slashes match nothing", u""_s, u"a//b"_s, {}, {u"a/b"_s}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const std::optional<IgnoreRule> rule = IgnoreRule::fromLine(row.line, row.base);
        ASSERT_TRUE(rule.has_value());
        for (const QString &path : row.matching)
            EXPECT_TRUE(matches(*rule, path)) << path.toStdString();
        for (const QString &path : row.others)
            EXPECT_FALSE(matches(*rule, path)) << path.toStdString();
    }
}

TEST(IgnoreRule, KnowsTheFoldersItCanReach) {
    struct Row {
        const char *name;
        QString base;
        QString line;
        QStringList reached;
        QStringList others;
    };
    const Row rows[] = {
        {"a name reaches everywhere", u"sub"_s, u"x"_s, {u"a"_s, u"sub"_s}, {}},
        {"a path reaches its line of folders",
         u""_s,
         u"a/b/c"_s,
         {u"a"_s, u"a/b/c"_s, u"a/b/c/d"_s},
         {u"a/x"_s, u"ab"_s}},
        {"a wildcard reaches from its folder",
         u""_s,
         u"a/b/c*"_s,
         {u"a"_s, u"a/b"_s, u"a/b/x"_s},
         {u"a/x"_s, u"a/bc"_s}},
        {"the file's folder counts", u"s"_s, u"/x*"_s, {u"s"_s, u"s/y"_s}, {u"t"_s}},
        {"a leading wildcard reaches everywhere", u""_s, u"/g*/x"_s, {u"a"_s, u"g/x"_s}, {}},
        {"a quoted wildcard is none", u""_s, u"a/\\*b"_s, {u"a"_s}, {u"a/x"_s}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const std::optional<IgnoreRule> rule = IgnoreRule::fromLine(row.line, row.base);
        ASSERT_TRUE(rule.has_value());
        for (const QString &folder : row.reached)
            EXPECT_TRUE(rule->canMatchDescendant(folder)) << folder.toStdString();
        for (const QString &folder : row.others)
            EXPECT_FALSE(rule->canMatchDescendant(folder)) << folder.toStdString();
    }
}

} // namespace
} // namespace kestor

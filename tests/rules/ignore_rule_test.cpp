#include "rules/ignore_rule.h"
#include "rules/ignore_rules.h"
#include "support/test.h"

#include <tuple>

namespace kestor {
namespace {

enum Flag { negated = 1, directoryOnly = 2, anchored = 4, hasSlash = 8 };

int flagsOf(const IgnoreRule &rule) {
    return (rule.isNegated ? negated : 0) | (rule.directoryOnly ? directoryOnly : 0) | (rule.anchored ? anchored : 0) |
           (rule.hasSlash ? hasSlash : 0);
}

TEST(IgnoreRule, ReadsLines) {
    const Rows<QString, QString, int> rows{
        {"a name", u"foo"_s, u"foo"_s, 0},
        {"a carriage return goes before the spaces", u"foo  \r"_s, u"foo"_s, 0},
        {"a quoted trailing space stays", u"foo\\ "_s, u"foo\\ "_s, 0},
        {"only spaces are trimmed, not the tab before them", u"foo\t "_s, u"foo\t"_s, 0},
        {"a quoted number sign", u"\\# x"_s, u"# x"_s, 0},
        {"a quoted exclamation mark", u"\\!x"_s, u"!x"_s, 0},
        {"a leading space belongs to the pattern", u" # x"_s, u" # x"_s, 0},
        {"everything at once", u"!/build//"_s, u"build"_s, negated | directoryOnly | anchored},
        {"an inner slash", u"a/b"_s, u"a/b"_s, hasSlash},
    };
    for (const auto &[name, line, pattern, flags] : rows) {
        const std::optional<IgnoreRule> rule = IgnoreRule::fromLine(line, u"");
        ASSERT_TRUE(rule.has_value());
        EXPECT_EQ(std::tuple(rule->pattern, flagsOf(*rule)), std::tuple(pattern, flags));
    }
    for (const QString &line : u"|   |\r|# x|!|/|!//"_list)
        EXPECT_FALSE(IgnoreRule::fromLine(line, u"")) << line.toStdString();
}

// A path that ends with "/" is asked for as a folder.
bool matches(const IgnoreRule &rule, QString path) {
    const bool isDirectory = path.endsWith(u'/');
    path.chop(isDirectory ? 1 : 0);
    const bool matches = rule.matches(path, isDirectory);
    // In a list the rule is found by its last name or ending.
    EXPECT_EQ(IgnoreRules({rule}).decision(path, isDirectory).has_value(), matches) << path.toStdString();
    return matches;
}

TEST(IgnoreRule, MatchesPaths) {
    const Rows<QString, QString, QStringList, QStringList> rows{
        {"a name at any depth", u""_s, u"*.o"_s, u"c.o|a/b/c.o|x.o/|x.o/y.c"_list, u"a.o.d"_list},
        {"a folder by name", u""_s, u"build/"_s, u"build/|build/x|a/build/x"_list, u"build|a/build"_list},
        {"a slash in front anchors", u""_s, u"/build"_s, u"build|build/x"_list, u"src/build"_list},
        {"a slash inside anchors", u""_s, u"doc/*.txt"_s, u"doc/a.txt"_list, u"doc/s/a.txt|x/doc/a.txt"_list},
        {"below the file's folder only", u"sub"_s, u"*.log"_s, u"sub/a.log|sub/x/a.log"_list, u"a.log|sub2/a.log"_list},
        {"never the file's folder itself", u"sub"_s, u"sub"_s, u"sub/sub"_list, u"sub/|sub/x"_list},
        {"anchored at the file's folder", u"s/t"_s, u"/x"_s, u"s/t/x"_list, u"x|s/x|s/t/y/x"_list},
        {"all of a folder is the folder", u""_s, u"build/*"_s, u"build/|build/x|build/x/y"_list, u"build"_list},
        {"two stars are not", u""_s, u"build/**"_s, u"build/x|build/x/y"_list, u"build/"_list},
        {"a path folder and what it holds", u""_s, u"a/b*/"_s, u"a/b1/|a/b1/x"_list, u"a/b1|c/a/b1/"_list},
        {"a file named like the pattern stops the search", u""_s, u"/a**/"_s, u"ab/"_list, u"ab/c|ab"_list},
        {"doubled slashes match nothing", u""_s, u"a//b"_s, {}, u"a/b"_list},
    };
    for (const auto &[name, base, line, matching, others] : rows) {
        const std::optional<IgnoreRule> rule = IgnoreRule::fromLine(line, base);
        ASSERT_TRUE(rule.has_value());
        for (const QString &path : matching)
            EXPECT_TRUE(matches(*rule, path)) << path.toStdString();
        for (const QString &path : others)
            EXPECT_FALSE(matches(*rule, path)) << path.toStdString();
    }
}

} // namespace
} // namespace kestor

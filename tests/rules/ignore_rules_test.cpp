#include "rules/ignore_rules.h"
#include "support/printers.h"
#include "support/temp_tree.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::TempTree;

IgnoreRules rulesOf(const QStringList &lines) {
    QList<IgnoreRule> rules;
    for (const QString &line : lines)
        rules.append(*IgnoreRule::fromLine(line, u""));
    return IgnoreRules(rules);
}

QStringList patternsOf(const IgnoreRules &rules) {
    QStringList patterns;
    for (const IgnoreRule &rule : rules.list())
        patterns.append(rule.basePath + u':' + rule.pattern);
    return patterns;
}

TEST(IgnoreRules, LetTheLastMatchDecide) {
    struct Row {
        const char *name;
        QStringList lines;
        QString path;
        std::optional<bool> decision;
    };
    const Row rows[] = {
        {"no rules", {}, u"a"_s, std::nullopt},
        {"the root", {u"*"_s}, u"./"_s, std::nullopt},
        {"ignored", {u"*.log"_s, u"!keep.log"_s}, u"x.log"_s, true},
        {"brought back", {u"*.log"_s, u"!keep.log"_s}, u"keep.log"_s, false},
        {"ignored again", {u"!keep.log"_s, u"*.log"_s}, u"keep.log"_s, true},
        {"brought back although nothing ignored it", {u"!a"_s}, u"a"_s, false},
        {"a path that is not normalised", {u"/a/b"_s}, u"/a//./b/"_s, true},
        {"a name with a final line break", {u"*.log"_s}, u"d/x.log\n"_s, true},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(rulesOf(row.lines).decision(row.path, false), row.decision);
    }
}

std::optional<bool> decisionOfAllRules(const IgnoreRules &rules, const QString &path, bool isDirectory) {
    std::optional<bool> decision;
    for (const IgnoreRule &rule : rules.list()) {
        if (rule.matches(path, isDirectory))
            decision = !rule.isNegated;
    }
    return decision;
}

TEST(IgnoreRules, DecideAsIfEveryRuleWereTested) {
    QRandomGenerator random(4711);
    const auto joined = [&random](const QStringList &pieces, int maximum, const QString &separator) {
        QStringList chosen{pieces[random.bounded(pieces.size())]};
        while (chosen.size() < maximum && random.bounded(3) > 0)
            chosen.append(pieces[random.bounded(pieces.size())]);
        return chosen.join(separator);
    };
    const QStringList patternPieces{u"a"_s,  u"b.c"_s, u"*.c"_s,  u"a*"_s, u"*"_s,     u"**"_s, u".c"_s,
                                    u"*a"_s, u"?"_s,   u"[ab]"_s, u"a/"_s, u"*.x.c"_s, u"/"_s,  u"a\\.c"_s};
    const QStringList names{u"a"_s, u"b.c"_s, u"ab"_s, u".c"_s, u"a.x.c"_s, u"c"_s, u"a.c\n"_s, u"b."_s};
    int matched = 0;
    for (int round = 0; round < 300; ++round) {
        QList<IgnoreRule> list;
        while (list.size() < 12) {
            const QString line = (random.bounded(4) == 0 ? u"!"_s : QString()) + joined(patternPieces, 4, u""_s);
            if (auto rule = IgnoreRule::fromLine(line, random.bounded(3) == 0 ? joined(names, 2, u"/"_s) : QString()))
                list.append(*std::move(rule));
        }
        const IgnoreRules rules(list);
        for (int attempt = 0; attempt < 60; ++attempt) {
            const QString path = joined(names, 5, u"/"_s);
            const bool isDirectory = random.bounded(2) == 0;
            const std::optional<bool> expected = decisionOfAllRules(rules, path, isDirectory);
            ASSERT_EQ(rules.decision(path, isDirectory), expected) << path.toStdString();
            matched += expected ? 1 : 0;
        }
    }
    EXPECT_GT(matched, 3000) << "the paths hardly ever match";
}

TEST(IgnoreRules, LoadOnlyWhatCanAffectTheCandidates) {
    TempTree tree;
    tree.write(u".gitignore"_s, "build/\nopen/\n!open/keep.txt\nroot\n");
    tree.write(u".kestorignore"_s, "kestor\r\n\n# comment\n");
    for (const QString &folder : {u"b"_s, u"a10"_s, u"a9"_s, u"a9/deep"_s, u"build"_s, u"open"_s, u"aside"_s})
        tree.write(folder + u"/.gitignore"_s, folder.toUtf8() + "\n");
    tree.write(u"latin/.gitignore"_s, "gr\xF6\xDF"
                                      "e\n");
    tree.write(u"cut/.gitignore"_s, "cut\ncaf\xE9");
    tree.makeDirectory(u"folder/.gitignore"_s);
    tree.makeDirectory(u"pipe"_s);
    ASSERT_EQ(::mkfifo(tree.path(u"pipe/.gitignore"_s).toUtf8().constData(), 0600), 0);

    const QStringList candidates{u"b"_s,     u"a10/x"_s,    u"a9//deep/x"_s, u"build/x"_s, u"open/x"_s, u"latin/x"_s,
                                 u"cut/x"_s, u"folder/x"_s, u"pipe/x"_s,     u"missing"_s, u""_s};
    const QStringList expected{u":build"_s,    u":open"_s,          u":open/keep.txt"_s, u":root"_s,
                               u":kestor"_s,   u"a9:a9"_s,          u"a10:a10"_s,        u"b:b"_s,
                               u"open:open"_s, u"a9/deep:a9/deep"_s};
    EXPECT_EQ(patternsOf(IgnoreRules::load(tree.path(), candidates)), expected);
    EXPECT_EQ(patternsOf(IgnoreRules::load(tree.path(u"nowhere"_s), candidates)), QStringList());
}

TEST(IgnoreRules, KnowWhereNegatedRulesReach) {
    const IgnoreRules rules = rulesOf({u"a"_s, u"!/b/c"_s});
    EXPECT_TRUE(rules.hasIncludedDescendant(u""));
    EXPECT_TRUE(rules.hasIncludedDescendant(u"/b/"));
    EXPECT_FALSE(rules.hasIncludedDescendant(u"a"));
    EXPECT_FALSE(rulesOf({u"a"_s}).hasIncludedDescendant(u""));
}

} // namespace
} // namespace kestor

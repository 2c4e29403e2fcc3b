#include "rules/ignore_rules.h"
#include "rules_of.h"
#include "support/temp_tree.h"
#include "support/test.h"

#include <sys/stat.h>

namespace kestor {
namespace {

QStringList patternsOf(const IgnoreRules &rules) {
    QStringList patterns;
    for (const IgnoreRule &rule : rules.list())
        patterns.append(rule.basePath + u':' + rule.pattern);
    return patterns;
}

TEST(IgnoreRules, LetTheLastMatchDecide) {
    const Rows<QStringList, QString, std::optional<bool>> rows{
        {"no rules", {}, u"a"_s, std::nullopt},
        {"the root", u"*"_list, u"./"_s, std::nullopt},
        {"ignored", u"*.log|!keep.log"_list, u"x.log"_s, true},
        {"brought back", u"*.log|!keep.log"_list, u"keep.log"_s, false},
        {"ignored again", u"!keep.log|*.log"_list, u"keep.log"_s, true},
        {"brought back although nothing ignored it", u"!a"_list, u"a"_s, false},
        {"a path that is not normalised", u"/a/b"_list, u"/a//./b/"_s, true},
        {"a name with a final line break", u"*.log"_list, u"d/x.log\n"_s, true},
    };
    for (const auto &[name, lines, givenPath, decision] : rows)
        EXPECT_EQ(rulesOf(lines).decision(givenPath, false), decision);
}

TEST(IgnoreRules, LoadOnlyWhatCanAffectTheCandidates) {
    TempTree tree;
    tree.writeAll(
        {{u".gitignore"_s, "build/\nopen/\n!open/keep.txt\nroot\n"}, {u".kestorignore"_s, "kestor\r\n\n# comment\n"}});
    for (const QString &folder : u"b|a10|a9|a9/deep|build|open|aside"_list)
        tree.write(folder + u"/.gitignore"_s, folder.toUtf8() + "\n");
    tree.write(u"latin/.gitignore"_s, "gr\xF6\xDF"
                                      "e\n");
    tree.write(u"cut/.gitignore"_s, "cut\ncaf\xE9");
    tree.makeDirectory(u"folder/.gitignore"_s);
    tree.makeDirectory(u"pipe"_s);
    ASSERT_EQ(::mkfifo(tree.path(u"pipe/.gitignore"_s).toUtf8().constData(), 0600), 0);

    const QStringList candidates = u"b|a10/x|a9//deep/x|build/x|open/x|latin/x|cut/x|folder/x|pipe/x|missing|"_list;
    const QStringList expected = u":build|:open|:open/keep.txt|:root|:kestor|a9:a9|a10:a10|b:b|open:open|"
                                 "a9/deep:a9/deep"_list;
    EXPECT_EQ(patternsOf(IgnoreRules::load(tree.path(), candidates)), expected);
    EXPECT_EQ(patternsOf(IgnoreRules::load(tree.path(u"nowhere"_s), candidates)), QStringList());
}

} // namespace
} // namespace kestor

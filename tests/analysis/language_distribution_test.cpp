#include "analysis/language_distribution.h"
#include "support/temp_tree.h"
#include "support/test.h"

#include <sys/stat.h>

namespace kestor {
namespace {

using Analyzer = LanguageDistributionAnalyzer;

CustomLanguageRule rule(const QString &extension, const QString &name, const QString &color = u"#112233"_s) {
    return {.fileExtension = extension, .languageName = name, .colorHex = color};
}

/// "Name bytes #color" of every entry.
QStringList counted(const TempTree &tree, const QList<CustomLanguageRule> &rules = {}, const QString &folder = {}) {
    QStringList lines;
    for (const LanguageDistributionEntry &entry : Analyzer::analyzeSync(tree.path(folder), rules))
        lines.append(u"%1 %2 %3"_s.arg(entry.name).arg(entry.bytes).arg(entry.colorHex));
    return lines;
}

QByteArray bytes(int count) {
    return QByteArray(count, 'x');
}

TEST(LanguageDefinition, GoesByRuleThenNameThenExtension) {
    const CustomLanguages custom =
        Analyzer::customExtensionLanguages({rule(u"txt"_s, u"Notes"_s), rule(u"É"_s, u"Accent"_s)});
    const Rows<QString, QString> rows{
        {"a rule beats the name of the file", u"/p/CMakeLists.txt"_s, u"Notes"_s},
        {"extension of a rule beyond ASCII", u"x.é"_s, u"Accent"_s},
        {"both spellings of one name", u"justfile"_s, u"Just"_s},
        {"the name of a folder is none of a file", u"/Makefile/x"_s, {}},
        {"extensions are not case-sensitive", u"a/b.HPP"_s, u"C++"_s},
        {"only the last extension counts", u"a.cpp.h"_s, u"C"_s},
        {"a hidden file is no extension", u"a/.sh"_s, {}},
    };
    for (const auto &[name, path, wantedLanguage] : rows) {
        const std::optional<LanguageDefinition> language = Analyzer::languageDefinition(path, custom);
        EXPECT_EQ(language ? language->name : QString(), wantedLanguage);
    }
}

TEST(LanguageDistribution, AddsUpBytesLargestFirst) {
    TempTree tree;
    EXPECT_EQ(counted(tree), QStringList());
    tree.writeAll({{u"b.go"_s, bytes(5)},
                   {u"c.py"_s, bytes(5)},
                   {u"d/Rakefile"_s, bytes(4)},
                   {u"d/e/f.rb"_s, bytes(3)},
                   {u"Empty.java"_s, bytes(0)},
                   {u"a.C"_s, bytes(5)},
                   {u"LICENSE"_s, bytes(100)}});
    const QStringList expected = u"Ruby 7 #701516|C 5 #555555|Go 5 #00ADD8|Python 5 #3572A5|Java 0 #b07219"_list;
    EXPECT_EQ(counted(tree), expected);
    EXPECT_EQ(counted(tree, {}, u"missing"_s), QStringList());
}

TEST(LanguageDistribution, RulesOverrideAndTheFirstFileColorsAName) {
    TempTree tree;
    tree.writeAll({{u"z/a.h"_s, bytes(1)}, {u"a.cpp"_s, bytes(2)}, {u"m/b.inc"_s, bytes(4)}});
    EXPECT_EQ(counted(tree, {rule(u".H"_s, u"C Header"_s)}), u"C++ 2 #f34b7d|C Header 1 #112233"_list);
    EXPECT_EQ(counted(tree, {rule(u"inc"_s, u"C++"_s)}), u"C++ 6 #f34b7d|C 1 #555555"_list);
    EXPECT_EQ(counted(tree, {rule(u"inc"_s, u"C"_s)}), u"C 5 #112233|C++ 2 #f34b7d"_list);
}

TEST(LanguageDistribution, EntersNoFoldersOfToolsAndFollowsNoLinks) {
    TempTree tree;
    tree.writeAll({{u"kept/builds/a.c"_s, bytes(1)}, {u"kept/Vendor/a.c"_s, bytes(1)}, {u"kept/target"_s, bytes(1)}});
    for (const QString &skipped : u".git|x/vendor|x/tmp|y/node_modules|z/.build"_list)
        tree.write(skipped + u"/deep/a.c"_s, bytes(100));
    QFile::link(tree.path(u"kept/builds/a.c"_s), tree.path(u"link.c"_s));
    QFile::link(tree.path(u"kept"_s), tree.path(u"kept/loop"_s));
    QFile::link(tree.path(u"nothing"_s), tree.path(u"dangling.c"_s));
    QFile::link(tree.path(u"kept"_s), tree.path(u"linked.c"_s));
    ASSERT_EQ(::mkfifo(tree.path(u"pipe.c"_s).toUtf8().constData(), 0600), 0);
    EXPECT_EQ(counted(tree), u"C 2 #555555"_list);
    EXPECT_EQ(counted(tree, {}, u"x/../linked.c"_s), u"C 2 #555555"_list) << "the root may be a link";
}

TEST(LanguageDistribution, RespectsEveryIgnoreFileOnTheWay) {
    TempTree tree;
    for (const QString &path : u"a.c|gen/a.c|gen/kept.c|lib/a.c|lib/gen.c|lib/sub/gen.c|lib/sub/only.go|"
                               "other/gen.c|other/only.go|pic/Ä.py"_list)
        tree.write(path, bytes(1));
    EXPECT_EQ(counted(tree), u"C 7 #555555|Go 2 #00ADD8|Python 1 #3572A5"_list);
    tree.write(u".gitignore"_s, "/gen/\ngen.c\n!gen/kept.c\nÄ.*\n");
    EXPECT_EQ(counted(tree), u"C 2 #555555|Go 2 #00ADD8"_list) << "nothing comes back out of an ignored folder";
    tree.write(u"lib/.gitignore"_s, "!gen.c\n/only.go\n");
    EXPECT_EQ(counted(tree), u"C 4 #555555|Go 2 #00ADD8"_list) << "deeper files decide";
    tree.writeAll({{u"lib/sub/.gitignore"_s, "*\n"}, {u"lib/sub/.kestorignore"_s, "!*.go\n"}});
    EXPECT_EQ(counted(tree), u"C 3 #555555|Go 2 #00ADD8"_list);
    tree.writeAll({{u"gen/.gitignore"_s, "!*\n"}, {u"other/.gitignore"_s, "caf\xe9\n*.go\n"}});
    EXPECT_EQ(counted(tree), u"C 3 #555555|Go 2 #00ADD8"_list) << "no UTF-8, no rules";
}

TEST(LanguageDistribution, CountsLargeTreesOnceAndStopsWhenAsked) {
    TempTree tree;
    for (int i = 0; i < 700; ++i)
        tree.write(u"%1/%2/%3.rs"_s.arg(i % 7).arg(i % 113).arg(i), bytes(i % 3));
    EXPECT_EQ(counted(tree), u"Rust 699 #dea584"_list);
    std::stop_source source;
    source.request_stop();
    EXPECT_EQ(Analyzer::analyzeSync(tree.path(), {}, source.get_token()), QList<LanguageDistributionEntry>());
}

} // namespace
} // namespace kestor

#include "analysis/language_distribution.h"
#include "support/printers.h"
#include "support/temp_tree.h"
#include "support/without_privileges.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::TempTree;
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
    const struct Row {
        const char *name;
        QString path;
        QString language;
    } rows[] = {
        {"a rule beats the name of the file", u"/p/CMakeLists.txt"_s, u"Notes"_s},
        {"extension of a rule beyond ASCII", u"x.é"_s, u"Accent"_s},
        {"name", u"/p/Makefile"_s, u"Makefile"_s},
        {"names are case-sensitive", u"/p/makefile"_s, {}},
        {"both spellings of one name", u"justfile"_s, u"Just"_s},
        {"the name of a folder is none of a file", u"/Makefile/x"_s, {}},
        {"extensions are not case-sensitive", u"a/b.HPP"_s, u"C++"_s},
        {"only the last extension counts", u"a.cpp.h"_s, u"C"_s},
        {"a hidden file is no extension", u"a/.sh"_s, {}},
        {"extension of a hidden file", u".config.yml"_s, u"YAML"_s},
        {"the dot at the end begins no extension", u"a.c."_s, {}},
        {"a dot in a folder", u"a.c/b"_s, {}},
        {"unknown extension", u"a.cs2"_s, {}},
        {"no name", u""_s, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const std::optional<LanguageDefinition> language = Analyzer::languageDefinition(row.path, custom);
        EXPECT_EQ(language ? language->name : QString(), row.language);
    }
}

TEST(LanguageDefinition, OfRules) {
    const struct Row {
        const char *name;
        QList<CustomLanguageRule> rules;
        CustomLanguages expected;
    } rows[] = {
        {"trimmed and lower-cased",
         {rule(u"\t..Tar.GZ. \n"_s, u" Archive "_s, u" #ABCDEF "_s)},
         {{u"tar.gz"_s, {u"Archive"_s, u"#ABCDEF"_s}}}},
        {"blanks within the dots stay", {rule(u". x ."_s, u"X"_s)}, {{u" x "_s, {u"X"_s, u"#112233"_s}}}},
        {"without color", {rule(u"x"_s, u"X"_s, u" "_s)}, {{u"x"_s, {u"X"_s, u"#6e7781"_s}}}},
        {"without extension or name", {rule(u" . "_s, u"X"_s), rule(u"x"_s, u"\n"_s)}, {}},
        {"the last one counts, an incomplete one not",
         {rule(u"x"_s, u"A"_s), rule(u".X"_s, u"B"_s), rule(u"x"_s, u" "_s)},
         {{u"x"_s, {u"B"_s, u"#112233"_s}}}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Analyzer::customExtensionLanguages(row.rules), row.expected);
    }
}

TEST(LanguageDistribution, AddsUpBytesLargestFirst) {
    TempTree tree;
    EXPECT_EQ(counted(tree), QStringList());
    tree.write(u"b.go"_s, bytes(5));
    tree.write(u"c.py"_s, bytes(5));
    tree.write(u"d/Rakefile"_s, bytes(4));
    tree.write(u"d/e/f.rb"_s, bytes(3));
    tree.write(u"Empty.java"_s, bytes(0));
    tree.write(u"a.C"_s, bytes(5));
    tree.write(u"LICENSE"_s, bytes(100));
    const QStringList expected{u"Ruby 7 #701516"_s, u"C 5 #555555"_s, u"Go 5 #00ADD8"_s, u"Python 5 #3572A5"_s,
                               u"Java 0 #b07219"_s};
    EXPECT_EQ(counted(tree), expected);
    EXPECT_EQ(counted(tree, {}, u"missing"_s), QStringList());
}

TEST(LanguageDistribution, RulesOverrideAndTheFirstFileColorsAName) {
    TempTree tree;
    tree.write(u"z/a.h"_s, bytes(1));
    tree.write(u"a.cpp"_s, bytes(2));
    tree.write(u"m/b.inc"_s, bytes(4));
    EXPECT_EQ(counted(tree, {rule(u".H"_s, u"C Header"_s)}),
              (QStringList{u"C++ 2 #f34b7d"_s, u"C Header 1 #112233"_s}));
    EXPECT_EQ(counted(tree, {rule(u"inc"_s, u"C++"_s)}), (QStringList{u"C++ 6 #f34b7d"_s, u"C 1 #555555"_s}));
    EXPECT_EQ(counted(tree, {rule(u"inc"_s, u"C"_s)}), (QStringList{u"C 5 #112233"_s, u"C++ 2 #f34b7d"_s}));
}

TEST(LanguageDistribution, EntersNoFoldersOfToolsAndFollowsNoLinks) {
    TempTree tree;
    tree.write(u"kept/builds/a.c"_s, bytes(1));
    tree.write(u"kept/Vendor/a.c"_s, bytes(1));
    tree.write(u"kept/target"_s, bytes(1));
    for (const QString &skipped : {u".git"_s, u"x/vendor"_s, u"x/tmp"_s, u"y/node_modules"_s, u"z/.build"_s})
        tree.write(skipped + u"/deep/a.c"_s, bytes(100));
    QFile::link(tree.path(u"kept/builds/a.c"_s), tree.path(u"link.c"_s));
    QFile::link(tree.path(u"kept"_s), tree.path(u"kept/loop"_s));
    QFile::link(tree.path(u"nothing"_s), tree.path(u"dangling.c"_s));
    QFile::link(tree.path(u"kept"_s), tree.path(u"linked.c"_s));
    ASSERT_EQ(::mkfifo(tree.path(u"pipe.c"_s).toUtf8().constData(), 0600), 0);
    EXPECT_EQ(counted(tree), QStringList{u"C 2 #555555"_s});
    EXPECT_EQ(counted(tree, {}, u"x/../linked.c"_s), QStringList{u"C 2 #555555"_s}) << "the root may be a link";
}

TEST(LanguageDistribution, RespectsEveryIgnoreFileOnTheWay) {
    TempTree tree;
    for (const QString &path :
         {u"a.c"_s, u"gen/a.c"_s, u"gen/kept.c"_s, u"lib/a.c"_s, u"lib/gen.c"_s, u"lib/sub/gen.c"_s,
          u"lib/sub/only.go"_s, u"other/gen.c"_s, u"other/only.go"_s, u"pic/Ä.py"_s})
        tree.write(path, bytes(1));
    EXPECT_EQ(counted(tree), (QStringList{u"C 7 #555555"_s, u"Go 2 #00ADD8"_s, u"Python 1 #3572A5"_s}));
    tree.write(u".gitignore"_s, "/gen/\ngen.c\n!gen/kept.c\nÄ.*\n");
    EXPECT_EQ(counted(tree), (QStringList{u"C 2 #555555"_s, u"Go 2 #00ADD8"_s}))
        << "nothing comes back out of an ignored folder";
    tree.write(u"lib/.gitignore"_s, "!gen.c\n/only.go\n");
    EXPECT_EQ(counted(tree), (QStringList{u"C 4 #555555"_s, u"Go 2 #00ADD8"_s})) << "deeper files decide";
    tree.write(u"lib/sub/.gitignore"_s, "*\n");
    tree.write(u"lib/sub/.kestorignore"_s, "!*.go\n");
    EXPECT_EQ(counted(tree), (QStringList{u"C 3 #555555"_s, u"Go 2 #00ADD8"_s}));
    tree.write(u"gen/.gitignore"_s, "!*\n");
    tree.write(u"other/.gitignore"_s, "caf\xe9\n*.go\n");
    EXPECT_EQ(counted(tree), (QStringList{u"C 3 #555555"_s, u"Go 2 #00ADD8"_s})) << "no UTF-8, no rules";
}

void setMode(const TempTree &tree, const QString &path, mode_t mode) {
    ASSERT_EQ(::chmod(QFile::encodeName(tree.path(path)).constData(), mode), 0);
}

TEST(LanguageDistribution, SurvivesWhatItCannotRead) {
    TempTree tree;
    tree.write(u"open/a.c"_s, bytes(3));
    tree.write(u"open/.gitignore"_s, "*.c\n");
    tree.write(u"closed/a.c"_s, bytes(3));
    tree.write(u"nameless/a.go"_s, bytes(3));
    setMode(tree, {}, 0755);
    setMode(tree, u"open/.gitignore"_s, 0000);
    setMode(tree, u"closed"_s, 0000);
    setMode(tree, u"nameless"_s, 0444);
    {
        const testing::WithoutPrivileges ordinary;
        EXPECT_EQ(counted(tree), (QStringList{u"C 3 #555555"_s, u"Go 0 #00ADD8"_s}));
    }
    setMode(tree, u"closed"_s, 0755);
    setMode(tree, u"nameless"_s, 0755);
}

TEST(LanguageDistribution, CountsFilesWhoseNamesAreNoText) {
    TempTree tree;
    const QByteArray folder = QFile::encodeName(tree.path()) + "/sch\xf6n";
    const QByteArray file = folder + "/\xf6.py";
    tree.write(u"a.py"_s, bytes(3));
    ASSERT_EQ(::mkdir(folder.constData(), 0755), 0);
    ASSERT_EQ(::rename(QFile::encodeName(tree.path(u"a.py"_s)).constData(), file.constData()), 0);
    EXPECT_EQ(counted(tree), QStringList{u"Python 3 #3572A5"_s});
    tree.write(u"rules"_s, "*.py\n");
    const QByteArray rules = folder + "/.gitignore";
    ASSERT_EQ(::rename(QFile::encodeName(tree.path(u"rules"_s)).constData(), rules.constData()), 0);
    EXPECT_EQ(counted(tree), QStringList());
    EXPECT_EQ(::unlink(rules.constData()) + ::unlink(file.constData()) + ::rmdir(folder.constData()), 0)
        << "Qt could not remove them";
}

TEST(LanguageDistribution, CountsLargeTreesOnceAndStopsWhenAsked) {
    TempTree tree;
    for (int i = 0; i < 700; ++i)
        tree.write(u"%1/%2/%3.rs"_s.arg(i % 7).arg(i % 113).arg(i), bytes(i % 3));
    EXPECT_EQ(counted(tree), QStringList{u"Rust 699 #dea584"_s});
    std::stop_source source;
    source.request_stop();
    EXPECT_EQ(Analyzer::analyzeSync(tree.path(), {}, source.get_token()), QList<LanguageDistributionEntry>());
}

TEST(FallbackColor, HashesTheLastByteOfEachCharacter) {
    // "é" ends in A9, the rocket in 80; the sums are 169, 128 and (169 * 31 + 128) % 256 = 247.
    const struct Row {
        QString name;
        QString color;
    } rows[] = {{u""_s, u"#3178c6"_s},  {u"Go"_s, u"#3178c6"_s}, {u"a"_s, u"#f1e05a"_s},
                {u"é"_s, u"#f1e05a"_s}, {u"🚀"_s, u"#3178c6"_s},  {u"é🚀"_s, u"#00ADD8"_s}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name.toStdString());
        EXPECT_EQ(Analyzer::fallbackColor(row.name), row.color);
    }
}

} // namespace
} // namespace kestor

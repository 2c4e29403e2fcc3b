#include "rules/working_copy_paths.h"
#include "support/temp_tree.h"
#include "support/test.h"

namespace kestor {
namespace {

TEST(WorkingCopyPaths, NormalizesPaths) {
    const Rows<QString, QString> rows{
        {"the root", u""_s, u""_s},
        {"a plain path", u"a/b.c"_s, u"a/b.c"_s},
        {"slashes at the ends and doubled", u"/a//b/"_s, u"a/b"_s},
        {"dots as pieces", u"./a/./b/."_s, u"a/b"_s},
        {"a dot alone", u"."_s, u""_s},
        {"a slash alone", u"/"_s, u""_s},
        {"dots inside names", u".a/b./..c"_s, u".a/b./..c"_s},
        {"parents are not resolved", u"a/../b"_s, u"a/../b"_s},
    };
    for (const auto &[name, path, normalized] : rows) {
        EXPECT_EQ(normalizedPath(QStringView(path)), normalized);
        EXPECT_EQ(isNormalizedPath(path), path == normalized);
    }
}

TEST(WorkingCopyPaths, FindsPathsBelowARoot) {
    const Rows<QString, QString, std::optional<QString>> rows{
        {"the root itself", u"/wc/"_s, u"/wc"_s, u""_s},
        {"inside", u"/wc/a//b"_s, u"/wc"_s, u"a/b"_s},
        {"a neighbour with the same beginning", u"/wc2/a"_s, u"/wc"_s, std::nullopt},
        {"out of the root through a parent", u"/wc/../a"_s, u"/wc"_s, std::nullopt},
        {"the parent", u"/"_s, u"/wc"_s, std::nullopt},
        {"below the top of the disk", u"/a/b"_s, u"/"_s, u"a/b"_s},
    };
    for (const auto &[name, path, root, relative] : rows)
        EXPECT_EQ(repositoryRelativePath(path, root), relative);
}

TEST(WorkingCopyPaths, WritesIgnoreRulesToTheRootsGitIgnoreOnlyWhereItExists) {
    const TempTree plain;
    EXPECT_EQ(ignoreFileURL(plain.path()), plain.path(u".kestorignore"_s));
    TempTree git;
    git.write(u".gitignore"_s);
    EXPECT_EQ(ignoreFileURL(git.path()), git.path(u".gitignore"_s));
}

} // namespace
} // namespace kestor

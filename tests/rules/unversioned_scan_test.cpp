#include "rules/unversioned_scan.h"
#include "rules_of.h"
#include "support/temp_tree.h"
#include "support/test.h"
#include "support/without_privileges.h"

#include <sys/stat.h>
#include <unistd.h>

namespace kestor {
namespace {

/// The paths found, sorted, those of folders with "/" at the end.
QStringList scanned(const TempTree &tree, const QString &folder, const QStringList &lines = {},
                    RequireIncludedDescendant require = RequireIncludedDescendant::no) {
    QStringList paths;
    for (const UnversionedDescendant &found : unversionedDescendants(folder, tree.path(), rulesOf(lines), require))
        paths.append(found.item.path + (found.isDirectory ? u"/"_s : QString()));
    paths.sort();
    return paths;
}

QStringList displayed(const TempTree &tree, const QString &folder, const QStringList &lines = {}) {
    QStringList paths;
    for (const WorkingCopyItem &item :
         displayableUnversionedDescendants(folder, tree.path(), rulesOf(lines), RequireIncludedDescendant::no))
        paths.append(item.path);
    paths.sort();
    return paths;
}

TEST(UnversionedScan, NeverFollowsLinks) {
    TempTree tree;
    tree.writeAll({{u"new/d/f"_s}, {u"elsewhere/secret"_s}});
    QFile::link(tree.path(u"new"_s), tree.path(u"new/d/loop"_s));
    QFile::link(tree.path(u"elsewhere"_s), tree.path(u"new/away"_s));
    QFile::link(tree.path(u"nowhere"_s), tree.path(u"new/broken"_s));
    EXPECT_EQ(scanned(tree, u"new"_s), u"new/away|new/broken|new/d/|new/d/f|new/d/loop"_list);
    EXPECT_EQ(scanned(tree, u"new/away"_s), QStringList());
}

TEST(UnversionedScan, CountsUnreadableFoldersAsEmpty) {
    TempTree tree;
    tree.write(u"new/closed/f"_s);
    for (const QString &folder : u"|new"_list)
        ::chmod(tree.path(folder).toUtf8().constData(), 0755);
    ::chmod(tree.path(u"new/closed"_s).toUtf8().constData(), 0);
    {
        const WithoutPrivileges unprivileged;
        EXPECT_EQ(displayed(tree, u"new"_s), u"new/closed"_list);
        EXPECT_FALSE(unversionedDirectoryContainsEntries(u"new/closed", tree.path()));
    }
    ::chmod(tree.path(u"new/closed"_s).toUtf8().constData(), 0700);
}

TEST(UnversionedScan, ShowsNamesThatAreNotUtf8) {
    TempTree tree;
    tree.makeDirectory(u"new"_s);
    const QByteArray folder = tree.path(u"new/"_s).toUtf8() + "gr\xFC\xDF";
    ASSERT_EQ(::mkdir(folder.constData(), 0700), 0);
    EXPECT_EQ(displayed(tree, u"new"_s), u"new/gr\uFFFD\uFFFD"_list);
    ::rmdir(folder.constData()); // the temporary tree cannot name it
}

TEST(UnversionedScan, EntersIgnoredFoldersOnlyWhenARuleReachesInside) {
    const Rows<QStringList, QStringList> rows{
        {"nothing ignored", {}, u"new/build/|new/build/a.o|new/build/keep|new/x.o"_list},
        {"an ignored folder", u"build"_list, u"new/x.o"_list},
        {"a way back into it", u"build|!new/build/keep"_list, u"new/build/keep|new/x.o"_list},
        {"a way back elsewhere", u"build|!other/keep"_list, u"new/x.o"_list},
        {"files", u"*.o"_list, u"new/build/|new/build/keep"_list},
        {"files inside it stay ignored", u"build/|!*.o"_list, u"new/build/a.o|new/x.o"_list},
    };
    TempTree tree;
    for (const QString &path : u"new/build/a.o|new/build/keep|new/x.o"_list)
        tree.write(path);
    for (const auto &[name, lines, wantedExpected] : rows)
        EXPECT_EQ(scanned(tree, u"new"_s, lines), wantedExpected);
    EXPECT_EQ(scanned(tree, u"new"_s, u"!/other/x"_list, RequireIncludedDescendant::yes), QStringList());
    EXPECT_FALSE(scanned(tree, u"new"_s, u"!x"_list, RequireIncludedDescendant::yes).isEmpty());
}

} // namespace
} // namespace kestor

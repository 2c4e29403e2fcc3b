#include "rules/unversioned_scan.h"
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

IgnoreRules rulesOf(const QStringList &lines) {
    QList<IgnoreRule> rules;
    for (const QString &line : lines)
        rules.append(*IgnoreRule::fromLine(line, u""));
    return IgnoreRules(rules);
}

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

TEST(UnversionedScan, ListsEverythingButRepositoryMetadata) {
    TempTree tree;
    for (const QString &path : {u"new/a"_s, u"new/.hidden"_s, u"new/d/b"_s, u"new/d/.git"_s, u"new/.svn/wc.db"_s,
                                u"new/.svnx"_s, u"new/-dash \"quoted\"\nline"_s, u"outside"_s})
        tree.write(path);
    tree.makeDirectory(u"new/empty"_s);
    const QStringList expected{u"new/-dash \"quoted\"\nline"_s,
                               u"new/.hidden"_s,
                               u"new/.svnx"_s,
                               u"new/a"_s,
                               u"new/d/"_s,
                               u"new/d/b"_s,
                               u"new/empty/"_s};
    EXPECT_EQ(scanned(tree, u"./new/"_s), expected);

    const QList<UnversionedDescendant> one =
        unversionedDescendants(u"new//d/", tree.path(), IgnoreRules(), RequireIncludedDescendant::no);
    const WorkingCopyItem item{.path = u"new/d/b"_s, .kind = SVNStatusKind::unversioned, .unversionedRoot = u"new/d"_s};
    EXPECT_EQ(one, (QList<UnversionedDescendant>{{item, false}}));
}

TEST(UnversionedScan, NeverFollowsLinks) {
    TempTree tree;
    tree.write(u"new/d/f"_s);
    tree.write(u"elsewhere/secret"_s);
    QFile::link(tree.path(u"new"_s), tree.path(u"new/d/loop"_s));
    QFile::link(tree.path(u"elsewhere"_s), tree.path(u"new/away"_s));
    QFile::link(tree.path(u"nowhere"_s), tree.path(u"new/broken"_s));
    EXPECT_EQ(scanned(tree, u"new"_s),
              (QStringList{u"new/away"_s, u"new/broken"_s, u"new/d/"_s, u"new/d/f"_s, u"new/d/loop"_s}));
    EXPECT_EQ(scanned(tree, u"new/away"_s), QStringList());
}

TEST(UnversionedScan, FindsNothingInMissingFoldersAndFiles) {
    TempTree tree;
    tree.write(u"new/f"_s);
    EXPECT_EQ(scanned(tree, u"missing"_s), QStringList());
    EXPECT_EQ(scanned(tree, u"new/f"_s), QStringList());
}

TEST(UnversionedScan, CountsUnreadableFoldersAsEmpty) {
    TempTree tree;
    tree.write(u"new/closed/f"_s);
    for (const QString &folder : {u""_s, u"new"_s})
        ::chmod(tree.path(folder).toUtf8().constData(), 0755);
    ::chmod(tree.path(u"new/closed"_s).toUtf8().constData(), 0);
    {
        const testing::WithoutPrivileges unprivileged;
        EXPECT_EQ(displayed(tree, u"new"_s), QStringList{u"new/closed"_s});
        EXPECT_FALSE(unversionedDirectoryContainsEntries(u"new/closed", tree.path()));
    }
    ::chmod(tree.path(u"new/closed"_s).toUtf8().constData(), 0700);
}

TEST(UnversionedScan, ShowsNamesThatAreNotUtf8) {
    TempTree tree;
    tree.makeDirectory(u"new"_s);
    const QByteArray folder = tree.path(u"new/"_s).toUtf8() + "gr\xFC\xDF";
    ASSERT_EQ(::mkdir(folder.constData(), 0700), 0);
    EXPECT_EQ(displayed(tree, u"new"_s), QStringList{u"new/gr\uFFFD\uFFFD"_s});
    ::rmdir(folder.constData()); // the temporary tree cannot name it
}

TEST(UnversionedScan, EntersIgnoredFoldersOnlyWhenARuleReachesInside) {
    struct Row {
        const char *name;
        QStringList lines;
        QStringList expected;
    };
    const Row rows[] = {
        {"nothing ignored", {}, {u"new/build/"_s, u"new/build/a.o"_s, u"new/build/keep"_s, u"new/x.o"_s}},
        {"an ignored folder", {u"build"_s}, {u"new/x.o"_s}},
        {"a way back into it", {u"build"_s, u"!new/build/keep"_s}, {u"new/build/keep"_s, u"new/x.o"_s}},
        {"a way back elsewhere", {u"build"_s, u"!other/keep"_s}, {u"new/x.o"_s}},
        {"files", {u"*.o"_s}, {u"new/build/"_s, u"new/build/keep"_s}},
        {"files inside it stay ignored", {u"build/"_s, u"!*.o"_s}, {u"new/build/a.o"_s, u"new/x.o"_s}},
    };
    TempTree tree;
    for (const QString &path : {u"new/build/a.o"_s, u"new/build/keep"_s, u"new/x.o"_s})
        tree.write(path);
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(scanned(tree, u"new"_s, row.lines), row.expected);
    }
    EXPECT_EQ(scanned(tree, u"new"_s, {u"!/other/x"_s}, RequireIncludedDescendant::yes), QStringList());
    EXPECT_FALSE(scanned(tree, u"new"_s, {u"!x"_s}, RequireIncludedDescendant::yes).isEmpty());
}

TEST(UnversionedScan, DisplaysFilesAndFoldersWithoutListedEntries) {
    TempTree tree;
    tree.write(u"new/a.txt"_s);
    tree.write(u"new/all ignored/x.o"_s);
    tree.write(u"new/deep/er/b"_s);
    tree.write(u"bare/.git/config"_s);
    tree.makeDirectory(u"new/e"_s);
    EXPECT_EQ(displayed(tree, u"new"_s, {u"*.o"_s}),
              (QStringList{u"new/a.txt"_s, u"new/all ignored"_s, u"new/deep/er/b"_s, u"new/e"_s}));
    EXPECT_EQ(displayed(tree, u"bare"_s), QStringList());
    EXPECT_FALSE(unversionedDirectoryContainsEntries(u"bare", tree.path()));
    EXPECT_TRUE(unversionedDirectoryContainsEntries(u"new/deep", tree.path()));
}

} // namespace
} // namespace kestor

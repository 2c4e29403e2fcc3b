#include "controller/commit_plan.h"
#include "controller/deletion.h"
#include "controller/path_command.h"
#include "controller/revert_plan.h"
#include "support/printers.h"
#include "support/temp_tree.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::TempTree;
using K = SVNStatusKind;

WorkingCopyItem unversioned(const QString &path, const QString &root) {
    WorkingCopyItem item{path, K::unversioned};
    item.unversionedRoot = root;
    return item;
}

CommitRequest request(const QList<WorkingCopyItem> &changes, const QStringList &ticked) {
    return {changes, QSet<QString>(ticked.begin(), ticked.end()), u"why"_s, {}, {}};
}

TEST(CommitPlan, PreparesNeighboursTogetherAndTakesNewFoldersAlong) {
    const QList<WorkingCopyItem> changes{{u"a.c"_s, K::modified},
                                         {u"gone1.c"_s, K::missing},
                                         {u"gone2.c"_s, K::missing},
                                         unversioned(u"new/deep/1.c"_s, u"new"_s),
                                         unversioned(u"new/deep/2.c"_s, u"new"_s),
                                         {u"zz.c"_s, K::missing}};
    const CommitPlan plan = svnCommitPlan(
        request(changes, {u"a.c"_s, u"gone1.c"_s, u"gone2.c"_s, u"new/deep/1.c"_s, u"new/deep/2.c"_s, u"zz.c"_s}),
        MessageNamesFile::no);
    const CommitPlan expected{{{{u"delete"_s, u"--force"_s}, {u"gone1.c"_s, u"gone2.c"_s}, {}},
                               {{u"add"_s, u"--parents"_s, u"--force"_s}, {u"new/deep/1.c"_s, u"new/deep/2.c"_s}, {}},
                               {{u"delete"_s, u"--force"_s}, {u"zz.c"_s}, {}}},
                              {{u"commit"_s},
                               {u"a.c"_s, u"gone1.c"_s, u"gone2.c"_s, u"new"_s, u"new/deep"_s, u"new/deep/1.c"_s,
                                u"new/deep/2.c"_s, u"zz.c"_s},
                               {u"-m"_s, u"why"_s, u"--depth"_s, u"empty"_s}}};
    EXPECT_EQ(plan, expected);
}

TEST(CommitPlan, OfAMergeNamesNoPathsAndLeavesNothingOut) {
    CommitRequest merged = request({{u"a.c"_s, K::modified}, {u"b.c"_s, K::modified}}, {u"a.c"_s});
    EXPECT_FALSE(coversWholeMerge(merged));
    merged.ticked.insert(u"b.c"_s);
    merged.changes.append({u"scratch.txt"_s, K::unversioned});
    EXPECT_TRUE(coversWholeMerge(merged));
    EXPECT_EQ(plainArguments(RepositoryKind::git, gitMergeCommitPlan(merged).commit),
              (QStringList{u"commit"_s, u"-m"_s, u"why"_s}));
}

TEST(PathCommand, HandsManyPathsOverByFile) {
    PathCommand command{{u"commit"_s}, {u"icon@2x.png"_s, u"-dash"_s, u"a[1].c"_s}, {u"-m"_s, u"why"_s}};
    EXPECT_FALSE(needsPathFile(command));
    EXPECT_EQ(plainArguments(RepositoryKind::svn, command),
              (QStringList{u"commit"_s, u"icon@2x.png@"_s, u"./-dash"_s, u"a[1].c"_s, u"-m"_s, u"why"_s}));
    EXPECT_EQ(
        plainArguments(RepositoryKind::git, command),
        (QStringList{u"commit"_s, u"--"_s, u"icon@2x.png"_s, u"-dash"_s, u":(literal)a[1].c"_s, u"-m"_s, u"why"_s}));
    EXPECT_EQ(argumentsWithPathFile(RepositoryKind::svn, command, u"/t/f"_s),
              (QStringList{u"commit"_s, u"--targets"_s, u"/t/f"_s, u"-m"_s, u"why"_s}));
    EXPECT_EQ(argumentsWithPathFile(RepositoryKind::git, command, u"/t/f"_s),
              (QStringList{u"commit"_s, u"--pathspec-from-file=/t/f"_s, u"--pathspec-file-nul"_s, u"-m"_s, u"why"_s}));
    EXPECT_EQ(pathFileContent(RepositoryKind::svn, command), "./icon@2x.png@\n./-dash@\n./a[1].c@\n");
    EXPECT_EQ(pathFileContent(RepositoryKind::git, command), QByteArray("icon@2x.png\0-dash\0:(literal)a[1].c\0", 35));
    command.paths = {u"two\nlines"_s, u"a.c"_s};
    EXPECT_EQ(argumentsWithPathFile(RepositoryKind::svn, command, u"/t/f"_s),
              (QStringList{u"commit"_s, u"--targets"_s, u"/t/f"_s, u"two\nlines"_s, u"-m"_s, u"why"_s}));
    EXPECT_EQ(pathFileContent(RepositoryKind::svn, command), "./a.c@\n");
    EXPECT_EQ(pathFileContent(RepositoryKind::git, command), QByteArray("two\nlines\0a.c\0", 14));
    command.paths = QStringList(2000, QString(60, u'x'));
    EXPECT_TRUE(needsPathFile(command));
}

TEST(RevertPlan, OfGitCountsTheOnlyCopiesItWouldDelete) {
    const QList<WorkingCopyItem> items{
        {u"m.c"_s, K::modified}, {u"a.c"_s, K::added}, {u"new.c"_s, K::replaced}, {u"n.c"_s, K::unversioned}};
    const GitRowFacts facts{{{u"new.c"_s, u"old.c"_s}}, {}, {}};
    const RevertPlan plan = gitRevertPlan(items, facts, GitHead::exists);
    EXPECT_EQ(plan,
              (RevertPlan{
                  {{{u"restore"_s, u"--staged"_s, u"--worktree"_s}, {u"m.c"_s, u"a.c"_s, u"new.c"_s, u"old.c"_s}, {}}},
                  {{u"n.c"_s, QString()}},
                  {u"a.c"_s, u"new.c"_s}}));
    EXPECT_EQ(revertQuestion(RevertScope::selection, 4, plan.deletions()),
              u"Revert 4 selected path(s)? Local changes will be discarded. 3 unversioned path(s) will be deleted from "
              "disk."_s);
    EXPECT_EQ(gitRevertPlan({items[1]}, {}, GitHead::unborn),
              (RevertPlan{{{{u"rm"_s, u"--cached"_s, u"--force"_s}, {u"a.c"_s}, {}}}, {}, {}}));
    EXPECT_EQ(revertQuestion(RevertScope::oneRow, 1, 0), u"Revert this path? Local changes will be discarded."_s);
    EXPECT_EQ(revertQuestion(RevertScope::all, 7, 0),
              u"Revert all 7 changed path(s)? Local changes will be discarded."_s);
}

QString refusal(const QString &path, const QString &root) {
    try {
        return u"allowed: "_s + deletablePath(path, root);
    } catch (const SVNClientError &error) {
        return error.errorDescription();
    }
}

TEST(Deletion, RefusesMetadataAndWhateverLeavesTheWorkingCopy) {
    TempTree tree;
    tree.write(u"wc/nested/deep/.git/HEAD"_s);
    tree.write(u"outside/file"_s);
    QFile::link(tree.path(u"outside"_s), tree.path(u"wc/link"_s));
    const QString root = tree.path(u"wc"_s);
    struct Row {
        const char *path;
        QString answer;
    };
    const Row rows[] = {
        {"a//b/./c", u"allowed: a/b/c"_s},
        {"link", u"allowed: link"_s},
        {".svn/wc.db", u"Refusing to delete repository metadata at .svn/wc.db"_s},
        {"a/.git", u"Refusing to delete repository metadata at a/.git"_s},
        {"nested", u"Refusing to delete repository metadata at nested/deep/.git"_s},
        {"nested/deep/src/a.c", u"Refusing to delete from the repository at nested/deep: nested/deep/src/a.c"_s},
        {"a/../../x", u"Refusing to delete a path outside the working copy: a/../../x"_s},
        {"", u"Refusing to delete a path outside the working copy: "_s},
        {"link/file", u"Refusing to delete through the link link: link/file"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(refusal(QString::fromUtf8(row.path), root), row.answer);
    }
}

TEST(Deletion, RemovesLinksAsLinksAndFoldersThatBecameEmpty) {
    TempTree tree;
    tree.write(u"outside/kept"_s);
    tree.write(u"wc/kept"_s);
    tree.write(u"wc/a/b/file"_s);
    tree.write(u"wc/a/b/sub/file"_s);
    tree.write(u"wc/a-b"_s);
    tree.makeDirectory(u"wc/l"_s);
    QFile::link(tree.path(u"outside"_s), tree.path(u"wc/l/folder link"_s));
    QFile::link(tree.path(u"nowhere"_s), tree.path(u"wc/l/dangling"_s));
    tree.write(u"wc/versioned/new"_s);
    const QList<UnversionedPath> paths{{u"a/b/file"_s, u"a"_s},     {u"a/b/sub"_s, u"a"_s},
                                       {u"a/b/sub/file"_s, u"a"_s}, {u"l/folder link"_s, u"l"_s},
                                       {u"l/dangling"_s, u"l"_s},   {u"versioned/new"_s, QString()},
                                       {u"gone"_s, QString()}};
    EXPECT_EQ(deleteUnversionedItems(paths, tree.path(u"wc"_s)), (DeletionResult{5, std::nullopt, false}));
    EXPECT_EQ(tree.entries(),
              (QStringList{u"outside/"_s, u"outside/kept"_s, u"wc/"_s, u"wc/a-b"_s, u"wc/kept"_s, u"wc/versioned/"_s}));
    EXPECT_EQ(deleteUnversionedItems({{u"gone"_s, QString()}}, tree.path(u"wc"_s)).error,
              u"No unversioned paths were found on disk."_s);
    EXPECT_EQ(deleteUnversionedItems({{u"kept"_s, QString()}, {u".git/x"_s, QString()}}, tree.path(u"wc"_s)).deleted,
              0);
    EXPECT_TRUE(tree.exists(u"wc/kept"_s));
}

} // namespace
} // namespace kestor

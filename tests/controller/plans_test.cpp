#include "controller/deletion.h"
#include "controller/path_command.h"
#include "support/temp_tree.h"
#include "support/test.h"
#include "tools/command_result.h"

namespace kestor {
namespace {

TEST(PathCommand, HandsManyPathsOverByFile) {
    PathCommand command{{u"commit"_s}, {u"icon@2x.png"_s, u"-dash"_s, u"a[1].c"_s}, {u"-m"_s, u"why"_s}};
    EXPECT_FALSE(needsPathFile(command));
    EXPECT_EQ(argumentsWithPathFile(RepositoryKind::svn, command, u"/t/f"_s), u"commit|--targets|/t/f|-m|why"_list);
    EXPECT_EQ(argumentsWithPathFile(RepositoryKind::git, command, u"/t/f"_s),
              u"commit|--pathspec-from-file=/t/f|--pathspec-file-nul|-m|why"_list);
    EXPECT_EQ(pathFileContent(RepositoryKind::svn, command), "./icon@2x.png@\n./-dash@\n./a[1].c@\n");
    EXPECT_EQ(pathFileContent(RepositoryKind::git, command), QByteArray("icon@2x.png\0-dash\0:(literal)a[1].c\0", 35));
    command.paths = {u"^/a.c"_s, u"-b"_s, u"c@2x"_s, u"^"_s};
    EXPECT_EQ(plainArguments(RepositoryKind::svn, command), u"commit|./^/a.c|./-b|c@2x@|^|-m|why"_list);
    command.paths = {u"two\nlines"_s, u"a.c"_s};
    EXPECT_EQ(argumentsWithPathFile(RepositoryKind::svn, command, u"/t/f"_s),
              u"commit|--targets|/t/f|two\nlines|-m|why"_list);
    EXPECT_EQ(pathFileContent(RepositoryKind::svn, command), "./a.c@\n");
    EXPECT_EQ(pathFileContent(RepositoryKind::git, command), QByteArray("two\nlines\0a.c\0", 14));
    command.paths = QStringList(2000, QString(60, u'x'));
    EXPECT_TRUE(needsPathFile(command));
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
    tree.writeAll({{u"wc/nested/deep/.git/HEAD"_s}, {u"outside/file"_s}});
    QFile::link(tree.path(u"outside"_s), tree.path(u"wc/link"_s));
    const QString root = tree.path(u"wc"_s);
    const Rows<QString> rows{
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
    for (const auto &[path, answer] : rows)
        EXPECT_EQ(refusal(QString::fromUtf8(path), root), answer);
}

TEST(Deletion, RemovesLinksAsLinksAndFoldersThatBecameEmpty) {
    TempTree tree;
    tree.writeAll({{u"outside/kept"_s}, {u"wc/kept"_s}, {u"wc/a/b/file"_s}, {u"wc/a/b/sub/file"_s}, {u"wc/a-b"_s}});
    tree.makeDirectory(u"wc/l"_s);
    QFile::link(tree.path(u"outside"_s), tree.path(u"wc/l/folder link"_s));
    QFile::link(tree.path(u"nowhere"_s), tree.path(u"wc/l/dangling"_s));
    tree.write(u"wc/versioned/new"_s);
    const QList<UnversionedPath> paths{{u"a/b/file"_s, u"a"_s},     {u"a/b/sub"_s, u"a"_s},
                                       {u"a/b/sub/file"_s, u"a"_s}, {u"l/folder link"_s, u"l"_s},
                                       {u"l/dangling"_s, u"l"_s},   {u"versioned/new"_s, QString()},
                                       {u"gone"_s, QString()}};
    EXPECT_EQ(deleteUnversionedItems(paths, tree.path(u"wc"_s)).deleted, 5);
    EXPECT_EQ(tree.entries(), u"outside/|outside/kept|wc/|wc/a-b|wc/kept|wc/versioned/"_list);
    EXPECT_EQ(deleteUnversionedItems({{u"gone"_s, QString()}}, tree.path(u"wc"_s)).error,
              u"No unversioned paths were found on disk."_s);
    EXPECT_EQ(deleteUnversionedItems({{u"kept"_s, QString()}, {u".git/x"_s, QString()}}, tree.path(u"wc"_s)).deleted,
              0);
    EXPECT_TRUE(tree.exists(u"wc/kept"_s));
}

} // namespace
} // namespace kestor

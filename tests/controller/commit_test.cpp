#include "rules/working_copy_paths.h"
#include "support/app_test.h"

#include <cstdio>
#include <fstream>
#include <string>

namespace kestor {
namespace {

TEST(Commit, IsRefusedWithoutPathsOrMessage) {
    GitFixture repository;
    AppFixture f;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), u"No Project Selected: Choose a project first."_s);
    repository.write(u"a.c"_s);
    f.open(repository);
    f.commit({});
    EXPECT_EQ(f.alertText(), u"Nothing To Commit: Select at least one changed path."_s);
    f.commit({u"a.c"_s}, u" \n\t"_s);
    EXPECT_EQ(f.alertText(), u"Commit Message Required: Enter a commit message before committing."_s);
}

TEST(Commit, OfMixedKindsArrivesInOneSubversionRevision) {
    SvnFixture repository;
    repository.commit(u"m.c|gone.c|d.c|icon@2x.txt|kept.c"_list, "one\n");
    repository.writeAll(u"m.c|icon@2x.txt|kept.c"_list, "two\n");
    repository.svn(u"delete|d.c"_list);
    QFile::remove(repository.path(u"gone.c"_s));
    repository.writeAll({{u"new/deep/größe.c"_s}, {u"new/left.c"_s}});
    AppFixture f(repository);
    f.commit({u"m.c"_s, u"gone.c"_s, u"d.c"_s, u"icon@2x.txt"_s, u"new/deep/größe.c"_s}, u"m.c"_s);
    EXPECT_EQ(f.rows(), u"M kept.c|? new/left.c"_list);
    EXPECT_EQ(f.app.commitMessage.value(), QString());
    const QString log = QString::fromUtf8(repository.svn(u"log|-v|-r|HEAD"_list));
    for (const QString &line : u"M /trunk/m.c|D /trunk/gone.c|D /trunk/d.c|M /trunk/icon@2x.txt|"
                               "A /trunk/new|A /trunk/new/deep|A /trunk/new/deep/größe.c|\n\nm.c\n"_list)
        EXPECT_TRUE(log.contains(line)) << qPrintable(line) << "\n" << qPrintable(log);
}

TEST(Commit, TakesAddedFoldersButNoUntickedRowInThem) {
    SvnFixture repository;
    repository.writeAll({{u"d/in.c"_s}, {u"d/out.c"_s}});
    repository.svn(u"add|d"_list);
    AppFixture f(repository);
    f.commit({u"d/in.c"_s});
    EXPECT_EQ(f.rows(), u"A d/out.c"_list);
}

TEST(Commit, KeepsMessagesByteForByte) {
    const QStringList messages{u"-leading dash"_s, u"first\n\n\nthird paragraph\n  indented  \n# no comment"_s,
                               u"größe 🚀"_s, QString(100 * 1024, u'x')};
    SvnFixture svn;
    GitFixture git;
    AppFixture f;
    for (const QString &message : messages) {
        SCOPED_TRACE(qPrintable(message.left(20)));
        svn.write(u"a.c"_s, message.toUtf8());
        git.write(u"a.c"_s, message.toUtf8());
        f.open(svn);
        f.commit({u"a.c"_s}, message);
        EXPECT_EQ(QString::fromUtf8(svn.svn(u"propget|--strict|--revprop|-r|HEAD|svn:log"_list)), message);
        f.open(git);
        f.commit({u"a.c"_s}, message);
        EXPECT_EQ(QString::fromUtf8(git.git(u"log|-1|--format=%B"_list)), message + u"\n\n"_s);
    }
}

TEST(Commit, OfGitTakesRenamesWholeAndNothingElse) {
    GitFixture repository;
    repository.commit({{u"old.c"_s, "one\ntwo\nthree\n"}, {u"staged.c"_s, "one\n"}});
    repository.git(u"mv|old.c|new.c"_list);
    repository.write(u"staged.c"_s, "two\n");
    repository.git(u"add|staged.c"_list);
    repository.writeAll({{u"a*.c"_s}, {u"ab.c"_s}});
    AppFixture f(repository);
    f.commit({u"new.c"_s, u"a*.c"_s});
    EXPECT_EQ(repository.git(u"show|--format=|--name-status|HEAD"_list), "A\ta*.c\nR100\told.c\tnew.c\n");
    EXPECT_EQ(f.rows(), u"? ab.c|M staged.c"_list);
}

TEST(Commit, TakesStagedDeletionsAndNothingThatHasNoRow) {
    GitFixture git;
    git.commit({{u"gone.c"_s, "one\n"}, {u"old.c"_s, "one\ntwo\nthree\n"}});
    git.git(u"rm|-q|gone.c"_list);
    git.git(u"mv|old.c|new.c"_list);
    git.write(u"old.c"_s, "another file\n");
    SvnFixture svn;
    svn.commit({{u".kestorignore"_s, "*.tmp\n"}, {u"p/kept.c"_s, "one\n"}, {u"p/h.tmp"_s, "one\n"}});
    svn.write(u"p/h.tmp"_s, "two\n");
    svn.svn(u"propset|-q|note|x|p"_list);
    AppFixture f(git);
    f.commit({u"gone.c"_s, u"new.c"_s});
    EXPECT_EQ(git.git(u"show|HEAD:new.c"_list), "one\ntwo\nthree\n");
    EXPECT_FALSE(git.git(u"ls-tree|--name-only|HEAD"_list).contains("gone.c"));
    EXPECT_EQ(git.read(u"old.c"_s), "another file\n");
    f.open(svn);
    f.commit({u"p"_s});
    EXPECT_EQ(svn.svn(u"cat|-r|HEAD|p/h.tmp"_list), "one\n");
}

TEST(Commit, OfAMergeIsWholeOrRefusedBeforeAnythingRuns) {
    GitFixture repository;
    repository.commit({{u"a.c"_s, "one\n"}, {u"b.c"_s, "one\n"}, {u"old.c"_s, "1\n2\n3\n"}});
    repository.git(u"checkout|-q|-b|side"_list);
    repository.commit({{u"a.c"_s, "side\n"}, {u"b.c"_s, "side\n"}});
    repository.git(u"checkout|-q|main"_list);
    repository.commit({{u"c.c"_s}});
    repository.git(u"merge|--no-commit|--no-ff|-q|side"_list);
    QFile::rename(repository.path(u"old.c"_s), repository.path(u"new.c"_s));
    repository.git(u"add|--intent-to-add|new.c"_list);
    AppFixture f(repository);
    f.commit({u"a.c"_s}, u"merged"_s);
    EXPECT_EQ(f.alertText(), u"Commit Failed: A merge is committed as a whole. Tick every changed path, then commit "
                             "again."_s);
    EXPECT_EQ(f.app.commitMessage.value(), u"merged"_s);
    f.commit(u"a.c|b.c|new.c"_list);
    EXPECT_EQ(repository.git(u"log|-1|--format=%s %p"_list).split(' ').size(), 3);
    EXPECT_EQ(repository.git(u"ls-tree|--name-only|HEAD"_list), "a.c\nb.c\nc.c\nnew.c\n");
    EXPECT_TRUE(f.rows().isEmpty());
}

void setLongUnchanged(const QString &path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::fromSecsSinceEpoch(1'000'000'000), QFileDevice::FileModificationTime));
}

TEST(Commit, RefusedByAHookLeavesEverythingAsItWas) {
    SvnFixture svn;
    svn.commit({{u"m.c"_s, "one\n"}, {u"gone.c"_s, "one\n"}});
    svn.writeAll({{u"m.c"_s, "two\n"}, {u"new/deep/a.c"_s}});
    QFile::remove(svn.path(u"gone.c"_s));
    svn.tree.writeProgram(u"repo/hooks/pre-commit"_s, "echo 'no entry today' >&2\nexit 1\n");
    GitFixture git;
    git.commit({{u"staged.c"_s, "one\n"}});
    git.write(u"staged.c"_s, "two\n");
    git.git(u"add|staged.c"_list);
    git.writeAll({{u"staged.c"_s, "three\n"}, {u"new.c"_s}});
    git.tree.writeProgram(u"wc/.git/hooks/pre-commit"_s, "echo 'no entry today' >&2\nexit 1\n");
    AppFixture f;
    const Rows<const RepositoryFixture *, QStringList> repositories{{"svn", &svn, u"status"_list},
                                                                    {"git", &git, u"status|--porcelain"_list}};
    for (const auto &[name, repository, statusRun] : repositories) {
        f.open(*repository);
        f.app.setCommitSelection(MarkedPaths::all(f.app.changes), true);
        f.app.commitMessage = u"try"_s;
        const QStringList rows = f.rows();
        const QByteArray status = repository->run(statusRun);
        awaited(f.app.commitSelected());
        EXPECT_TRUE(contains(f.alertText(), u"no entry today"_s));
        EXPECT_EQ(f.app.commitMessage.value(), u"try"_s);
        EXPECT_EQ(f.rows(), rows);
        EXPECT_EQ(repository->run(statusRun), status);
    }
    EXPECT_EQ(git.git(u"show|:staged.c"_list), "two\n");
    // Two changes in a moment: nothing but the time of the index says that the second one may be there.
    git.git(u"config|core.trustctime|false"_list);
    git.write(u"staged.c"_s, "two\n");
    setLongUnchanged(git.path(u"staged.c"_s));
    git.git(u"add|staged.c"_list);
    git.write(u"staged.c"_s, "six\n");
    setLongUnchanged(git.path(u"staged.c"_s));
    setLongUnchanged(git.path(u".git/index"_s));
    awaited(f.app.commitSelected());
    EXPECT_EQ(git.git(u"status|--porcelain"_list), "MM staged.c\n?? new.c\n");
}

TEST(Commit, KilledWhenItIsThereStaysThere) {
    GitFixture repository;
    repository.commit({{u"m.c"_s, "one\n"}});
    repository.write(u"m.c"_s, "two\n");
    repository.tree.writeProgram(u"wc/.git/hooks/post-commit"_s, "kill -9 $PPID\n");
    AppFixture f(repository);
    f.commit({u"m.c"_s});
    EXPECT_TRUE(startsWith(f.alertText(), u"Commit Failed: "_s));
    EXPECT_EQ(repository.git(u"status|--porcelain"_list).toStdString(), "");
}

TEST(Commit, OfAFileThatCameBackDoesNotDeleteIt) {
    SvnFixture repository;
    repository.commit({{u"gone.c"_s, "one\n"}});
    QFile::remove(repository.path(u"gone.c"_s));
    AppFixture f(repository);
    repository.write(u"gone.c"_s, "precious\n");
    f.commit({u"gone.c"_s});
    EXPECT_EQ(f.alertText(), u"Commit Failed: gone.c is on disk again. Refresh before committing it."_s);
    EXPECT_EQ(repository.read(u"gone.c"_s), "precious\n");
}

TEST(Commit, OfGitFollowsTheIndexWhereTheDiskSaysOtherwise) {
    const QString nothing = u"Commit Failed: What is ticked was added and is gone from disk again, so there is nothing "
                            "to commit."_s;
    const QString withAll =
        u"Commit Failed: s.env is deleted in Git, but on disk. Git commits this only with everything "
        "that is staged. Tick every changed path, then commit again."_s;
    const QString onlyFiles = u"Commit Failed: Git keeps only files, and these folders have none that are listed."_s;
    using Change = void (*)(GitFixture &);
    const auto makeFolders = [](GitFixture &git) {
        git.writeAll({{u".kestorignore"_s, "*.o\n"}, {u"new/k"_s}, {u"new/obj/x.o"_s}});
        git.tree.makeDirectory(u"wc/new/empty"_s);
    };
    const auto stopTracking = [](GitFixture &git) {
        git.git(u"rm|-q|--cached|s.env"_list);
    };
    const auto addAndLose = [](GitFixture &git) {
        git.write(u"new.c"_s);
        git.git(u"add|new.c"_list);
        QFile::remove(git.path(u"new.c"_s));
    };
    const auto renameAndLose = [](GitFixture &git) {
        git.git(u"mv|f|new.c"_list);
        QFile::remove(git.path(u"new.c"_s));
    };
    const auto linkInstead = [](GitFixture &git) {
        QDir(git.path(u"e"_s)).removeRecursively();
        QFile::link(u"t"_s, git.path(u"e"_s));
    };
    const auto folderInstead = [](GitFixture &git) {
        QFile::remove(git.path(u"f"_s));
        git.write(u"f/new.c"_s);
    };
    const Rows<Change, QStringList, QString, QByteArray, QStringList> rows{
        {"kept, no longer tracked", stopTracking, u"m|s.env"_list, {}, "M\tm\nD\ts.env\n", u"? s.env|M staged"_list},
        {"kept, beside what is staged", stopTracking, u"s.env"_list, withAll, {}, u"M m|*D s.env|M staged"_list},
        {"added and lost", addAndLose, u"m|new.c"_list, {}, "M\tm\n", u"M staged"_list},
        {"nothing but added and lost", addAndLose, u"new.c"_list, nothing, {}, u"M m|M staged"_list},
        {"renamed and lost", renameAndLose, u"new.c"_list, {}, "D\tf\n", u"M m|M staged"_list},
        {"a link for a folder", linkInstead, u"e|e/a"_list, {}, "A\te\nD\te/a\n", u"M m|M staged"_list},
        {"behind a link", linkInstead, u"e/a"_list, {}, "D\te/a\n", u"? e|M m|M staged"_list},
        {"a file and folders that show none",
         makeFolders,
         u"new/empty|new/k|new/obj"_list,
         {},
         "A\tnew/k\n",
         u"? .kestorignore|M m|M staged"_list},
        {"nothing but such folders",
         makeFolders,
         u"new/empty|new/obj"_list,
         onlyFiles,
         {},
         u"? .kestorignore|M m|*? new/empty|? new/k|*? new/obj|M staged"_list},
        {"a folder for a file", folderInstead, u"f|m|staged"_list, {}, "D\tf\nM\tm\nM\tstaged\n", u"? f/new.c"_list},
    };
    for (const auto &[name, change, ticked, alert, committed, left] : rows) {
        GitFixture git;
        git.commit({{u"s.env"_s}, {u"m"_s}, {u"staged"_s}, {u"f"_s, "1\n2\n3\n"}, {u"e/a"_s}, {u"t/b"_s}});
        git.git(u"tag|first"_list);
        git.writeAll({{u"m"_s, "y\n"}, {u"staged"_s, "y\n"}});
        if (alert == withAll)
            git.git(u"add|staged"_list);
        change(git);
        AppFixture f(git);
        f.commit(ticked);
        EXPECT_EQ(f.alertText(), alert);
        EXPECT_EQ(git.git(u"diff|--name-status|--no-renames|first|HEAD"_list), committed);
        EXPECT_EQ(f.rows(), left);
    }
}

TEST(Commit, OfWhatWasAddedAndIsGoneInSubversionTakesTheRest) {
    SvnFixture svn;
    svn.commit({{u"m.c"_s, "one\n"}, {u"r.c"_s, "one\n"}});
    const auto addAndLose = [&svn](const QString &path) {
        svn.write(path);
        svn.svn({u"add"_s, u"-q"_s, u"--parents"_s, path});
        QFile::remove(svn.path(path));
    };
    svn.write(u"m.c"_s, "two\n");
    svn.svn(u"delete|-q|r.c"_list);
    for (const QString &path : u"new.c|r.c|nd/deep/new.c"_list)
        addAndLose(path);
    QDir(svn.path(u"nd"_s)).removeRecursively();
    AppFixture f(svn);
    EXPECT_EQ(f.rows(), u"*M m.c|! nd|! nd/deep|! nd/deep/new.c|! new.c|! r.c"_list);
    f.app.setCommitSelection(MarkedPaths::all(f.app.changes), true);
    f.app.commitMessage = u"why"_s;
    awaited(f.app.commitSelected());
    EXPECT_EQ(f.alertText(), QString());
    EXPECT_EQ(f.rows(), QStringList());
    EXPECT_TRUE(svn.svn(u"log|-v|-r|HEAD"_list).contains("\n   M /trunk/m.c\n   D /trunk/r.c\n\nwhy"));
    addAndLose(u"new.c"_s);
    awaited(f.app.refreshStatus());
    f.app.setCommitSelection(MarkedPaths::all(f.app.changes), true);
    f.app.commitMessage = u"why"_s;
    awaited(f.app.commitSelected());
    EXPECT_TRUE(contains(f.alertText(), u"nothing to commit"_s));
    EXPECT_EQ(f.rows(), QStringList());
}

TEST(Commit, StaysOutOfRepositoriesInUnversionedFolders) {
    SvnFixture svn;
    svn.commit({{u"f.c"_s, "one\n"}});
    svn.writeAll({{u"deep/own.c"_s}, {u".git/HEAD"_s}});
    svn.svn({u"checkout"_s, u"-q"_s, svn.url(u"trunk"_s), u"deep/other"_s});
    svn.write(u"deep/other/f.c"_s, "two\n");
    GitFixture git;
    git.commit({{u"f.c"_s, "one\n"}});
    git.writeAll({{u"deep/own.c"_s}, {u".svn/wc.db"_s}});
    git.git(u"worktree|add|-q|deep/other"_list);
    git.git(u"clone|-q|.|top"_list);
    const Rows<RepositoryFixture *, QStringList> rows{
        {"svn", &svn, u"? deep/other|? deep/own.c"_list},
        {"git", &git, u"? deep/other|? deep/own.c|? top"_list},
    };
    for (const auto &[name, repository, shown] : rows) {
        AppFixture f(*repository);
        EXPECT_EQ(f.rows(), shown);
        f.commit(u"deep/other|deep/own.c|top"_list);
        EXPECT_EQ(f.alertText(), u"Commit Failed: deep/other is a repository of its own. Untick it and what is in it, "
                                 "then commit again."_s);
        // A row that is older than the repository around it.
        const QString metadata = metadataName(repository->kind);
        QFile::link(repository->path(u"deep/other/"_s + metadata), repository->path(u"deep/"_s + metadata));
        f.commit({u"deep/own.c"_s});
        EXPECT_TRUE(contains(f.alertText(), u"deep is a repository of its own."_s));
    }
    EXPECT_TRUE(svn.svn(u"status|deep/other"_list).startsWith("M "));
}

TEST(Commit, ANameThatIsNoUtf8IsNoOtherFile) {
    GitFixture git;
    git.write(u"caf\u00E9.txt"_s, "one\n");
    const std::string untracked = git.path(u"caf"_s).toStdString() + "\xE9.txt";
    const std::string tracked = git.path(u"d"_s).toStdString() + "\xE9.txt";
    std::ofstream(tracked) << "one\n";
    git.commitAll();
    for (const std::string &path : {untracked, tracked})
        std::ofstream(path) << "x\n";
    git.write(u"caf\u00E9.txt"_s, "two\n");
    AppFixture f(git);
    EXPECT_EQ(f.rows(), u"*M caf\u00E9.txt|? caf\uFFFD.txt|*M d\uFFFD.txt"_list);
    const QString leftOut = u"2 path(s) whose names are not UTF-8 stay as they are. Revert them in a terminal."_s;
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.user.asked.last(),
              u"confirm Revert: Revert all 1 changed path(s)? Local changes will be discarded. "_s + leftOut);
    EXPECT_EQ(git.read(u"caf\u00E9.txt"_s), "one\n");
    EXPECT_EQ(f.rows(), u"? caf\uFFFD.txt|*M d\uFFFD.txt"_list);
    awaited(f.app.revertAllPaths());
    EXPECT_EQ(f.alertText(), u"Revert Failed: "_s + leftOut);
    f.commit({u"caf\uFFFD.txt"_s});
    EXPECT_EQ(f.alertText(), u"Commit Failed: caf\uFFFD.txt has a name that is not UTF-8. Untick it and commit it in a "
                             "terminal."_s);
    for (const std::string &path : {untracked, tracked})
        std::remove(path.c_str()); // the temporary tree cannot name them
}

} // namespace
} // namespace kestor

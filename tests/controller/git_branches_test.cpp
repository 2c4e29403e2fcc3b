#include "support/app_test.h"
#include "support/environment_variable.h"

namespace kestor {
namespace {

/// As long as it lives, a `git` of before the subcommand `switch` is first on PATH.
class OldGit {
public:
    OldGit() {
        tree.writeProgram(u"git"_s, "if [ \"$1\" = switch ]; then\n"
                                    "  echo \"git: 'switch' is not a git command. See 'git --help'.\" >&2; exit 1\n"
                                    "fi\n"
                                    "exec /usr/bin/git \"$@\"\n");
    }

private:
    TempTree tree{};
    EnvironmentVariable path{"PATH", QFile::encodeName(tree.path()) + ':' + qgetenv("PATH")};
};

/// A clone ("clone" beside "wc") of a repository with the branches "main", "topic" and "feature/x", whose file a.txt
/// holds the name of its branch.
class ClonedBranches : public ::testing::Test {
protected:
    ClonedBranches() {
        for (const QString &branch : u"main|topic|feature/x"_list) {
            if (branch != u"main")
                origin.git({u"switch"_s, u"-q"_s, u"-c"_s, branch});
            origin.write(u"a.txt"_s, branch.toUtf8());
            origin.commitAll(u"on "_s + branch);
        }
        origin.git(u"switch|-q|main"_list);
        runTool(u"git"_s, {u"clone"_s, u"-q"_s, origin.path(), path()}, origin.tree.path());
        f.open(path(), RepositoryKind::git);
    }
    QString path() const { return origin.tree.path(u"clone"_s); }
    QByteArray git(const QStringList &arguments) const { return runTool(u"git"_s, arguments, path()); }
    void switchTo(const SwitchTarget &target) {
        f.app.alert = std::nullopt;
        f.app.commandOutput = std::nullopt;
        f.user.chosenBranch = target;
        awaited(f.app.branches.switchGitBranch());
    }
    /// What the header shows, and the branch that the file is of.
    QStringList shown() const {
        return {f.app.repositoryInfo.value().workingRevision.value_or(QString()),
                QString::fromUtf8(origin.tree.read(u"clone/a.txt"_s))};
    }

    GitFixture origin{};
    AppFixture f{};
};

TEST_F(ClonedBranches, AreOfferedWithoutThePointerOfTheRemoteAndCancelledQuietly) {
    awaited(f.app.branches.switchGitBranch());
    EXPECT_EQ(f.user.asked, u"branch main of main, origin/feature/x, origin/main, origin/topic"_list);
    EXPECT_EQ(f.app.commandOutput.value(), std::nullopt);
    git(u"switch|-q|--detach"_list);
    awaited(f.app.branches.switchGitBranch());
    EXPECT_TRUE(f.user.asked.last().startsWith(u"branch (none) of main, "_s)) << "a detached HEAD has none";
}

TEST_F(ClonedBranches, AreSwitchedToAndEverythingShownFollows) {
    const Rows<QString, bool, QString, QString, QString> rows{
        {"a remote branch is tracked", u"origin/topic"_s, true, u"--track origin/topic"_s, u"topic"_s,
         u"set up to track"_s},
        {"a local branch", u"main"_s, false, u"main"_s, u"main"_s, u"up to date"_s},
        {"a remote branch whose local one exists", u"origin/topic"_s, true, u"topic"_s, u"topic"_s,
         u"The local branch topic already exists"_s},
        {"the current branch", u"topic"_s, false, u"topic"_s, u"topic"_s, u"Already on"_s},
        {"a typed name that only the remote has", u"feature/x"_s, false, u"feature/x"_s, u"feature/x"_s,
         u"set up to track"_s},
    };
    f.showTab(WorkflowTab::history);
    for (const auto &[name, target, isRemote, arguments, branch, says] : rows) {
        switchTo({target, isRemote});
        const CommandOutput output = f.output();
        EXPECT_TRUE(output.commandLine.endsWith(u"git switch "_s + arguments)) << output.commandLine.toStdString();
        EXPECT_TRUE((output.stdoutText + output.stderrText).contains(says)) << output.stdoutText.toStdString();
        EXPECT_EQ(shown(), (QStringList{branch, branch}));
        EXPECT_EQ(f.app.logEntries.value().first().message, u"on "_s + branch) << "the visible tab";
    }
}

TEST_F(ClonedBranches, ThatATagOrAnotherRemoteNameResemblesAreTold) {
    git(u"branch|same"_list);
    git(u"tag|same"_list);
    git(u"branch|origin/topic"_list);
    awaited(f.app.branches.switchGitBranch());
    EXPECT_EQ(f.user.asked.last(), u"branch main of main, origin/topic, same, origin/feature/x, origin/main, "
                                   "remotes/origin/topic"_s);
    switchTo({u"same"_s, false});
    EXPECT_EQ(QString::fromUtf8(git(u"symbolic-ref|HEAD"_list)), u"refs/heads/same\n"_s);
    switchTo({u"remotes/origin/topic"_s, true});
    EXPECT_EQ(shown(), u"topic|topic"_list);
}

TEST_F(ClonedBranches, StayWhenTheSwitchFails) {
    switchTo({u"none"_s, false});
    EXPECT_EQ(f.alertText(), u"Switch Branch Failed: fatal: invalid reference: none\n"_s);
    switchTo({u"--detach"_s, false});
    EXPECT_EQ(f.alertText(), u"Switch Branch Failed: The name of a branch cannot begin with \"-\": --detach"_s);
    origin.tree.write(u"clone/a.txt"_s, "mine");
    switchTo({u"origin/topic"_s, true});
    EXPECT_TRUE(startsWith(f.alertText(), u"Switch Branch Failed: error: Your local changes"_s));
    EXPECT_EQ(shown(), u"main|mine"_list);
    EXPECT_EQ(f.rows(), u"*M a.txt"_list) << "also what changed meanwhile is shown";
}

TEST_F(ClonedBranches, AreShownTrueWhenAHookFailsAfterTheSwitch) {
    origin.tree.writeProgram(u"clone/.git/hooks/post-checkout"_s, "echo no lfs >&2\nexit 2\n");
    switchTo({u"topic"_s, false});
    EXPECT_TRUE(f.alertText().contains(u"no lfs"_s));
    EXPECT_EQ(shown(), u"topic|topic"_list);
}

TEST_F(ClonedBranches, AskBeforeTheyOverwriteIgnoredFiles) {
    origin.git(u"switch|-q|-c|other"_list);
    origin.commit(u"conf|build|in/the/way|mixed/conf|plain"_list, "theirs\n");
    origin.git(u"update-index|--add|--cacheinfo|160000,1111111111111111111111111111111111111111,sub"_list);
    origin.git(u"commit|-q|-m|sub"_list);
    origin.git(u"switch|-q|main"_list);
    origin.git(u"merge|-q|other"_list);
    origin.tree.write(u"clone/.git/info/exclude"_s, "conf\nbuild\nin\nsub\n");
    origin.tree.write(u"clone/mixed/not ignored"_s);
    const auto update = [](AppState &app) {
        return app.actions.updateWorkingCopy();
    };
    const auto change = [](AppState &app) {
        return app.branches.switchGitBranch();
    };
    const Rows<QString, QCoro::Task<> (*)(AppState &), QString> rows{
        {"a pull and a file", u"conf"_s, update, u"Pull"_s},
        {"a switch and a file", u"conf"_s, change, u"Switch Branch"_s},
        {"a folder where a file comes", u"build/x"_s, change, u"Switch Branch"_s},
        {"a file beside one that is not ignored", u"mixed/conf"_s, change, u"Switch Branch"_s},
        {"a file where a folder comes", u"in"_s, change, u"Switch Branch"_s},
        {"a file where a submodule comes", u"sub"_s, change, u"Switch Branch"_s},
        {"Git itself refuses what is not ignored", u"plain"_s, change, QString()},
    };
    f.user.confirms = false;
    f.user.chosenBranch = SwitchTarget{u"other"_s};
    for (const auto &[name, file, operation, title] : rows) {
        origin.tree.write(u"clone/"_s + file, "mine\n");
        f.user.asked.clear();
        awaited(operation(f.app));
        const QString question = u"confirm "_s + title + u": 1 ignored path(s) on disk will be overwritten: "_s +
                                 QString(file).remove(u"/x"_s);
        EXPECT_EQ(f.user.asked.filter(u"confirm"_s), title.isEmpty() ? QStringList() : QStringList(question));
        EXPECT_EQ(origin.tree.read(u"clone/"_s + file), "mine\n");
        QFile::remove(path() + u'/' + file);
        QDir(path()).rmdir(u"build"_s);
    }
    QCoro::Task<> pull = update(f.app);
    const auto left = f.app.selectedProjectID.value();
    f.app.selectedProjectID = std::nullopt;
    awaited(std::move(pull));
    f.app.selectedProjectID = left;
    EXPECT_EQ(origin.tree.read(u"clone/conf"_s), "theirs\n") << "with nothing in the way, also where the user is gone";
    EXPECT_EQ(f.user.asked.filter(u"confirm"_s), QStringList());
}

TEST_F(ClonedBranches, AreCheckedOutByAGitThatCannotSwitch) {
    const OldGit old;
    switchTo({u"origin/topic"_s, true});
    EXPECT_EQ(shown(), u"topic|topic"_list);
    switchTo({u"main"_s, false});
    EXPECT_EQ(shown(), u"main|main"_list);
    origin.tree.write(u"clone/a.txt"_s, "mine");
    for (const QString &name : u"a.txt|*.txt|.|:/"_list) {
        switchTo({name, false});
        EXPECT_TRUE(f.alertText().contains(u"is not a git command"_s)) << name.toStdString();
        EXPECT_EQ(origin.tree.read(u"clone/a.txt"_s), "mine") << "no branch, and its changes are not lost";
    }
    const QList<GitBranch> branches{{u"origin/a.txt"_s, false, true}};
    EXPECT_EQ(switchPlan({u"a.txt"_s, false}, branches, path()).fallbackArguments, QStringList())
        << "some would take the file";
}

} // namespace
} // namespace kestor

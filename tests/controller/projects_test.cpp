#include "support/app_test.h"

namespace kestor {
namespace {

QStringList projectNames(const AppState &app) {
    QStringList names;
    for (const Project &project : app.projects.value())
        names.append(project.name);
    return names;
}

TEST(Projects, AddingASubfolderRegistersTheRootAndLoadsIt) {
    SvnFixture repository;
    repository.commit({{u"src/a.c"_s}});
    repository.write(u"src/a.c"_s, "changed\n");
    AppFixture f;
    f.user.chosenDirectory = repository.path(u"src"_s);
    awaited(f.app.addExistingWorkingCopy());
    ASSERT_EQ(f.app.projects.value().size(), 1);
    const Project project = f.app.projects.value().first();
    EXPECT_EQ(project, (Project{project.id, u"wc"_s, repository.path(), RepositoryKind::svn}));
    EXPECT_EQ(f.app.selectedProjectID.value(), project.id);
    EXPECT_EQ(f.rows(), u"*M src/a.c"_list);
    EXPECT_EQ(f.user.asked, u"directory Add Working Copy"_list);
    EXPECT_EQ(ProjectStore(f.settings).load(), f.app.projects.value());
}

TEST(Projects, AFolderOfNeitherKindIsRefusedInOneSentence) {
    const TempTree folder;
    AppFixture f;
    bool busyWhenAlerted = true;
    const auto watching = f.app.alert.addNotifier([&] { busyWhenAlerted = f.app.busyMessage.value().has_value(); });
    f.user.chosenDirectory = folder.path();
    awaited(f.app.addExistingWorkingCopy());
    EXPECT_EQ(f.alertText(),
              u"Could Not Add Project: No SVN working copy or Git repository was found at "_s + folder.path() + u'.');
    EXPECT_FALSE(busyWhenAlerted);
    EXPECT_TRUE(f.app.projects.value().isEmpty());
}

TEST(Projects, AWorkingCopyInsideAGitRepositoryIsSubversion) {
    SvnFixture repository;
    runTool(u"git"_s, u"init|-q"_list, repository.tree.path());
    AppFixture f;
    EXPECT_EQ(awaited(f.app.detectRepository(repository.path())).kind, RepositoryKind::svn);
    EXPECT_EQ(awaited(f.app.detectRepository(repository.tree.path())),
              (DetectedRepository{repository.tree.path(), RepositoryKind::git}));
}

TEST(Projects, DroppedFoldersAreAddedInOrderAndTheLastIsSelected) {
    TempTree tree;
    QStringList paths;
    for (const QString &name : u"b|a10|A|a9"_list) {
        tree.makeDirectory(name);
        runTool(u"git"_s, u"init|-q"_list, tree.path(name));
        paths.append(tree.path(name));
    }
    paths.insert(1, tree.path());
    AppFixture f;
    awaited(f.app.addWorkingCopies(paths));
    EXPECT_EQ(projectNames(f.app), u"A|a9|a10|b"_list);
    EXPECT_EQ(f.app.selectedProject()->name, u"a9"_s);
    EXPECT_TRUE(f.alertText().startsWith(u"Could Not Add Project"_s));
}

TEST(Projects, AddingAKnownFolderSelectsItAndUpdatesItsKind) {
    GitFixture repository;
    AppFixture f(repository);
    const QUuid id = f.app.projects.value().first().id;
    awaited(f.app.addProject(repository.path() + u"/../wc/."_s, RepositoryKind::svn));
    ASSERT_EQ(f.app.projects.value().size(), 1);
    EXPECT_EQ(f.app.projects.value().first().id, id);
    // The refresh that follows sees what the folder really is.
    EXPECT_EQ(f.app.projects.value().first().kind, RepositoryKind::git);
    EXPECT_EQ(ProjectStore(f.settings).load(), f.app.projects.value());
}

TEST(Projects, AFolderThatChangedItsKindIsFollowedQuietly) {
    const Rows<QCoro::Task<> (AppState::*)()> rows{{"all", &AppState::refreshAll},
                                                   {"the list alone", &AppState::refreshStatus}};
    for (const auto &[name, load] : rows) {
        SvnFixture repository;
        AppFixture f(repository);
        QDir(repository.path(u".svn"_s)).removeRecursively();
        runTool(u"git"_s, u"init|-q|-b|fresh"_list, repository.path());
        repository.write(u"new.txt"_s);
        awaited((f.app.*load)());
        EXPECT_EQ(f.app.selectedProject()->kind, RepositoryKind::git);
        EXPECT_EQ(f.rows(), u"? new.txt"_list);
        EXPECT_EQ(f.app.repositoryInfo.value().workingRevision, u"fresh"_s);
        EXPECT_EQ(f.alertText(), QString());
    }
}

TEST(Projects, OfGitThatLieInsideAnotherRepositoryLeaveThatAlone) {
    GitFixture repository;
    repository.write(u"a.txt"_s);
    const TempTree &outer = repository.tree;
    runTool(u"git"_s, u"init|-q"_list, outer.path());
    repository.tree.write(u"folder/b.txt"_s);
    QFile::link(repository.path(), outer.path(u"link"_s));
    const Rows<QString, bool, QStringList> rows{
        {"a repository of its own", repository.path(), true, u"? a.txt"_list},
        {"reached by a link", outer.path(u"link"_s), true, u"? a.txt"_list},
        {"never one of its own", outer.path(u"folder"_s), false, {}},
        {"no longer one of its own", repository.path(), false, {}},
        {"the same by a link", outer.path(u"link"_s), false, {}},
    };
    AppFixture f;
    for (const auto &[name, path, isOwn, changes] : rows) {
        f.app.alert = std::nullopt;
        f.open(path, RepositoryKind::git);
        if (!isOwn)
            QDir(path + u"/.git"_s).removeRecursively();
        for (const auto load : {&AppState::refreshAll, &AppState::refreshStatus, &AppState::refreshHistory}) {
            awaited((f.app.*load)());
            EXPECT_EQ(f.rows(), changes);
            EXPECT_EQ(f.alertText(),
                      isOwn ? QString()
                            : u"Status Failed: "_s + path +
                                  u" is no Git repository of its own any more. It lies inside the one at "_s +
                                  outer.path() + u", of which nothing is shown or changed here."_s);
        }
        if (!isOwn)
            awaited(f.app.runSelectedGitCommand(u"Add"_s, u"add|."_list, RefreshAfter::no, ShowOutput::always));
    }
    EXPECT_EQ(runTool(u"git"_s, u"ls-files"_list, outer.path()), "");
}

TEST(Projects, OfSubversionThatAreNoWorkingCopyAreToldSo) {
    SvnFixture repository;
    repository.svn({u"propset"_s, u"-q"_s, u"svn:externals"_s, u"^/trunk gone"_s, u"."_s});
    repository.write(u"gone/a.txt"_s);
    AppFixture f(repository);
    EXPECT_EQ(f.alertText(), QString()) << "an external that is none is no reason";
    const QStringList before = f.rows();
    QDir(repository.path(u".svn"_s)).removeRecursively();
    awaited(f.app.refreshStatus());
    EXPECT_TRUE(contains(f.alertText(), u"Status Failed: svn: warning: W155007: '"_s + repository.path()));
    EXPECT_EQ(f.rows(), before);
}

TEST(Projects, OfSubversionShowNoListThatBreaksOff) {
    HeldApp held(RepositoryKind::svn);
    held.app->selectedProjectID = held.app->projects.value()[0].id;
    held.app->changes = QList<WorkingCopyItem>{{.path = u"a"_s}};
    held.tasks.push_back(held.app->refreshStatus());
    held.finish(u"status|--xml|--no-ignore"_list, "<status><target path='.'>");
    ASSERT_TRUE(waitUntil([&] { return held.app->alert.value().has_value(); }));
    EXPECT_EQ(held.app->alert.value()->message, u"What svn printed could not be read to its end."_s);
    EXPECT_EQ(held.app->changes.value().size(), 1);
}

TEST(Projects, LeaveNoDecisionOnATickToTheNext) {
    GitFixture one;
    GitFixture two;
    for (GitFixture *repository : {&one, &two}) {
        repository->commit({{u"a.c"_s}});
        repository->write(u"a.c"_s, "changed\n");
    }
    AppFixture f(one);
    f.app.setCommitSelection(MarkedPaths::all(f.app.changes), false);
    f.open(two.path(), RepositoryKind::git);
    EXPECT_EQ(f.rows(), u"*M a.c"_list);
}

TEST(Projects, RemovingAsksFirstAndNeverTouchesTheFolder) {
    GitFixture repository;
    repository.write(u"kept.txt"_s);
    AppFixture f(repository);
    f.user.confirms = false;
    awaited(f.app.removeSelectedProject());
    EXPECT_EQ(f.app.projects.value().size(), 1);
    f.user.confirms = true;
    awaited(f.app.removeSelectedProject());
    EXPECT_EQ(f.user.asked.last(), u"confirm Remove Project: Remove wc from the project list? The working copy on disk "
                                   "will not be deleted."_s);
    EXPECT_TRUE(f.app.projects.value().isEmpty());
    EXPECT_EQ(f.app.selectedProjectID.value(), std::nullopt);
    EXPECT_TRUE(f.app.changes.value().isEmpty());
    EXPECT_TRUE(repository.tree.exists(u"wc/kept.txt"_s));
}

TEST(Projects, TheFolderIsOpenedOrItsAbsenceTold) {
    GitFixture repository;
    AppFixture f;
    awaited(f.app.openFinder());
    EXPECT_EQ(f.alertText(), u"No Project Selected: Choose a project first."_s);
    f.open(repository);
    awaited(f.app.openBoth());
    EXPECT_EQ(f.user.asked, (QStringList{u"terminal "_s + repository.path(), u"file manager "_s + repository.path()}));
    f.user.fileManagerWorks = false;
    awaited(f.app.openFinder());
    EXPECT_EQ(f.alertText(),
              u"Open Finder Failed: "_s + repository.path() + u" could not be opened in the file manager."_s);
    QDir(repository.path()).removeRecursively();
    awaited(f.app.openTerminal());
    EXPECT_EQ(f.alertText(),
              u"Project Folder Missing: "_s + repository.path() + u" does not exist or is not a folder."_s);
}

} // namespace
} // namespace kestor

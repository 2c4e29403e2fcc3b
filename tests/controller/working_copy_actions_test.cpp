#include "support/app_test.h"
#include "support/trash_fixture.h"

namespace kestor {
namespace {

using Actions = WorkingCopyActions;
using Answer = QMap<QString, QString>;

/// A project with two rows, both ticked, and tools that only note what they are asked.
class NotedActions : public HeldApp {
public:
    NotedActions() : HeldApp(RepositoryKind::git) {
        app->changes = QList<WorkingCopyItem>{{.path = u"c.c"_s, .kind = SVNStatusKind::conflicted},
                                              {.path = u"lost.c"_s, .kind = SVNStatusKind::missing}};
        app->selectedCommitPaths = marked({u"c.c"_s, u"lost.c"_s});
        user.confirms = false;
    }
};

TEST(WorkingCopyActions, OfSubversionAreRefusedInGitBeforeAnythingIsAsked) {
    using Operation = QCoro::Task<> (Actions::*)();
    for (const Operation operation :
         {&Actions::lockSelectedPaths, &Actions::createChangelist, &Actions::applyPatch, &Actions::copyItem,
          &Actions::setProperty, &Actions::merge, &Actions::switchWorkingCopyURL, &Actions::cleanUp}) {
        NotedActions f;
        (f.app->actions.*operation)();
        EXPECT_EQ(f.app->alert.value()->title, u"SVN Command Unavailable"_s);
        EXPECT_TRUE(f.user.asked.isEmpty() && f.tool->runs.isEmpty());
    }
}

TEST(WorkingCopyActions, DeletingAConflictInGitAsksFirst) {
    NotedActions f;
    const QCoro::Task<> deleting = f.app->actions.deleteSelectedPaths();
    ASSERT_TRUE(waitUntil([&f] { return !f.user.asked.isEmpty(); }));
    EXPECT_EQ(f.user.asked, QStringList(u"confirm Delete: Delete 2 path(s)? 1 path(s) in conflict will lose what was "
                                        "resolved in them so far."_s));
    EXPECT_TRUE(f.tool->runs.isEmpty());
}

TEST(WorkingCopyActions, OfferWhatAConflictAllows) {
    const WorkingCopyItem clean{.path = u"a"_s, .kind = SVNStatusKind::modified};
    const WorkingCopyItem text{.path = u"b"_s, .kind = SVNStatusKind::conflicted};
    const WorkingCopyItem tree{.path = u"c"_s, .kind = SVNStatusKind::added, .treeConflict = true};
    const WorkingCopyItem property{.path = u"d"_s, .propertiesKind = SVNStatusKind::conflicted};
    EXPECT_EQ(resolvable({clean}), Resolvable::nothing);
    EXPECT_EQ(resolvable({clean, text}), Resolvable::byAnySide);
    EXPECT_EQ(resolvable({property}), Resolvable::byAnySide);
    EXPECT_EQ(resolvable({text, tree}), Resolvable::asIs);
    EXPECT_EQ(itemsToResolve({clean, text, tree, property}, clean), (QList{text, tree, property}));
    EXPECT_EQ(itemsToResolve({clean}, text), QList{text});
    EXPECT_EQ(itemsToResolve({clean}, clean), QList{clean}) << "the tool then says that there is no conflict";
}

/// A real working copy with "a.c", the folder "d" and a branch "^/branches/b", all committed.
class RealActions : public ::testing::Test {
protected:
    void SetUp() override {
        repository.commit({{u"a.c"_s, "1\n2\n3\n"}, {u"d/b.c"_s}});
        repository.svn(u"copy|-m|branch|^/trunk|^/branches/b"_list);
        f.open(repository);
    }
    /// The rows after the action, with its alert if there is one.
    QStringList after(QCoro::Task<> action) {
        awaited(std::move(action));
        const QString alert = f.alertText();
        f.app.alert = std::nullopt;
        return alert.isEmpty() ? f.rows() : QStringList(alert);
    }
    void answer(const Answer &texts) { f.user.promptAnswer = texts; }
    void tick(const QStringList &paths) { f.app.selectedCommitPaths = marked(paths); }
    QString output() const { return f.output().stdoutText; }
    void reload() { awaited(f.app.refreshAll()); }

    SvnFixture repository{};
    AppFixture f{};
    Actions &actions = f.app.actions;
};

TEST_F(RealActions, AddChangelistsAndDeletePaths) {
    EXPECT_EQ(after(actions.addSelectedPaths()), u"No Paths Selected: Select at least one changed path."_list);
    repository.write(u"new/x@1.c"_s);
    repository.svn(u"delete|-q|d/b.c"_list);
    reload();
    tick({u"new/x@1.c"_s, u"d/b.c"_s});
    EXPECT_EQ(after(actions.addSelectedPaths()), u"*D d/b.c|*A new|*A new/x@1.c"_list) << "what is gone is left out";
    tick({u"new/x@1.c"_s});
    answer(u"name=fix it"_answer);
    after(actions.createChangelist());
    EXPECT_TRUE(repository.svn(u"status"_list).contains("--- Changelist 'fix it':\nA       new/x@1.c"));
    after(actions.removeFromChangelist());
    EXPECT_FALSE(repository.svn(u"status"_list).contains("Changelist"));
    QFile::remove(repository.path(u"a.c"_s));
    reload();
    tick({u"a.c"_s});
    EXPECT_TRUE(after(actions.deleteSelectedPaths()).contains(u"*D a.c"_s));
}

TEST_F(RealActions, AddNothingThatHasNoRow) {
    repository.svn(u"propset|-q|note|x|d"_list);
    repository.svn({u"checkout"_s, u"-q"_s, repository.url(u"trunk"_s), u"nested"_s});
    repository.writeAll({{u"d/n.c"_s}, {u"nested/n.c"_s}, {u"hidden/n.tmp"_s}, {u".kestorignore"_s, "*.tmp\n"}});
    repository.tree.makeDirectory(u"wc/hidden/empty"_s);
    reload();
    tick({u"d"_s, u"nested"_s, u"hidden/empty"_s});
    EXPECT_EQ(after(actions.addSelectedPaths()),
              u"? .kestorignore|  d|? d/n.c|*A hidden|*A hidden/empty|? nested"_list);
    EXPECT_EQ(repository.svn(u"status|nested"_list), "?       nested/n.c\n");
    tick({u"d"_s});
    f.app.selectedChangeID = u"d"_s;
    EXPECT_EQ(after(actions.addSelectedPaths()), u"Add Failed: Only unversioned paths can be added."_list);
    repository.svn(u"delete|-q|--keep-local|a.c"_list);
    reload();
    tick({u"a.c"_s, u"d"_s});
    EXPECT_TRUE(after(actions.addSelectedPaths()).contains(u"*R a.c"_s)) << "what is deleted, but on disk";
}

TEST_F(RealActions, HandLongListsOverByFile) {
    QStringList paths;
    for (int index = 0; index < 600; ++index) {
        const QString path = QString(200, u'x') + QString::number(index) + u"@2x"_s;
        repository.write(path);
        paths.append(path);
    }
    reload();
    tick(paths);
    EXPECT_EQ(after(actions.addSelectedPaths()).filter(u"*A x"_s).size(), 600);
    answer(u"name=many"_answer);
    after(actions.createChangelist());
    EXPECT_EQ(repository.svn(u"status|--changelist|many"_list).count("A       x"), 600);
}

TEST_F(RealActions, MakeCopyAndMove) {
    answer(u"path=e"_answer);
    EXPECT_EQ(after(actions.makeDirectoryInWorkingCopy()), u"*A e"_list);
    answer(u"source=d|target=e/d2|message="_answer);
    EXPECT_TRUE(after(actions.moveItem()).contains(u"*A e/d2"_s));
    EXPECT_TRUE(repository.tree.exists(u"wc/e/d2/b.c"_s));
    EXPECT_FALSE(repository.tree.exists(u"wc/d/b.c"_s));
    answer(u"source=a.c|target=e"_answer);
    EXPECT_TRUE(after(actions.copyItem()).contains(u"*A e/a.c"_s));
    answer(u"source=^/branches/b|target=^/branches/c|message=why"_answer);
    after(actions.moveItem());
    EXPECT_EQ(repository.svn(u"list|^/branches"_list), "c/\n");
    answer(u"path=e/z@2x"_answer);
    EXPECT_EQ(after(actions.makeDirectoryInWorkingCopy()),
              u"Make Directory Failed: svn: E200009: 'e/z@2x': a peg revision is not allowed here\n"_list);
}

TEST_F(RealActions, SetReadAndDeleteProperties) {
    answer(u"name=svn:ignore|value=*.o\n*.tmp|path=d"_answer);
    EXPECT_EQ(after(actions.setProperty()).size(), 1);
    EXPECT_EQ(repository.svn(u"propget|svn:ignore|d"_list), "*.o\n*.tmp\n\n");
    after(actions.getProperty());
    EXPECT_EQ(output(), u"*.o\n*.tmp\n\n"_s);
    after(actions.listProperties());
    EXPECT_TRUE(contains(output(), u"svn:ignore"_s));
    EXPECT_EQ(after(actions.deleteProperty()), QStringList());
    repository.write(u" lead.txt"_s);
    repository.svn(u"add|-q| lead.txt"_list);
    reload();
    for (const QString &value : u"-5|"_list) {
        answer({{u"name"_s, u"note"_s}, {u"value"_s, value}, {u"path"_s, u"lead.txt"_s}});
        EXPECT_EQ(after(actions.setProperty()), u"*A  lead.txt"_list) << "an offered name keeps its blank";
        EXPECT_EQ(repository.svn(u"propget|note| lead.txt"_list), value.toUtf8() + '\n');
    }
}

TEST_F(RealActions, ApplyAPatchAndKeepWhatItRejects) {
    const Rows<QByteArray, QStringList> rows{{"applies", " 1\n-2\n+two\n 3\n", {u"*M a.c"_s}},
                                             {"rejects", " 8\n-9\n+nine\n 8\n", {u"*M a.c"_s}}};
    for (const auto &[name, context, left] : rows) {
        repository.tree.write(u"fix@home.patch"_s, "--- a.c\n+++ a.c\n@@ -1,3 +1,3 @@\n" + context);
        f.user.chosenFile = repository.tree.path(u"fix@home.patch"_s);
        EXPECT_EQ(after(actions.applyPatch()), left);
    }
    EXPECT_TRUE(repository.tree.exists(u"wc/a.c.svnpatch.rej"_s));
    EXPECT_TRUE(contains(output(), u"rejected hunk"_s));
}

TEST_F(RealActions, SwitchMergeAndRelocate) {
    answer(u"url=^/branches/b"_answer);
    after(actions.switchWorkingCopyURL());
    EXPECT_EQ(f.app.repositoryInfo.value().relativeURL, u"^/branches/b"_s);
    repository.write(u"a.c"_s, "1\n2\n3\n4\n");
    repository.svn(u"commit|-m|on the branch"_list);
    answer(u"url=^/trunk"_answer);
    EXPECT_EQ(after(actions.switchWorkingCopyURL()), QStringList());
    answer(u"source=^/branches/b|range=3:4"_answer);
    EXPECT_TRUE(after(actions.merge()).contains(u"*M a.c"_s));
    repository.svn(u"revert|-R|."_list);
    answer(u"source=^/branches/b|range="_answer);
    EXPECT_TRUE(after(actions.merge()).contains(u"*M a.c"_s));
    const QString root = *f.app.repositoryInfo.value().repositoryRoot;
    QFile::rename(repository.tree.path(u"repo"_s), repository.tree.path(u"moved"_s));
    const QString moved = u"file://"_s + repository.tree.path(u"moved"_s);
    answer({{u"from"_s, root}, {u"to"_s, moved}});
    after(actions.relocateWorkingCopyURL());
    EXPECT_EQ(f.app.repositoryInfo.value().repositoryRoot, moved);
}

TEST_F(RealActions, LockAndUnlock) {
    repository.write(u"a.c"_s, "1\n");
    reload();
    EXPECT_EQ(after(actions.lockSelectedPaths()), u"*M a.c"_list);
    EXPECT_TRUE(repository.svn(u"info|a.c"_list).contains("Lock Token"));
    after(actions.unlockSelectedPaths());
    EXPECT_FALSE(repository.svn(u"info|a.c"_list).contains("Lock Token"));
    EXPECT_EQ(after(actions.cleanUp()), u"*M a.c"_list);
    answer(u"path=a.c"_answer);
    EXPECT_EQ(after(actions.showBlame()), u"*M a.c"_list);
    EXPECT_TRUE(contains(output(), u" 1\n"_s));
}

TEST_F(RealActions, DeletingAFolderAsksAboutIgnoredFilesInIt) {
    const TrashFixture trash;
    repository.svn(u"copy|-q|d|e"_list);
    repository.write(u"e/built.o"_s);
    repository.svn({u"checkout"_s, u"-q"_s, repository.url(u"trunk"_s), u"e/nested.o"_s});
    reload();
    tick({u"e"_s});
    f.user.confirms = false;
    EXPECT_EQ(after(actions.deleteSelectedPaths()), u"*A e"_list);
    EXPECT_EQ(f.user.asked, QStringList{u"confirm Delete: Delete 1 path(s)? 2 ignored path(s) in these folders will be "
                                        "deleted from disk, too: e/built.o, e/nested.o"_s});
    f.user.confirms = true;
    repository.write(u"e/new.c"_s);
    EXPECT_TRUE(after(actions.deleteSelectedPaths()).first().startsWith(u"Delete Failed: "_s)) << "for a new file";
    EXPECT_EQ(trash.files(), QStringList());
    QFile::remove(repository.path(u"e/new.c"_s));
    EXPECT_EQ(after(actions.deleteSelectedPaths()), QStringList());
    EXPECT_EQ(trash.files().size(), 2);
    repository.svn(u"copy|-q|d|e"_list);
    reload();
    tick({u"e"_s});
    f.user.asked.clear();
    EXPECT_EQ(after(actions.deleteSelectedPaths()), QStringList());
    EXPECT_EQ(f.user.asked, QStringList()) << "nothing is lost";
}

TEST_F(RealActions, ResolveEachWay) {
    const QStringList question{u"confirm Resolve: Resolve 1 path(s) with one side? What was merged in them so far will "
                               "be discarded."_s};
    const Rows<ResolveChoice, QStringList> rows{{"merged\n", ResolveChoice::working, {}},
                                                {"mine\n", ResolveChoice::mineFull, question},
                                                {"theirs\n", ResolveChoice::theirsFull, question}};
    for (const auto &[content, choice, asked] : rows) {
        repository.write(u"a.c"_s, "theirs\n");
        repository.svn(u"commit|-m|theirs"_list);
        repository.svn(u"update|-r|PREV|a.c"_list);
        repository.write(u"a.c"_s, "mine\n");
        after(actions.updateWorkingCopy());
        EXPECT_TRUE(f.rows().contains(u"C a.c"_s)) << "an update never asks, and a conflict is not ticked";
        repository.write(u"a.c"_s, "merged\n");
        tick({u"a.c"_s, u"a.c.mine"_s});
        f.user.asked.clear();
        f.user.confirms = choice == ResolveChoice::working;
        after(actions.resolveSelectedPaths(choice));
        EXPECT_EQ(repository.read(u"a.c"_s), "merged\n");
        EXPECT_EQ(f.user.asked, asked);
        f.user.confirms = true;
        EXPECT_FALSE(after(actions.resolveSelectedPaths(choice)).contains(u"C a.c"_s));
        EXPECT_EQ(repository.read(u"a.c"_s), content);
        f.user.asked.clear();
        after(actions.resolveSelectedPaths(choice));
        EXPECT_EQ(f.user.asked, QStringList()) << "nothing is in conflict any more";
        repository.write(u"a.c"_s, "1\n2\n3\n");
        repository.svn(u"commit|-m|back"_list);
    }
}

TEST_F(RealActions, ATreeConflictIsResolvedAsItIsAlone) {
    repository.svn(u"delete|a.c"_list);
    repository.svn(u"commit|-m|gone"_list);
    repository.svn(u"update|-r|2"_list);
    repository.write(u"a.c"_s, "mine\n");
    after(actions.updateWorkingCopy());
    tick({});
    f.app.selectedChangeID = u"a.c"_s;
    const QString refused = after(actions.resolveSelectedPaths(ResolveChoice::mineFull)).join(u'|');
    EXPECT_TRUE(startsWith(refused, u"Resolve Failed: svn: warning: W195024"_s));
    EXPECT_FALSE(after(actions.resolveSelectedPaths(ResolveChoice::working)).join(u'|').contains(u"Failed"_s));
    EXPECT_FALSE(f.app.changes.value().first().treeConflict);
}

TEST(WorkingCopyActions, PullAddAndDeleteInGit) {
    GitFixture origin;
    origin.commit({{u"a.c"_s}});
    TempTree clones;
    runTool(u"git"_s, {u"clone"_s, u"-q"_s, origin.path(), clones.path(u"wc"_s)}, clones.path());
    origin.commit({{u"b.c"_s}});
    AppFixture f;
    f.open(clones.path(u"wc"_s), RepositoryKind::git);
    awaited(f.app.actions.updateWorkingCopy());
    EXPECT_TRUE(clones.exists(u"wc/b.c"_s));
    EXPECT_EQ(f.output().title, u"Pull"_s);
    clones.writeAll({{u"wc/[n].c"_s, "new\n"}, {u"wc/n.c"_s}});
    QFile::remove(clones.path(u"wc/a.c"_s));
    awaited(f.app.refreshAll());
    f.app.selectedCommitPaths = marked({u"[n].c"_s});
    awaited(f.app.actions.addSelectedPaths());
    EXPECT_TRUE(f.rows().contains(u"*A [n].c"_s)) << qPrintable(f.rows().join(u'|'));
    EXPECT_TRUE(f.rows().contains(u"? n.c"_s));
    f.app.selectedCommitPaths = marked({u"a.c"_s});
    awaited(f.app.actions.deleteSelectedPaths());
    EXPECT_TRUE(f.rows().contains(u"*D a.c"_s)) << qPrintable(f.rows().join(u'|'));
    QFile::rename(clones.path(u"wc/b.c"_s), clones.path(u"wc/moved.c"_s));
    runTool(u"git"_s, u"add|-N|moved.c"_list, clones.path(u"wc"_s));
    awaited(f.app.refreshAll());
    f.app.selectedCommitPaths = marked({u"a.c"_s, u"moved.c"_s});
    awaited(f.app.actions.addSelectedPaths());
    const QByteArray staged = runTool(u"git"_s, u"diff|--cached|--no-renames|--name-status"_list, clones.path(u"wc"_s));
    EXPECT_TRUE(staged.contains("D\tb.c\nA\tmoved.c")) << staged.constData();
    EXPECT_EQ(f.alertText(), QString());
    QFile::rename(origin.path(), origin.tree.path(u"gone"_s));
    awaited(f.app.actions.updateWorkingCopy());
    EXPECT_TRUE(f.alertText().startsWith(u"Pull Failed: fatal: "_s));
    EXPECT_TRUE(f.output().commandLine.endsWith(u" fetch"_s)) << "what is silent is not asked twice";
}

} // namespace
} // namespace kestor

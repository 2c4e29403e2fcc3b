#include "support/app_test.h"

namespace kestor {
namespace {

using Actions = WorkingCopyActions;
using Operation = QCoro::Task<> (Actions::*)();
using Answer = QMap<QString, QString>;

template <ResolveChoice choice>
QCoro::Task<> resolve(Actions *actions) {
    return actions->resolveSelectedPaths(choice);
}

template <Operation operation>
QCoro::Task<> call(Actions *actions) {
    return (actions->*operation)();
}

using Call = QCoro::Task<> (*)(Actions *);

const QString noProject = u"No Project Selected: Choose a project first."_s;
const QString noPaths = u"No Paths Selected: Select at least one changed path."_s;
const QString noSVN =
    u"SVN Command Unavailable: This project is a Git repository. Use Git-backed actions from Changes and History."_s;

/// A project with a row of every kind, the conflict selected when any is ticked, and tools that only note what they are
/// asked.
class NotedActions : public HeldApp {
public:
    NotedActions(std::optional<RepositoryKind> kind, const QStringList &ticked) : HeldApp(kind) {
        folder.writeAll({{u"-i@2x.png"_s}, {u" lead.txt"_s}});
        app->changes = QList<WorkingCopyItem>{{.path = u" lead.txt"_s, .kind = SVNStatusKind::modified},
                                              {.path = u"-i@2x.png"_s, .kind = SVNStatusKind::modified},
                                              {.path = u"a.c"_s, .kind = SVNStatusKind::unversioned},
                                              {.path = u"c.c"_s, .kind = SVNStatusKind::conflicted},
                                              {.path = u"gone.c"_s, .kind = SVNStatusKind::deleted},
                                              {.path = u"lost.c"_s, .kind = SVNStatusKind::missing}};
        app->gitFacts.notInIndex = {u"gone.c"_s};
        app->selectedCommitPaths = QSet<QString>(ticked.begin(), ticked.end());
        if (!ticked.isEmpty())
            app->selectedChangeID = u"c.c"_s;
        app->repositoryInfo = RepositoryInfo{.url = u"file:///r/t@2"_s, .repositoryRoot = u"file:///r@1"_s};
        user.chosenFile = u"/tmp/fix@home.patch"_s;
    }
    QString alertText() const {
        const std::optional<AppAlert> alert = app->alert;
        return alert ? alert->title + u": "_s + alert->message : QString();
    }
};

struct ActionRow {
    const char *name;
    Call action;
    QStringList ticked;
    std::optional<Answer> answer;
    QStringList vector; ///< empty when nothing runs
    QString title;      ///< of the output, or the whole alert when nothing runs
    QString asked{};
};

void expectRow(const ActionRow &row, std::optional<RepositoryKind> kind) {
    SCOPED_TRACE(row.name);
    NotedActions f(kind, row.ticked);
    f.user.promptAnswer = row.answer;
    f.tasks.push_back(row.action(&f.app->actions));
    waitUntil([&f] { return !f.app->busyMessage.value() || !f.tool->runs.isEmpty(); });
    EXPECT_EQ(f.user.asked.join(u'|'), row.asked);
    ASSERT_EQ(f.tool->vectors(), QList<QStringList>(row.vector.isEmpty() ? 0 : 1, row.vector));
    EXPECT_EQ(row.vector.isEmpty() ? f.alertText() : f.app->busyMessage.value(), row.title);
    if (row.vector.isEmpty())
        return;
    EXPECT_EQ(f.tool->runs.first().directory, f.folder.path());
    EXPECT_EQ(f.app->busyKind.value() == BusyKind::interruptible, row.vector.first() == u"propget");
    f.tool->finish(row.vector, {});
    EXPECT_TRUE(waitUntil([&f] { return f.app->commandOutput.value().has_value(); }))
        << "also when nothing was printed";
    EXPECT_EQ(f.tool->vectors().size() == 1, row.vector.first() == u"propget")
        << "what may change something loads again";
}

const QStringList none;
const QStringList two = u"-i@2x.png|a.c"_list;

TEST(WorkingCopyActions, RunTheirVectorsInSubversion) {
    const QString oneName = u"prompt Changelist: Name="_s;
    const QString newProperty = u"prompt Set Property: Name=, Value=, Path=-i@2x.png"_s;
    const ActionRow rows[] = {
        {"add", call<&Actions::addSelectedPaths>, two, std::nullopt, u"add|--parents|--force|./-i@2x.png@|a.c"_list,
         u"Add"_s},
        {"add leaves out what is gone", call<&Actions::addSelectedPaths>, u"a.c|gone.c|lost.c"_list, std::nullopt,
         u"add|--parents|--force|a.c"_list, u"Add"_s},
        {"add only what is gone", call<&Actions::addSelectedPaths>, u"gone.c|lost.c"_list, std::nullopt,
         u"add|--parents|--force|gone.c|lost.c"_list, u"Add"_s},
        {"add nothing", call<&Actions::addSelectedPaths>, none, std::nullopt, none, noPaths},
        {"resolve leaves out what is in no conflict", resolve<ResolveChoice::working>, u"a.c|c.c"_list, std::nullopt,
         u"resolve|--accept|working|c.c"_list, u"Resolve"_s},
        {"resolve the selected row when no ticked one is in conflict", resolve<ResolveChoice::mineFull>, two,
         std::nullopt, u"resolve|--accept|mine-full|c.c"_list, u"Resolve"_s},
        {"resolve nothing", resolve<ResolveChoice::working>, none, std::nullopt, none,
         u"No Paths Selected: Select a conflicted path first."_s},
        {"unlock", call<&Actions::unlockSelectedPaths>, two, std::nullopt, u"unlock|./-i@2x.png@|a.c"_list,
         u"Unlock"_s},
        {"changelist", call<&Actions::createChangelist>, two, u"name=c 1"_answer,
         u"changelist|c 1|./-i@2x.png@|a.c"_list, u"Changelist"_s, oneName},
        {"changelist of nothing asks nothing", call<&Actions::createChangelist>, none, u"name=c"_answer, none, noPaths},
        {"cancelled", call<&Actions::createChangelist>, two, std::nullopt, none, QString(), oneName},
        {"without its name", call<&Actions::createChangelist>, two, u"name="_answer, none, QString(), oneName},
        {"copy, a new name as typed", call<&Actions::copyItem>, two, u"source=-i@2x.png|target=b@1"_answer,
         u"copy|./-i@2x.png@|b@1"_list, u"Copy"_s, u"prompt Copy: Source=-i@2x.png, Target=, Message="_s},
        {"move with a message", call<&Actions::moveItem>, none, u"source=^/a|target=^/b|message=why"_answer,
         u"move|^/a|^/b|-m|why"_list, u"Move"_s, u"prompt Move: Source=, Target=, Message="_s},
        {"an offered name keeps its blank", call<&Actions::getProperty>, u" lead.txt"_list,
         u"name=p|path=lead.txt"_answer, u"propget|p| lead.txt"_list, u"Get Property"_s,
         u"prompt Get Property: Name=, Path= lead.txt"_s},
        {"set property to what looks like an option", call<&Actions::setProperty>, two,
         u"name=p|value=-5|path=-i@2x.png"_answer, u"propset|p|--|-5|./-i@2x.png@"_list, u"Set Property"_s,
         newProperty},
        {"set property to nothing", call<&Actions::setProperty>, two, u"name=p|value=|path=-i@2x.png"_answer,
         u"propset|p||./-i@2x.png@"_list, u"Set Property"_s, newProperty},
        {"relocate", call<&Actions::relocateWorkingCopyURL>, none, u"from=file:///r|to=svn://r"_answer,
         u"relocate|file:///r|svn://r"_list, u"Relocate"_s, u"prompt Relocate: From URL=file:///r@1, To URL="_s},
        {"switch", call<&Actions::switchWorkingCopyURL>, none, u"url=^/b"_answer, u"switch|^/b"_list, u"Switch"_s,
         u"prompt Switch: URL=file:///r/t@2@"_s},
    };
    for (const ActionRow &row : rows)
        expectRow(row, RepositoryKind::svn);
    expectRow({"without a project", call<&Actions::addSelectedPaths>, two, std::nullopt, none, noProject},
              std::nullopt);
}

TEST(WorkingCopyActions, RunTheirVectorsInGitOrAreRefusedBeforeAnythingIsAsked) {
    const ActionRow rows[] = {
        {"add leaves staged deletions out", call<&Actions::addSelectedPaths>, u"a.c|gone.c|lost.c"_list, std::nullopt,
         u"add|--|a.c|lost.c"_list, u"Add"_s},
        {"add only a staged deletion", call<&Actions::addSelectedPaths>, u"gone.c"_list, std::nullopt,
         u"add|--|gone.c"_list, u"Add"_s},
        {"delete leaves staged deletions out", call<&Actions::deleteSelectedPaths>, u"gone.c|lost.c"_list, std::nullopt,
         u"rm|--|lost.c"_list, u"Delete"_s},
        {"delete asks about conflicts", call<&Actions::deleteSelectedPaths>, u"c.c|lost.c"_list, std::nullopt,
         u"rm|--|c.c|lost.c"_list, u"Delete"_s,
         u"confirm Delete: Delete 2 path(s)? 1 path(s) in conflict will lose what was resolved in them so far."_s},
        {"delete nothing", call<&Actions::deleteSelectedPaths>, none, std::nullopt, none, noPaths},
    };
    for (const ActionRow &row : rows)
        expectRow(row, RepositoryKind::git);
    const Call onlySubversion[] = {resolve<ResolveChoice::working>,
                                   call<&Actions::lockSelectedPaths>,
                                   call<&Actions::unlockSelectedPaths>,
                                   call<&Actions::createChangelist>,
                                   call<&Actions::removeFromChangelist>,
                                   call<&Actions::applyPatch>,
                                   call<&Actions::makeDirectoryInWorkingCopy>,
                                   call<&Actions::copyItem>,
                                   call<&Actions::moveItem>,
                                   call<&Actions::listProperties>,
                                   call<&Actions::getProperty>,
                                   call<&Actions::setProperty>,
                                   call<&Actions::deleteProperty>,
                                   call<&Actions::merge>,
                                   call<&Actions::switchWorkingCopyURL>,
                                   call<&Actions::relocateWorkingCopyURL>,
                                   call<&Actions::cleanUp>,
                                   call<&Actions::upgrade>};
    for (const Call action : onlySubversion)
        expectRow({"only Subversion", action, two, std::nullopt, none, noSVN}, RepositoryKind::git);
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
        repository.writeAll({{u"a.c"_s, "1\n2\n3\n"}, {u"d/b.c"_s}});
        repository.commitAll(u"first"_s);
        repository.svn(u"copy|-m|branch|^/trunk|^/branches/b"_list);
        f.open(repository.path(), RepositoryKind::svn);
    }
    /// The rows after the action, with its alert if there is one.
    QStringList after(QCoro::Task<> action) {
        f.app.alert = std::nullopt;
        awaited(std::move(action));
        return f.alertText().isEmpty() ? f.rows() : QStringList(f.alertText());
    }
    void answer(const Answer &texts) { f.user.promptAnswer = texts; }
    void tick(const QSet<QString> &paths) { f.app.selectedCommitPaths = paths; }
    QString output() const { return f.app.commandOutput.value()->stdoutText; }
    void reload() { awaited(f.app.refreshAll()); }

    SvnFixture repository{};
    AppFixture f{};
    Actions &actions = f.app.actions;
};

TEST_F(RealActions, AddChangelistsAndDeletePaths) {
    repository.write(u"new/x@1.c"_s);
    reload();
    tick({u"new/x@1.c"_s});
    EXPECT_EQ(after(actions.addSelectedPaths()), u"*A new|*A new/x@1.c"_list);
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

TEST_F(RealActions, HandLongListsOverByFile) {
    QSet<QString> paths;
    for (int index = 0; index < 600; ++index) {
        const QString path = QString(200, u'x') + QString::number(index) + u"@2x"_s;
        repository.write(path);
        paths.insert(path);
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
    repository.svn(u"copy|-q|d|e"_list);
    repository.write(u"e/built.o"_s);
    reload();
    tick({u"e"_s});
    f.user.confirms = false;
    EXPECT_EQ(after(actions.deleteSelectedPaths()), u"*A e"_list);
    EXPECT_EQ(f.user.asked, QStringList{u"confirm Delete: Delete 1 path(s)? 1 ignored path(s) in these folders will be "
                                        "deleted from disk, too."_s});
    f.user.confirms = true;
    EXPECT_EQ(after(actions.deleteSelectedPaths()), QStringList());
    repository.svn(u"copy|-q|d|e"_list);
    reload();
    tick({u"e"_s});
    f.user.asked.clear();
    EXPECT_EQ(after(actions.deleteSelectedPaths()), QStringList());
    EXPECT_EQ(f.user.asked, QStringList()) << "nothing is lost";
}

TEST_F(RealActions, ResolveEachWay) {
    struct Row {
        ResolveChoice choice;
        QByteArray content;
    };
    const Row rows[] = {{ResolveChoice::working, "merged\n"},
                        {ResolveChoice::mineFull, "mine\n"},
                        {ResolveChoice::theirsFull, "theirs\n"}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.content.constData());
        repository.write(u"a.c"_s, "theirs\n");
        repository.svn(u"commit|-m|theirs"_list);
        repository.svn(u"update|-r|PREV|a.c"_list);
        repository.write(u"a.c"_s, "mine\n");
        after(actions.updateWorkingCopy());
        EXPECT_TRUE(f.rows().contains(u"C a.c"_s)) << "an update never asks, and a conflict is not ticked";
        repository.write(u"a.c"_s, "merged\n");
        tick({u"a.c"_s, u"a.c.mine"_s});
        EXPECT_FALSE(after(actions.resolveSelectedPaths(row.choice)).contains(u"C a.c"_s));
        EXPECT_EQ(repository.tree.read(u"wc/a.c"_s), row.content);
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
    origin.write(u"a.c"_s);
    origin.commitAll(u"first"_s);
    TempTree clones;
    runTool(u"git"_s, {u"clone"_s, u"-q"_s, origin.path(), clones.path(u"wc"_s)}, clones.path());
    origin.write(u"b.c"_s);
    origin.commitAll(u"second"_s);
    AppFixture f;
    f.open(clones.path(u"wc"_s), RepositoryKind::git);
    awaited(f.app.actions.updateWorkingCopy());
    EXPECT_TRUE(clones.exists(u"wc/b.c"_s));
    EXPECT_EQ(f.app.commandOutput.value()->title, u"Pull"_s);
    clones.writeAll({{u"wc/[n].c"_s, "new\n"}, {u"wc/n.c"_s}});
    QFile::remove(clones.path(u"wc/a.c"_s));
    awaited(f.app.refreshAll());
    f.app.selectedCommitPaths = QSet<QString>{u"[n].c"_s};
    awaited(f.app.actions.addSelectedPaths());
    EXPECT_TRUE(f.rows().contains(u"*A [n].c"_s)) << qPrintable(f.rows().join(u'|'));
    EXPECT_TRUE(f.rows().contains(u"? n.c"_s));
    f.app.selectedCommitPaths = QSet<QString>{u"a.c"_s};
    awaited(f.app.actions.deleteSelectedPaths());
    EXPECT_TRUE(f.rows().contains(u"*D a.c"_s)) << qPrintable(f.rows().join(u'|'));
    QFile::rename(clones.path(u"wc/b.c"_s), clones.path(u"wc/moved.c"_s));
    runTool(u"git"_s, u"add|-N|moved.c"_list, clones.path(u"wc"_s));
    awaited(f.app.refreshAll());
    f.app.selectedCommitPaths = QSet<QString>{u"a.c"_s, u"moved.c"_s};
    awaited(f.app.actions.addSelectedPaths());
    const QByteArray staged = runTool(u"git"_s, u"diff|--cached|--no-renames|--name-status"_list, clones.path(u"wc"_s));
    EXPECT_TRUE(staged.contains("D\tb.c\nA\tmoved.c")) << staged.constData();
    EXPECT_EQ(f.alertText(), QString());
}

} // namespace
} // namespace kestor

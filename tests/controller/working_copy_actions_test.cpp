#include "support/app_fixture.h"
#include "support/held_tool.h"
#include "support/printers.h"
#include "support/repositories.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::AppFixture;
using testing::awaited;
using testing::GitFixture;
using testing::HeldTool;
using testing::ScriptedUser;
using testing::SvnFixture;
using testing::TempTree;
using testing::waitUntil;

using Actions = WorkingCopyActions;
using Operation = QCoro::Task<> (Actions::*)();
using Answer = QMap<QString, QString>;

template <ResolveChoice choice>
QCoro::Task<> resolve(Actions &actions) {
    return actions.resolveSelectedPaths(choice);
}

template <Operation operation>
QCoro::Task<> call(Actions &actions) {
    return (actions.*operation)();
}

using Call = QCoro::Task<> (*)(Actions &);

const QString noProject = u"No Project Selected: Choose a project first."_s;
const QString noPaths = u"No Paths Selected: Select at least one changed path."_s;
const QString noSVN =
    u"SVN Command Unavailable: This project is a Git repository. Use Git-backed actions from Changes and History."_s;

/// A project with a changed "a.c" and "-i@2x.png" and the conflict "c.c", and tools that only note what they are asked.
class NotedActions {
public:
    NotedActions(std::optional<RepositoryKind> kind, const QStringList &ticked) {
        folder.write(u"-i@2x.png"_s);
        if (kind)
            ProjectStore(settings).save({Project{QUuid::createUuid(), u"p"_s, folder.path(), *kind}});
        app = std::make_unique<AppState>(settings, user, Tools{tool, tool, tool});
        app->changes = QList<WorkingCopyItem>{{.path = u"-i@2x.png"_s, .kind = SVNStatusKind::modified},
                                              {.path = u"a.c"_s, .kind = SVNStatusKind::unversioned},
                                              {.path = u"c.c"_s, .kind = SVNStatusKind::conflicted}};
        app->selectedCommitPaths = QSet<QString>(ticked.begin(), ticked.end());
        app->repositoryInfo = RepositoryInfo{.url = u"file:///r/trunk"_s, .repositoryRoot = u"file:///r"_s};
        user.chosenFile = u"/tmp/fix@home.patch"_s;
    }
    QString alertText() const {
        const std::optional<AppAlert> alert = app->alert;
        return alert ? alert->title + u": "_s + alert->message : QString();
    }

    TempTree folder{};
    QSettings settings{folder.path(u"test.conf"_s), QSettings::IniFormat};
    ScriptedUser user{};
    std::shared_ptr<HeldTool> tool = std::make_shared<HeldTool>();
    std::unique_ptr<AppState> app{};
    QCoro::Task<> task{};
};

struct ActionRow {
    const char *name;
    Call action;
    QStringList ticked; ///< rows acted on
    Answer answer;
    QString asked;
    QStringList vector; ///< empty: nothing runs
    QString title;      ///< of the output, or the whole alert when nothing runs
    RefreshAfter refreshAfter = RefreshAfter::yes;
};

void expectRow(const ActionRow &row, std::optional<RepositoryKind> kind) {
    SCOPED_TRACE(row.name);
    NotedActions f(kind, row.ticked);
    f.user.promptAnswer = row.answer.isEmpty() ? std::nullopt : std::optional(row.answer);
    f.task = row.action(f.app->actions);
    EXPECT_EQ(f.user.asked.join(u'|'), row.asked);
    if (row.vector.isEmpty()) {
        EXPECT_EQ(f.tool->vectors(), QList<QStringList>());
        EXPECT_EQ(f.alertText(), row.title);
        return;
    }
    ASSERT_EQ(f.tool->vectors(), QList<QStringList>{row.vector});
    EXPECT_EQ(f.tool->runs.first().directory, f.folder.path());
    EXPECT_EQ(f.app->busyMessage.value(), row.title);
    f.tool->finish(row.vector, {});
    ASSERT_TRUE(waitUntil([&f] { return f.app->commandOutput.value().has_value(); }))
        << "shown though nothing was printed";
    EXPECT_EQ(f.app->commandOutput.value()->title, row.title);
    EXPECT_EQ(f.tool->vectors().size() > 1, row.refreshAfter == RefreshAfter::yes);
    EXPECT_EQ(f.alertText(), QString());
}

const QStringList ticked{u"-i@2x.png"_s, u"a.c"_s};
const QStringList targets{u"./-i@2x.png@"_s, u"a.c"_s};
const QString offered = u"-i@2x.png"_s;
const QString target = u"./-i@2x.png@"_s;

TEST(WorkingCopyActions, RunTheirVectorsInSubversion) {
    const Answer named{{u"name"_s, u"p"_s}, {u"value"_s, u"a\nb"_s}, {u"path"_s, offered}};
    const Answer copied{{u"source"_s, offered}, {u"target"_s, u"b@1"_s}};
    const ActionRow rows[] = {
        {"add",
         call<&Actions::addSelectedPaths>,
         ticked,
         {},
         {},
         QStringList{u"add"_s, u"--parents"_s, u"--force"_s} + targets,
         u"Add"_s},
        {"add nothing", call<&Actions::addSelectedPaths>, {}, {}, {}, {}, noPaths},
        {"delete",
         call<&Actions::deleteSelectedPaths>,
         ticked,
         {},
         {},
         QStringList{u"delete"_s} + targets,
         u"Delete"_s},
        {"resolve leaves out what is in no conflict",
         resolve<ResolveChoice::working>,
         {u"a.c"_s, u"c.c"_s},
         {},
         {},
         {u"resolve"_s, u"--accept"_s, u"working"_s, u"c.c"_s},
         u"Resolve"_s},
        {"resolve rows of which none is known to be in conflict",
         resolve<ResolveChoice::mineFull>,
         {u"a.c"_s},
         {},
         {},
         {u"resolve"_s, u"--accept"_s, u"mine-full"_s, u"a.c"_s},
         u"Resolve"_s},
        {"resolve by the other side",
         resolve<ResolveChoice::theirsFull>,
         {u"c.c"_s},
         {},
         {},
         {u"resolve"_s, u"--accept"_s, u"theirs-full"_s, u"c.c"_s},
         u"Resolve"_s},
        {"resolve nothing",
         resolve<ResolveChoice::working>,
         {},
         {},
         {},
         {},
         u"No Paths Selected: Select a conflicted path first."_s},
        {"lock", call<&Actions::lockSelectedPaths>, ticked, {}, {}, QStringList{u"lock"_s} + targets, u"Lock"_s},
        {"unlock",
         call<&Actions::unlockSelectedPaths>,
         ticked,
         {},
         {},
         QStringList{u"unlock"_s} + targets,
         u"Unlock"_s},
        {"changelist",
         call<&Actions::createChangelist>,
         ticked,
         {{u"name"_s, u"c 1"_s}},
         u"prompt Changelist: Name="_s,
         QStringList{u"changelist"_s, u"c 1"_s} + targets,
         u"Changelist"_s},
        {"changelist of nothing asks nothing",
         call<&Actions::createChangelist>,
         {},
         {{u"name"_s, u"c"_s}},
         {},
         {},
         noPaths},
        {"cancelled", call<&Actions::createChangelist>, ticked, {}, u"prompt Changelist: Name="_s, {}, {}},
        {"without its name",
         call<&Actions::createChangelist>,
         ticked,
         {{u"name"_s, QString()}},
         u"prompt Changelist: Name="_s,
         {},
         {}},
        {"remove from changelist",
         call<&Actions::removeFromChangelist>,
         ticked,
         {},
         {},
         QStringList{u"changelist"_s, u"--remove"_s} + targets,
         u"Remove Changelist"_s},
        {"patch",
         call<&Actions::applyPatch>,
         {},
         {},
         u"file Choose Patch File"_s,
         {u"patch"_s, u"/tmp/fix@home.patch@"_s},
         u"Patch"_s},
        {"make directory",
         call<&Actions::makeDirectoryInWorkingCopy>,
         {},
         {{u"path"_s, u"d"_s}},
         u"prompt Make Directory: Path="_s,
         {u"mkdir"_s, u"d"_s},
         u"Make Directory"_s},
        {"copy, a new name as typed",
         call<&Actions::copyItem>,
         ticked,
         copied,
         u"prompt Copy: Source=-i@2x.png, Target=, Message="_s,
         {u"copy"_s, target, u"b@1"_s},
         u"Copy"_s},
        {"move with a message",
         call<&Actions::moveItem>,
         {},
         {{u"source"_s, u"^/a"_s}, {u"target"_s, u"^/b"_s}, {u"message"_s, u"why"_s}},
         u"prompt Move: Source=, Target=, Message="_s,
         {u"move"_s, u"^/a"_s, u"^/b"_s, u"-m"_s, u"why"_s},
         u"Move"_s},
        {"properties of the root",
         call<&Actions::listProperties>,
         {},
         {{u"path"_s, u"."_s}},
         u"prompt Properties: Path=."_s,
         {u"proplist"_s, u"-v"_s, u"."_s},
         u"Properties"_s,
         RefreshAfter::no},
        {"get property",
         call<&Actions::getProperty>,
         ticked,
         named,
         u"prompt Get Property: Name=, Path=-i@2x.png"_s,
         {u"propget"_s, u"p"_s, target},
         u"Get Property"_s,
         RefreshAfter::no},
        {"set property",
         call<&Actions::setProperty>,
         ticked,
         named,
         u"prompt Set Property: Name=, Value=, Path=-i@2x.png"_s,
         {u"propset"_s, u"p"_s, u"a\nb"_s, target},
         u"Set Property"_s},
        {"set property to nothing",
         call<&Actions::setProperty>,
         {},
         {{u"name"_s, u"p"_s}, {u"path"_s, u"."_s}},
         u"prompt Set Property: Name=, Value=, Path=."_s,
         {u"propset"_s, u"p"_s, {}, u"."_s},
         u"Set Property"_s},
        {"delete property",
         call<&Actions::deleteProperty>,
         ticked,
         named,
         u"prompt Delete Property: Name=, Path=-i@2x.png"_s,
         {u"propdel"_s, u"p"_s, target},
         u"Delete Property"_s},
        {"merge",
         call<&Actions::merge>,
         {},
         {{u"source"_s, u"^/b@7"_s}, {u"range"_s, QString()}},
         u"prompt Merge: Source URL Or Path=, Revision="_s,
         {u"merge"_s, u"^/b@7"_s},
         u"Merge"_s},
        {"merge a range",
         call<&Actions::merge>,
         {},
         {{u"source"_s, u"^/b"_s}, {u"range"_s, u"4:6"_s}},
         u"prompt Merge: Source URL Or Path=, Revision="_s,
         {u"merge"_s, u"-r"_s, u"4:6"_s, u"^/b"_s},
         u"Merge"_s},
        {"update", call<&Actions::updateWorkingCopy>, {}, {}, {}, {u"update"_s}, u"Update"_s},
        {"switch",
         call<&Actions::switchWorkingCopyURL>,
         {},
         {{u"url"_s, u"^/b"_s}},
         u"prompt Switch: URL=file:///r/trunk"_s,
         {u"switch"_s, u"^/b"_s},
         u"Switch"_s},
        {"relocate",
         call<&Actions::relocateWorkingCopyURL>,
         {},
         {{u"from"_s, u"file:///r"_s}, {u"to"_s, u"svn://r"_s}},
         u"prompt Relocate: From URL=file:///r, To URL="_s,
         {u"relocate"_s, u"file:///r"_s, u"svn://r"_s},
         u"Relocate"_s},
        {"blame",
         call<&Actions::showBlame>,
         ticked,
         {{u"path"_s, offered}},
         u"prompt Blame: Path=-i@2x.png"_s,
         {u"blame"_s, target},
         u"Blame"_s,
         RefreshAfter::no},
        {"cleanup", call<&Actions::cleanUp>, {}, {}, {}, {u"cleanup"_s}, u"Cleanup"_s},
        {"upgrade", call<&Actions::upgrade>, {}, {}, {}, {u"upgrade"_s}, u"Upgrade"_s},
    };
    for (const ActionRow &row : rows)
        expectRow(row, RepositoryKind::svn);
    expectRow({"without a project", call<&Actions::addSelectedPaths>, ticked, {}, {}, {}, noProject}, std::nullopt);
}

TEST(WorkingCopyActions, RunTheirVectorsInGitOrAreRefusedBeforeAnythingIsAsked) {
    const QStringList names{u"-i@2x.png"_s, u"a.c"_s};
    const ActionRow rows[] = {
        {"add", call<&Actions::addSelectedPaths>, ticked, {}, {}, QStringList{u"add"_s, u"--"_s} + names, u"Add"_s},
        {"delete",
         call<&Actions::deleteSelectedPaths>,
         ticked,
         {},
         {},
         QStringList{u"rm"_s, u"--"_s} + names,
         u"Delete"_s},
        {"delete nothing", call<&Actions::deleteSelectedPaths>, {}, {}, {}, {}, noPaths},
        {"pull", call<&Actions::updateWorkingCopy>, {}, {}, {}, {u"pull"_s, u"--ff-only"_s}, u"Pull"_s},
        {"blame",
         call<&Actions::showBlame>,
         ticked,
         {{u"path"_s, offered}},
         u"prompt Blame: Path=-i@2x.png"_s,
         {u"blame"_s, u"--"_s, offered},
         u"Blame"_s,
         RefreshAfter::no},
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
        expectRow({"only Subversion", action, ticked, {}, {}, {}, noSVN}, RepositoryKind::git);
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
    EXPECT_EQ(pathsToResolve({clean, text, tree, property}), (QStringList{u"b"_s, u"c"_s, u"d"_s}));
}

/// A real working copy with "a.c", the folder "d" and a branch "^/branches/b", all committed.
class RealActions : public ::testing::Test {
protected:
    void SetUp() override {
        repository.write(u"a.c"_s, "1\n2\n3\n");
        repository.write(u"d/b.c"_s);
        repository.commitAll(u"first"_s);
        repository.svn({u"copy"_s, u"-m"_s, u"branch"_s, u"^/trunk"_s, u"^/branches/b"_s});
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
    EXPECT_EQ(after(actions.addSelectedPaths()), (QStringList{u"*A new"_s, u"*A new/x@1.c"_s}));
    answer({{u"name"_s, u"fix it"_s}});
    after(actions.createChangelist());
    EXPECT_TRUE(repository.svn({u"status"_s}).contains("--- Changelist 'fix it':\nA       new/x@1.c"));
    after(actions.removeFromChangelist());
    EXPECT_FALSE(repository.svn({u"status"_s}).contains("Changelist"));
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
    answer({{u"name"_s, u"many"_s}});
    after(actions.createChangelist());
    EXPECT_EQ(repository.svn({u"status"_s, u"--changelist"_s, u"many"_s}).count("A       x"), 600);
}

TEST_F(RealActions, MakeCopyAndMove) {
    answer({{u"path"_s, u"e"_s}});
    EXPECT_EQ(after(actions.makeDirectoryInWorkingCopy()), QStringList{u"*A e"_s});
    answer({{u"source"_s, u"d"_s}, {u"target"_s, u"e/d2"_s}, {u"message"_s, QString()}});
    EXPECT_TRUE(after(actions.moveItem()).contains(u"*A e/d2"_s));
    EXPECT_TRUE(repository.tree.exists(u"wc/e/d2/b.c"_s));
    EXPECT_FALSE(repository.tree.exists(u"wc/d/b.c"_s));
    answer({{u"source"_s, u"a.c"_s}, {u"target"_s, u"e"_s}});
    EXPECT_TRUE(after(actions.copyItem()).contains(u"*A e/a.c"_s));
    answer({{u"path"_s, u"e/z@2x"_s}});
    EXPECT_EQ(after(actions.makeDirectoryInWorkingCopy()),
              QStringList{u"Make Directory Failed: svn: E200009: 'e/z@2x': a peg revision is not allowed here\n"_s});
}

TEST_F(RealActions, SetReadAndDeleteProperties) {
    answer({{u"name"_s, u"svn:ignore"_s}, {u"value"_s, u"*.o\n*.tmp"_s}, {u"path"_s, u"d"_s}});
    EXPECT_EQ(after(actions.setProperty()).size(), 1);
    EXPECT_EQ(repository.svn({u"propget"_s, u"svn:ignore"_s, u"d"_s}), "*.o\n*.tmp\n\n");
    after(actions.getProperty());
    EXPECT_EQ(output(), u"*.o\n*.tmp\n\n"_s);
    after(actions.listProperties());
    EXPECT_TRUE(output().contains(u"svn:ignore"_s)) << qPrintable(output());
    EXPECT_EQ(after(actions.deleteProperty()), QStringList());
}

TEST_F(RealActions, ApplyAPatchAndKeepWhatItRejects) {
    struct Row {
        const char *name;
        QByteArray context;
        QStringList rows;
    };
    const Row rows[] = {{"applies", " 1\n-2\n+two\n 3\n", {u"*M a.c"_s}},
                        {"rejects", " 8\n-9\n+nine\n 8\n", {u"*M a.c"_s}}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        repository.tree.write(u"fix@home.patch"_s, "--- a.c\n+++ a.c\n@@ -1,3 +1,3 @@\n" + row.context);
        f.user.chosenFile = repository.tree.path(u"fix@home.patch"_s);
        EXPECT_EQ(after(actions.applyPatch()), row.rows);
    }
    EXPECT_TRUE(repository.tree.exists(u"wc/a.c.svnpatch.rej"_s));
    EXPECT_TRUE(output().contains(u"rejected hunk"_s)) << qPrintable(output());
}

TEST_F(RealActions, SwitchMergeAndRelocate) {
    answer({{u"url"_s, u"^/branches/b"_s}});
    after(actions.switchWorkingCopyURL());
    EXPECT_EQ(f.app.repositoryInfo.value().relativeURL, u"^/branches/b"_s);
    repository.write(u"a.c"_s, "1\n2\n3\n4\n");
    repository.svn({u"commit"_s, u"-m"_s, u"on the branch"_s});
    answer({{u"url"_s, u"^/trunk"_s}});
    EXPECT_EQ(after(actions.switchWorkingCopyURL()), QStringList());
    answer({{u"source"_s, u"^/branches/b"_s}, {u"range"_s, u"3:4"_s}});
    EXPECT_TRUE(after(actions.merge()).contains(u"*M a.c"_s));
    repository.svn({u"revert"_s, u"-R"_s, u"."_s});
    answer({{u"source"_s, u"^/branches/b"_s}, {u"range"_s, QString()}});
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
    EXPECT_EQ(after(actions.lockSelectedPaths()), QStringList{u"*M a.c"_s});
    EXPECT_TRUE(repository.svn({u"info"_s, u"a.c"_s}).contains("Lock Token"));
    after(actions.unlockSelectedPaths());
    EXPECT_FALSE(repository.svn({u"info"_s, u"a.c"_s}).contains("Lock Token"));
    after(actions.cleanUp());
    after(actions.showBlame());
    EXPECT_EQ(f.alertText(), QString());
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
        repository.svn({u"commit"_s, u"-m"_s, u"theirs"_s});
        repository.svn({u"update"_s, u"-r"_s, u"PREV"_s, u"a.c"_s});
        repository.write(u"a.c"_s, "mine\n");
        after(actions.updateWorkingCopy());
        EXPECT_TRUE(f.rows().contains(u"C a.c"_s)) << "an update never asks, and a conflict is not ticked";
        repository.write(u"a.c"_s, "merged\n");
        tick({u"a.c"_s, u"a.c.mine"_s});
        EXPECT_FALSE(after(actions.resolveSelectedPaths(row.choice)).contains(u"C a.c"_s));
        EXPECT_EQ(repository.tree.read(u"wc/a.c"_s), row.content);
        repository.write(u"a.c"_s, "1\n2\n3\n");
        repository.svn({u"commit"_s, u"-m"_s, u"back"_s});
    }
}

TEST_F(RealActions, ATreeConflictIsResolvedAsItIsAlone) {
    repository.svn({u"delete"_s, u"a.c"_s});
    repository.svn({u"commit"_s, u"-m"_s, u"gone"_s});
    repository.svn({u"update"_s, u"-r"_s, u"2"_s});
    repository.write(u"a.c"_s, "mine\n");
    after(actions.updateWorkingCopy());
    tick({});
    f.app.selectedChangeID = u"a.c"_s;
    const QString refused = after(actions.resolveSelectedPaths(ResolveChoice::mineFull)).join(u'|');
    EXPECT_TRUE(refused.startsWith(u"Resolve Failed: svn: warning: W195024"_s)) << qPrintable(refused);
    EXPECT_FALSE(after(actions.resolveSelectedPaths(ResolveChoice::working)).join(u'|').contains(u"Failed"_s));
    EXPECT_FALSE(f.app.changes.value().first().treeConflict);
}

TEST(WorkingCopyActions, PullAddAndDeleteInGit) {
    GitFixture origin;
    origin.write(u"a.c"_s);
    origin.commitAll(u"first"_s);
    TempTree clones;
    testing::runTool(u"git"_s, {u"clone"_s, u"-q"_s, origin.path(), clones.path(u"wc"_s)}, clones.path());
    origin.write(u"b.c"_s);
    origin.commitAll(u"second"_s);
    AppFixture f;
    f.open(clones.path(u"wc"_s), RepositoryKind::git);
    awaited(f.app.actions.updateWorkingCopy());
    EXPECT_TRUE(clones.exists(u"wc/b.c"_s));
    EXPECT_EQ(f.app.commandOutput.value()->title, u"Pull"_s);
    clones.write(u"wc/[n].c"_s, "new\n");
    clones.write(u"wc/n.c"_s);
    QFile::remove(clones.path(u"wc/a.c"_s));
    awaited(f.app.refreshAll());
    f.app.selectedCommitPaths = QSet<QString>{u"[n].c"_s};
    awaited(f.app.actions.addSelectedPaths());
    EXPECT_TRUE(f.rows().contains(u"*A [n].c"_s)) << qPrintable(f.rows().join(u'|'));
    EXPECT_TRUE(f.rows().contains(u"? n.c"_s));
    f.app.selectedCommitPaths = QSet<QString>{u"a.c"_s};
    awaited(f.app.actions.deleteSelectedPaths());
    EXPECT_TRUE(f.rows().contains(u"*D a.c"_s)) << qPrintable(f.rows().join(u'|'));
    EXPECT_EQ(f.alertText(), QString());
}

} // namespace
} // namespace kestor

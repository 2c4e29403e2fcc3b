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
class NotedActions {
public:
    NotedActions(std::optional<RepositoryKind> kind, const QStringList &ticked) {
        folder.write(u"-i@2x.png"_s);
        folder.write(u" lead.txt"_s);
        if (kind)
            ProjectStore(settings).save({Project{QUuid::createUuid(), u"p"_s, folder.path(), *kind}});
        app = std::make_unique<AppState>(settings, user, Tools{tool, tool, tool});
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

    TempTree folder{};
    QSettings settings{folder.path(u"test.conf"_s), QSettings::IniFormat};
    ScriptedUser user{};
    std::shared_ptr<HeldTool> tool = std::make_shared<HeldTool>();
    std::unique_ptr<AppState> app{};
    QCoro::Task<> task{};
};

/// The parts between "|"; none of "".
QStringList parts(QStringView text) {
    return text.isEmpty() ? QStringList() : text.toString().split(u'|');
}

Answer answerOf(QStringView text) {
    Answer answer;
    for (const QString &part : parts(text))
        answer.insert(part.section(u'=', 0, 0), part.section(u'=', 1));
    return answer;
}

struct ActionRow {
    // Called with parentheses, so that a row stands in a line or two.
    ActionRow(const char *rowName, Call call, QStringView tickedRows, QStringView given, QString question,
              QStringView expected, QString outputTitle, RefreshAfter refresh = RefreshAfter::yes)
        : name(rowName), action(call), ticked(tickedRows), answer(given), asked(std::move(question)), vector(expected),
          title(std::move(outputTitle)), refreshAfter(refresh) {}

    const char *name;
    Call action;
    QStringView ticked; ///< rows acted on, with "|" between them as in the other lists
    QStringView answer; ///< "KEY=TEXT|..."; "" cancels
    QString asked;
    QStringView vector; ///< "" when nothing runs
    QString title;      ///< of the output, or the whole alert when nothing runs
    RefreshAfter refreshAfter;
};

void expectRun(NotedActions &f, const ActionRow &row, const QStringList &vector) {
    ASSERT_EQ(f.tool->vectors(), QList<QStringList>{vector});
    EXPECT_EQ(f.tool->runs.first().directory, f.folder.path());
    EXPECT_EQ(f.app->busyMessage.value(), row.title);
    EXPECT_EQ(f.app->busyKind.value() == BusyKind::interruptible, row.refreshAfter == RefreshAfter::no);
    f.tool->finish(vector, {});
    ASSERT_TRUE(waitUntil([&f] { return f.app->commandOutput.value().has_value(); }))
        << "shown though nothing was printed";
    EXPECT_EQ(f.app->commandOutput.value()->title, row.title);
    EXPECT_EQ(f.tool->vectors().size() > 1, row.refreshAfter == RefreshAfter::yes);
    EXPECT_EQ(f.alertText(), QString());
}

void expectRow(const ActionRow &row, std::optional<RepositoryKind> kind) {
    SCOPED_TRACE(row.name);
    NotedActions f(kind, parts(row.ticked));
    f.user.promptAnswer = row.answer.isEmpty() ? std::nullopt : std::optional(answerOf(row.answer));
    f.task = row.action(&f.app->actions);
    waitUntil([&f] { return !f.app->busyMessage.value() || !f.tool->runs.isEmpty(); });
    EXPECT_EQ(f.user.asked.join(u'|'), row.asked);
    const QStringList vector = parts(row.vector);
    if (vector.isEmpty()) {
        EXPECT_EQ(f.tool->vectors(), QList<QStringList>());
        EXPECT_EQ(f.alertText(), row.title);
        return;
    }
    expectRun(f, row, vector);
}

constexpr QStringView two = u"-i@2x.png|a.c";

TEST(WorkingCopyActions, RunTheirVectorsInSubversion) {
    const QString noConflict = u"No Paths Selected: Select a conflicted path first."_s;
    const QString oneName = u"prompt Changelist: Name="_s;
    const QString properties = u"prompt Set Property: Name=, Value=, Path="_s;
    const QString merge = u"prompt Merge: Source URL Or Path=, Revision="_s;
    const ActionRow rows[] = {
        ActionRow("add", call<&Actions::addSelectedPaths>, two, u"", {}, u"add|--parents|--force|./-i@2x.png@|a.c",
                  u"Add"_s),
        ActionRow("add leaves out what is gone", call<&Actions::addSelectedPaths>, u"a.c|gone.c|lost.c", u"", {},
                  u"add|--parents|--force|a.c", u"Add"_s),
        ActionRow("add only what is gone", call<&Actions::addSelectedPaths>, u"gone.c|lost.c", u"", {},
                  u"add|--parents|--force|gone.c|lost.c", u"Add"_s),
        ActionRow("add nothing", call<&Actions::addSelectedPaths>, u"", u"", {}, u"", noPaths),
        ActionRow("delete", call<&Actions::deleteSelectedPaths>, u"a.c|c.c|gone.c", u"", {}, u"delete|a.c|c.c|gone.c",
                  u"Delete"_s),
        ActionRow("resolve leaves out what is in no conflict", resolve<ResolveChoice::working>, u"a.c|c.c", u"", {},
                  u"resolve|--accept|working|c.c", u"Resolve"_s),
        ActionRow("resolve the selected row when no ticked one is in conflict", resolve<ResolveChoice::mineFull>, two,
                  u"", {}, u"resolve|--accept|mine-full|c.c", u"Resolve"_s),
        ActionRow("resolve by the other side", resolve<ResolveChoice::theirsFull>, u"c.c", u"", {},
                  u"resolve|--accept|theirs-full|c.c", u"Resolve"_s),
        ActionRow("resolve nothing", resolve<ResolveChoice::working>, u"", u"", {}, u"", noConflict),
        ActionRow("lock", call<&Actions::lockSelectedPaths>, two, u"", {}, u"lock|./-i@2x.png@|a.c", u"Lock"_s),
        ActionRow("unlock", call<&Actions::unlockSelectedPaths>, two, u"", {}, u"unlock|./-i@2x.png@|a.c", u"Unlock"_s),
        ActionRow("changelist", call<&Actions::createChangelist>, two, u"name=c 1", oneName,
                  u"changelist|c 1|./-i@2x.png@|a.c", u"Changelist"_s),
        ActionRow("changelist of nothing asks nothing", call<&Actions::createChangelist>, u"", u"name=c", {}, u"",
                  noPaths),
        ActionRow("cancelled", call<&Actions::createChangelist>, two, u"", oneName, u"", {}),
        ActionRow("without its name", call<&Actions::createChangelist>, two, u"name=", oneName, u"", {}),
        ActionRow("remove from changelist", call<&Actions::removeFromChangelist>, two, u"", {},
                  u"changelist|--remove|./-i@2x.png@|a.c", u"Remove Changelist"_s),
        ActionRow("patch", call<&Actions::applyPatch>, u"", u"", u"file Choose Patch File"_s,
                  u"patch|/tmp/fix@home.patch@", u"Patch"_s),
        ActionRow("make directory", call<&Actions::makeDirectoryInWorkingCopy>, u"", u"path=d",
                  u"prompt Make Directory: Path="_s, u"mkdir|d", u"Make Directory"_s),
        ActionRow("copy, a new name as typed", call<&Actions::copyItem>, two, u"source=-i@2x.png|target=b@1",
                  u"prompt Copy: Source=-i@2x.png, Target=, Message="_s, u"copy|./-i@2x.png@|b@1", u"Copy"_s),
        ActionRow("move with a message", call<&Actions::moveItem>, u"", u"source=^/a|target=^/b|message=why",
                  u"prompt Move: Source=, Target=, Message="_s, u"move|^/a|^/b|-m|why", u"Move"_s),
        ActionRow("properties of the root", call<&Actions::listProperties>, u"", u"path=.",
                  u"prompt Properties: Path=."_s, u"proplist|-v|.", u"Properties"_s, RefreshAfter::no),
        ActionRow("get property", call<&Actions::getProperty>, two, u"name=p|path=-i@2x.png",
                  u"prompt Get Property: Name=, Path=-i@2x.png"_s, u"propget|p|./-i@2x.png@", u"Get Property"_s,
                  RefreshAfter::no),
        ActionRow("an offered name keeps its blank", call<&Actions::getProperty>, u" lead.txt", u"name=p|path=lead.txt",
                  u"prompt Get Property: Name=, Path= lead.txt"_s, u"propget|p| lead.txt", u"Get Property"_s,
                  RefreshAfter::no),
        ActionRow("set property", call<&Actions::setProperty>, two, u"name=p|value=a\nb|path=-i@2x.png",
                  properties + u"-i@2x.png"_s, u"propset|p|a\nb|./-i@2x.png@", u"Set Property"_s),
        ActionRow("set property to what looks like an option", call<&Actions::setProperty>, u"",
                  u"name=p|value=-5|path=.", properties + u'.', u"propset|p|--|-5|.", u"Set Property"_s),
        ActionRow("set property to nothing", call<&Actions::setProperty>, u"", u"name=p|path=.", properties + u'.',
                  u"propset|p||.", u"Set Property"_s),
        ActionRow("delete property", call<&Actions::deleteProperty>, two, u"name=p|path=-i@2x.png",
                  u"prompt Delete Property: Name=, Path=-i@2x.png"_s, u"propdel|p|./-i@2x.png@", u"Delete Property"_s),
        ActionRow("merge", call<&Actions::merge>, u"", u"source=^/b@7|range=", merge, u"merge|^/b@7", u"Merge"_s),
        ActionRow("merge a range", call<&Actions::merge>, u"", u"source=^/b|range=4:6", merge, u"merge|-r|4:6|^/b",
                  u"Merge"_s),
        ActionRow("update", call<&Actions::updateWorkingCopy>, u"", u"", {}, u"update", u"Update"_s),
        ActionRow("switch", call<&Actions::switchWorkingCopyURL>, u"", u"url=^/b",
                  u"prompt Switch: URL=file:///r/t@2@"_s, u"switch|^/b", u"Switch"_s),
        ActionRow("relocate", call<&Actions::relocateWorkingCopyURL>, u"", u"from=file:///r|to=svn://r",
                  u"prompt Relocate: From URL=file:///r@1, To URL="_s, u"relocate|file:///r|svn://r", u"Relocate"_s),
        ActionRow("blame", call<&Actions::showBlame>, two, u"path=-i@2x.png", u"prompt Blame: Path=-i@2x.png"_s,
                  u"blame|./-i@2x.png@", u"Blame"_s, RefreshAfter::no),
        ActionRow("cleanup", call<&Actions::cleanUp>, u"", u"", {}, u"cleanup", u"Cleanup"_s),
        ActionRow("upgrade", call<&Actions::upgrade>, u"", u"", {}, u"upgrade", u"Upgrade"_s),
    };
    for (const ActionRow &row : rows)
        expectRow(row, RepositoryKind::svn);
    expectRow({"without a project", call<&Actions::addSelectedPaths>, two, u"", {}, u"", noProject}, std::nullopt);
}

TEST(WorkingCopyActions, RunTheirVectorsInGitOrAreRefusedBeforeAnythingIsAsked) {
    const QString lost =
        u"confirm Delete: Delete 2 path(s)? 1 path(s) in conflict will lose what was resolved in them so far."_s;
    const ActionRow rows[] = {
        ActionRow("add", call<&Actions::addSelectedPaths>, two, u"", {}, u"add|--|-i@2x.png|a.c", u"Add"_s),
        ActionRow("add leaves staged deletions out", call<&Actions::addSelectedPaths>, u"a.c|gone.c|lost.c", u"", {},
                  u"add|--|a.c|lost.c", u"Add"_s),
        ActionRow("add only a staged deletion", call<&Actions::addSelectedPaths>, u"gone.c", u"", {}, u"add|--|gone.c",
                  u"Add"_s),
        ActionRow("delete", call<&Actions::deleteSelectedPaths>, two, u"", {}, u"rm|--|-i@2x.png|a.c", u"Delete"_s),
        ActionRow("delete leaves staged deletions out", call<&Actions::deleteSelectedPaths>, u"gone.c|lost.c", u"", {},
                  u"rm|--|lost.c", u"Delete"_s),
        ActionRow("delete asks about conflicts", call<&Actions::deleteSelectedPaths>, u"c.c|lost.c", u"", lost,
                  u"rm|--|c.c|lost.c", u"Delete"_s),
        ActionRow("delete nothing", call<&Actions::deleteSelectedPaths>, u"", u"", {}, u"", noPaths),
        ActionRow("pull", call<&Actions::updateWorkingCopy>, u"", u"", {}, u"pull|--ff-only", u"Pull"_s),
        ActionRow("blame", call<&Actions::showBlame>, two, u"path=-i@2x.png", u"prompt Blame: Path=-i@2x.png"_s,
                  u"blame|--|-i@2x.png", u"Blame"_s, RefreshAfter::no),
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
        expectRow({"only Subversion", action, two, u"", {}, u"", noSVN}, RepositoryKind::git);
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
    EXPECT_EQ(after(actions.cleanUp()), QStringList{u"*M a.c"_s});
    answer({{u"path"_s, u"a.c"_s}});
    EXPECT_EQ(after(actions.showBlame()), QStringList{u"*M a.c"_s});
    EXPECT_TRUE(output().contains(u" 1\n"_s)) << qPrintable(output());
}

TEST_F(RealActions, DeletingAFolderAsksAboutIgnoredFilesInIt) {
    repository.svn({u"copy"_s, u"-q"_s, u"d"_s, u"e"_s});
    repository.write(u"e/built.o"_s);
    reload();
    tick({u"e"_s});
    f.user.confirms = false;
    EXPECT_EQ(after(actions.deleteSelectedPaths()), QStringList{u"*A e"_s});
    EXPECT_EQ(f.user.asked, QStringList{u"confirm Delete: Delete 1 path(s)? 1 ignored path(s) in these folders will be "
                                        "deleted from disk, too."_s});
    f.user.confirms = true;
    EXPECT_EQ(after(actions.deleteSelectedPaths()), QStringList());
    repository.svn({u"copy"_s, u"-q"_s, u"d"_s, u"e"_s});
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
    QFile::rename(clones.path(u"wc/b.c"_s), clones.path(u"wc/moved.c"_s));
    testing::runTool(u"git"_s, {u"add"_s, u"-N"_s, u"moved.c"_s}, clones.path(u"wc"_s));
    awaited(f.app.refreshAll());
    f.app.selectedCommitPaths = QSet<QString>{u"a.c"_s, u"moved.c"_s};
    awaited(f.app.actions.addSelectedPaths());
    const QByteArray staged = testing::runTool(
        u"git"_s, {u"diff"_s, u"--cached"_s, u"--no-renames"_s, u"--name-status"_s}, clones.path(u"wc"_s));
    EXPECT_TRUE(staged.contains("D\tb.c\nA\tmoved.c")) << staged.constData();
    EXPECT_EQ(f.alertText(), QString());
}

} // namespace
} // namespace kestor

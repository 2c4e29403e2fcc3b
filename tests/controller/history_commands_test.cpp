#include "history_fixture.h"
#include "support/held_tool.h"
#include "support/printers.h"
#include "support/without_privileges.h"

#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace kestor {
namespace {

using testing::awaited;
using testing::GitFixture;
using testing::HeldTool;
using testing::HistoryFixture;
using testing::ScriptedUser;
using testing::SvnFixture;
using testing::TempTree;
using testing::WithoutPrivileges;

using Operation = QCoro::Task<> (AppState::*)();
using Answer = QMap<QString, QString>;

const QString hash = u"0123456789abcdef0123456789abcdef01234567"_s;

/// A project whose history has "d/icon@2x.png", selected, in revision 7, and tools that only note what they are asked.
class AskedCommands {
public:
    explicit AskedCommands(RepositoryKind kind) {
        const Project project{QUuid::createUuid(), u"p"_s, folder.path(), kind};
        ProjectStore(settings).save({project});
        app = std::make_unique<AppState>(settings, user, Tools{tool, tool, tool});
        const LogEntry entry{.revision = 7,
                             .commitHash = kind == RepositoryKind::git ? std::optional(hash) : std::nullopt,
                             .paths = {{u"M"_s, u"d/icon@2x.png"_s, u"file"_s}}};
        const auto source = std::make_shared<FileHistorySource>();
        source->entries = {entry};
        source->files = {{u"d/icon@2x.png"_s, 0, 1}};
        source->changes = {{0, 0}};
        app->logEntries = source->entries;
        app->fileHistoryItems = FileHistory(source);
        app->repositoryInfo = RepositoryInfo{.url = u"file:///r/trunk"_s};
        app->selectedHistoryPath = u"d/icon@2x.png"_s;
        app->selectedRevision = 7;
        app->selectedTab = WorkflowTab::history;
    }
    QList<QStringList> vectorsOf(Operation operation) {
        task = ((*app).*operation)();
        return tool->vectors();
    }

    TempTree folder{};
    QSettings settings{folder.path(u"test.conf"_s), QSettings::IniFormat};
    ScriptedUser user{};
    std::shared_ptr<HeldTool> tool = std::make_shared<HeldTool>();
    std::unique_ptr<AppState> app{};
    QCoro::Task<> task{};
};

TEST(HistoryCommands, AskAndRunTheirVectors) {
    struct Row {
        const char *name;
        RepositoryKind kind;
        Operation operation;
        Answer answer;
        QString asked;
        QStringList vector; ///< empty: nothing runs
    };
    const QString svnDefaults = u"Path=d/icon@2x.png, Revision=7"_s;
    const Row rows[] = {
        {"svn rollback",
         RepositoryKind::svn,
         &AppState::rollbackSelectedRevision,
         {},
         u"confirm Rollback Revision: Reverse-merge r7 into the working copy? Review the resulting changes before "
         "committing."_s,
         {u"merge"_s, u"-c"_s, u"-7"_s, u"."_s}},
        {"git rollback",
         RepositoryKind::git,
         &AppState::rollbackSelectedRevision,
         {},
         u"confirm Rollback Commit: Revert 0123456 into the working copy? Review the resulting changes before "
         "committing."_s,
         {u"revert"_s, u"--no-commit"_s, hash}},
        {"svn diff",
         RepositoryKind::svn,
         &AppState::showDiffAgainstRevision,
         {{u"revision"_s, u"7"_s}, {u"path"_s, u"d/icon@2x.png"_s}},
         u"prompt Diff: Revision Or Range=7, Path=d/icon@2x.png"_s,
         {u"diff"_s, u"-r"_s, u"7"_s, u"d/icon@2x.png@"_s}},
        {"svn diff against the base, which takes a name as it is",
         RepositoryKind::svn,
         &AppState::showDiffAgainstRevision,
         {{u"revision"_s, u"BASE"_s}, {u"path"_s, u"d/icon@2x.png"_s}},
         u"prompt Diff: Revision Or Range=7, Path=d/icon@2x.png"_s,
         {u"diff"_s, u"-r"_s, u"BASE"_s, u"d/icon@2x.png"_s}},
        {"svn diff of everything",
         RepositoryKind::svn,
         &AppState::showDiffAgainstRevision,
         {{u"revision"_s, u"5:7"_s}, {u"path"_s, QString()}},
         u"prompt Diff: Revision Or Range=7, Path=d/icon@2x.png"_s,
         {u"diff"_s, u"-r"_s, u"5:7"_s}},
        {"git diff",
         RepositoryKind::git,
         &AppState::showDiffAgainstRevision,
         {{u"revision"_s, hash}, {u"path"_s, u"d/icon@2x.png"_s}},
         u"prompt Diff: Revision Or Range="_s + hash + u", Path=d/icon@2x.png"_s,
         {u"show"_s, u"--format="_s, u"--patch"_s, u"--find-renames"_s, hash, u"--"_s, u"d/icon@2x.png"_s}},
        {"git diff of everything",
         RepositoryKind::git,
         &AppState::showDiffAgainstRevision,
         {{u"revision"_s, u"v1"_s}},
         u"prompt Diff: Revision Or Range="_s + hash + u", Path=d/icon@2x.png"_s,
         {u"show"_s, u"--format="_s, u"--patch"_s, u"--find-renames"_s, u"v1"_s}},
        {"svn pull",
         RepositoryKind::svn,
         &AppState::pullFileAtRevision,
         {{u"path"_s, u"d/icon@2x.png"_s}, {u"revision"_s, u"6"_s}},
         u"prompt Pull File: "_s + svnDefaults,
         {u"update"_s, u"-r"_s, u"6"_s, u"d/icon@2x.png@"_s}},
        {"svn pull of a path with a peg as typed",
         RepositoryKind::svn,
         &AppState::pullFileAtRevision,
         {{u"path"_s, u"gone.c@5"_s}, {u"revision"_s, u"5"_s}},
         u"prompt Pull File: "_s + svnDefaults,
         {u"update"_s, u"-r"_s, u"5"_s, u"gone.c@5"_s}},
        {"git pull",
         RepositoryKind::git,
         &AppState::pullFileAtRevision,
         {{u"path"_s, u"a.c"_s}, {u"revision"_s, u"v1"_s}},
         u"prompt Pull File: Path=d/icon@2x.png, Revision="_s + hash,
         {u"checkout"_s, u"v1"_s, u"--"_s, u"a.c"_s}},
        {"pull without a revision",
         RepositoryKind::svn,
         &AppState::pullFileAtRevision,
         {{u"path"_s, u"a.c"_s}},
         u"prompt Pull File: "_s + svnDefaults,
         {}},
        {"svn cat",
         RepositoryKind::svn,
         &AppState::catTarget,
         {{u"target"_s, u"d/icon@2x.png"_s}, {u"revision"_s, u"7"_s}},
         u"prompt Cat: URL Or Path=d/icon@2x.png, Revision=7"_s,
         {u"cat"_s, u"-r"_s, u"7"_s, u"d/icon@2x.png@"_s}},
        {"svn cat of the newest",
         RepositoryKind::svn,
         &AppState::catTarget,
         {{u"target"_s, u"file:///r/a.c@3"_s}},
         u"prompt Cat: URL Or Path=d/icon@2x.png, Revision=7"_s,
         {u"cat"_s, u"file:///r/a.c@3"_s}},
        {"git cat",
         RepositoryKind::git,
         &AppState::catTarget,
         {{u"target"_s, u"a.c"_s}, {u"revision"_s, u"v1"_s}},
         u"prompt Cat: URL Or Path=d/icon@2x.png, Revision="_s + hash,
         {u"show"_s, u"v1:a.c"_s}},
        {"git cat of the newest",
         RepositoryKind::git,
         &AppState::catTarget,
         {{u"target"_s, u"a.c"_s}},
         u"prompt Cat: URL Or Path=d/icon@2x.png, Revision="_s + hash,
         {u"show"_s, u"HEAD:a.c"_s}},
        {"svn list",
         RepositoryKind::svn,
         &AppState::listTarget,
         {{u"target"_s, u"file:///r"_s}},
         u"prompt List: URL Or Path=file:///r/trunk"_s,
         {u"list"_s, u"file:///r"_s}},
        {"svn export",
         RepositoryKind::svn,
         &AppState::exportFileAtRevision,
         {{u"path"_s, u"d/icon@2x.png"_s}, {u"revision"_s, u"6"_s}},
         u"save Save File At Revision [Save]: icon@2x.png"_s,
         {u"cat"_s, u"-r"_s, u"6"_s, u"d/icon@2x.png@"_s}},
        {"git export",
         RepositoryKind::git,
         &AppState::exportFileAtRevision,
         {{u"path"_s, u"d/icon@2x.png"_s}, {u"revision"_s, u"v1"_s}},
         u"save Save File At Revision [Save]: icon@2x.png"_s,
         {u"show"_s, u"v1:d/icon@2x.png"_s}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        AskedCommands f(row.kind);
        f.user.promptAnswer = row.answer;
        f.user.chosenSaveFile = f.folder.path(u"saved"_s);
        EXPECT_EQ(f.vectorsOf(row.operation), QList<QStringList>(row.vector.isEmpty() ? 0 : 1, row.vector));
        EXPECT_EQ(f.user.asked.last(), row.asked);
        EXPECT_EQ(f.app->alert.value(), std::nullopt);
    }
}

TEST(HistoryCommands, CancelledDoNothing) {
    const Operation operations[] = {&AppState::rollbackSelectedRevision,
                                    &AppState::showDiffAgainstRevision,
                                    &AppState::pullFileAtRevision,
                                    &AppState::catTarget,
                                    &AppState::listTarget,
                                    &AppState::exportFileAtRevision};
    for (const Operation operation : operations) {
        AskedCommands f(RepositoryKind::svn);
        f.user.confirms = false;
        EXPECT_EQ(f.vectorsOf(operation), QList<QStringList>());
        EXPECT_EQ(f.user.asked.size(), 1);
        EXPECT_EQ(f.app->alert.value(), std::nullopt);
    }
}

TEST(HistoryCommands, RollbackNeedsARevision) {
    struct Row {
        const char *name;
        RepositoryKind kind;
        QString alert;
    };
    const Row rows[] = {
        {"svn", RepositoryKind::svn, u"No Revision Selected: Select a revision in History first."_s},
        {"git", RepositoryKind::git, u"No Commit Selected: Select a Git commit in History first."_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        AskedCommands f(row.kind);
        f.app->selectedRevision = std::nullopt;
        EXPECT_EQ(f.vectorsOf(&AppState::rollbackSelectedRevision), QList<QStringList>());
        const AppAlert alert = f.app->alert.value().value_or(AppAlert());
        EXPECT_EQ(alert.title + u": "_s + alert.message, row.alert);
    }
}

TEST(HistoryCommands, OfferThePathThatTheShownTabHasSelected) {
    AskedCommands f(RepositoryKind::svn);
    f.app->selectedTab = WorkflowTab::changes;
    f.app->selectedRevision = std::nullopt;
    f.vectorsOf(&AppState::showDiffAgainstRevision);
    f.app->changes = {{.path = u"a.c"_s, .kind = SVNStatusKind::modified},
                      {.path = u"b.c"_s, .kind = SVNStatusKind::modified}};
    f.app->selectedChangeID = u"b.c"_s;
    f.vectorsOf(&AppState::showDiffAgainstRevision);
    f.app->selectedTab = WorkflowTab::incoming;
    f.app->selectedIncomingRevision = 9;
    f.vectorsOf(&AppState::showDiffAgainstRevision);
    EXPECT_EQ(f.user.asked, (QStringList{u"prompt Diff: Revision Or Range=BASE, Path="_s,
                                         u"prompt Diff: Revision Or Range=BASE, Path=b.c"_s,
                                         u"prompt Diff: Revision Or Range=9, Path=b.c"_s}));
}

/// Three versions of "a@b.bin", which is no valid text, in either system.
const QByteArray versions[] = {QByteArray("\x00\xff one\r\n", 8), QByteArray("\x00\xff two\r\n", 8),
                               QByteArray("\x00\xff last\n", 8)};
template <typename Repository>
void commitVersions(Repository &repository) {
    for (const QByteArray &version : versions) {
        repository.write(u"a@b.bin"_s, version);
        repository.commitAll(u"change"_s);
    }
}

TEST(HistoryCommands, TakeBackGetAndSaveOldVersions) {
    SvnFixture svn;
    commitVersions(svn);
    GitFixture git;
    commitVersions(git);
    for (const RepositoryKind kind : {RepositoryKind::svn, RepositoryKind::git}) {
        SCOPED_TRACE(rawValue(kind).toLocal8Bit().constData());
        const bool isSvn = kind == RepositoryKind::svn;
        const TempTree &tree = isSvn ? svn.tree : git.tree;
        HistoryFixture f;
        f.openHistory(isSvn ? svn.path() : git.path(), kind);
        awaited(f.app.rollbackSelectedRevision());
        EXPECT_EQ(f.alertText(), QString());
        EXPECT_EQ(f.rows(), QStringList{u"*M a@b.bin"_s});
        EXPECT_EQ(tree.read(u"wc/a@b.bin"_s), versions[1]);

        f.app.selectedRevision = f.app.logEntries.value()[2].revision;
        const Answer oldest{{u"path"_s, u"a@b.bin"_s}, {u"revision"_s, f.app.selectedRevisionToken()}};
        f.user.promptAnswer = oldest;
        f.user.chosenSaveFile = tree.path(u"saved.bin"_s);
        awaited(f.app.exportFileAtRevision());
        EXPECT_EQ(tree.read(u"saved.bin"_s), versions[0]) << "byte by byte";
        EXPECT_EQ(f.app.commandOutput.value()->title, u"Export File"_s);

        awaited(f.app.revertAllPaths());
        awaited(f.app.pullFileAtRevision());
        EXPECT_EQ(f.alertText(), QString());
        EXPECT_EQ(tree.read(u"wc/a@b.bin"_s), versions[0]);
    }
}

TEST(HistoryCommands, GitTakesANameForANameAndAPatternForAPattern) {
    GitFixture repository;
    repository.write(u"[ab].c"_s, "1\n");
    repository.write(u"a.c"_s, "1\n");
    repository.commitAll(u"first"_s);
    repository.write(u"[ab].c"_s, "2\n");
    repository.write(u"a.c"_s, "2\n");
    repository.commitAll(u"second"_s);
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::git);
    f.select(u"[ab].c"_s);
    EXPECT_EQ(f.diffLines(), (QStringList{u"-1"_s, u"+2"_s}));
    f.user.promptAnswer = Answer{{u"path"_s, u"[ab].c"_s}, {u"revision"_s, u"HEAD~1"_s}};
    awaited(f.app.pullFileAtRevision());
    EXPECT_EQ(f.rows(), QStringList{u"*M [ab].c"_s});
    f.user.promptAnswer = Answer{{u"path"_s, u"*.c"_s}, {u"revision"_s, u"HEAD~1"_s}};
    awaited(f.app.pullFileAtRevision());
    EXPECT_EQ(f.rows(), (QStringList{u"*M [ab].c"_s, u"*M a.c"_s}));
}

TEST(HistoryCommands, ASaveThatFailsLeavesTheOlderFileAlone) {
    GitFixture repository;
    commitVersions(repository);
    TempTree out;
    out.write(u"locked/a.bin"_s, "old");
    out.makeDirectory(u"folder.bin"_s);
    ::chmod(QFile::encodeName(out.path()).constData(), 0755);
    ::chmod(QFile::encodeName(out.path(u"locked"_s)).constData(), 0555);
    struct Row {
        const char *name;
        QString destination;
        QString revision;
        QString alert;
    };
    const QString failed = u"Export File Failed: "_s;
    const Row rows[] = {
        {"no such revision", out.path(u"a.bin"_s), u"v9"_s, failed + u"fatal: invalid object name 'v9'.\n"_s},
        {"a folder that cannot be written", out.path(u"locked/a.bin"_s), u"HEAD"_s,
         failed + u"Could not write "_s + out.path(u"locked/a.bin"_s) + u": Permission denied"_s},
        {"a folder of that name", out.path(u"folder.bin"_s), u"HEAD"_s,
         failed + u"Could not write "_s + out.path(u"folder.bin"_s) + u": Filename refers to a directory"_s},
    };
    HistoryFixture f;
    f.openHistory(repository.path(), RepositoryKind::git);
    const QStringList before = out.entries();
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        f.user.promptAnswer = Answer{{u"path"_s, u"a@b.bin"_s}, {u"revision"_s, row.revision}};
        f.user.chosenSaveFile = row.destination;
        {
            const QByteArray safe = "*";
            qputenv("GIT_CONFIG_COUNT", "1");
            qputenv("GIT_CONFIG_KEY_0", "safe.directory");
            qputenv("GIT_CONFIG_VALUE_0", safe);
            ::chmod(QFile::encodeName(repository.tree.path()).constData(), 0755);
            const WithoutPrivileges asOrdinaryUser;
            awaited(f.app.exportFileAtRevision());
        }
        qunsetenv("GIT_CONFIG_COUNT");
        EXPECT_EQ(f.alertText(), row.alert);
        EXPECT_EQ(out.entries(), before);
        EXPECT_EQ(out.read(u"locked/a.bin"_s), "old");
    }
}

} // namespace
} // namespace kestor

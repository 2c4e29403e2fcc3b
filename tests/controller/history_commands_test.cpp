#include "history_fixture.h"
#include "support/app_test.h"
#include "support/test.h"
#include "support/without_privileges.h"

#include <sys/stat.h>

namespace kestor {
namespace {

using Operation = QCoro::Task<> (AppState::*)();
using Answer = QMap<QString, QString>;

const QString hash = u"0123456789abcdef0123456789abcdef01234567"_s;

/// A project whose history has "d/icon@2x.png", selected, in revision 7, and tools that only note what they are asked.
class AskedCommands : public HeldApp {
public:
    explicit AskedCommands(RepositoryKind kind) : HeldApp(kind) {
        const LogEntry entry{.revision = 7,
                             .commitHash = kind == RepositoryKind::git ? std::optional(hash) : std::nullopt,
                             .paths = {{u"M"_s, u"d/icon@2x.png"_s, u"file"_s}}};
        const auto source = std::make_shared<FileHistorySource>();
        source->entries = {entry};
        source->files = {{u"d/icon@2x.png", 0, 1}};
        source->changes = {{0, 0}};
        app->logEntries = source->entries;
        app->fileHistoryItems = FileHistory(source);
        app->repositoryInfo = RepositoryInfo{.url = u"file:///r/trunk"_s};
        app->selectedHistoryPath = u"d/icon@2x.png"_s;
        app->selectedRevision = 7;
        app->selectedTab = WorkflowTab::history;
    }
    QList<QStringList> vectorsOf(Operation operation) {
        tasks.push_back(((*app).*operation)());
        return tool->vectors();
    }
};

TEST(HistoryCommands, RunTheirVectors) {
    constexpr auto svn = RepositoryKind::svn;
    constexpr auto git = RepositoryKind::git;
    const Operation rollback = &AppState::rollbackSelectedRevision;
    const Operation diff = &AppState::showDiffAgainstRevision;
    const Operation pull = &AppState::pullFileAtRevision;
    const Operation cat = &AppState::catTarget;
    const Operation save = &AppState::exportFileAtRevision;
    const Rows<RepositoryKind, Operation, Answer, QStringList> rows{
        {"svn rollback", svn, rollback, {}, u"merge|-c|-7|."_list},
        {"git rollback", git, rollback, {}, QStringList(u"revert|--no-commit"_list) << hash},
        {"svn diff", svn, diff, u"revision=7|path=d/icon@2x.png"_answer, u"diff|-r|7|d/icon@2x.png@"_list},
        {"svn diff against the base, which takes a name as it is", svn, diff,
         u"revision=BASE|path=d/icon@2x.png"_answer, u"diff|-r|BASE|d/icon@2x.png"_list},
        {"svn diff of everything", svn, diff, u"revision=5:7|path="_answer, u"diff|-r|5:7"_list},
        {"git diff", git, diff, u"revision=v1|path=d/i.png"_answer,
         u"show|--format=|--patch|--find-renames|v1|--|d/i.png"_list},
        {"git diff of everything", git, diff, u"revision=v1"_answer, u"show|--format=|--patch|--find-renames|v1"_list},
        {"svn pull", svn, pull, u"path=d/icon@2x.png|revision=6"_answer, u"update|-r|6|d/icon@2x.png@"_list},
        {"svn pull of a path with a peg as typed", svn, pull, u"path=gone.c@5|revision=5"_answer,
         u"update|-r|5|gone.c@5"_list},
        {"pull without a revision", svn, pull, u"path=a.c"_answer, {}},
        {"svn cat", svn, cat, u"target=d/icon@2x.png|revision=7"_answer, u"cat|-r|7|d/icon@2x.png@"_list},
        {"svn cat of the newest", svn, cat, u"target=file:///r/a.c@3"_answer, u"cat|file:///r/a.c@3"_list},
        {"git cat", git, cat, u"target=a.c|revision=v1"_answer, u"show|v1:a.c"_list},
        {"git cat of the newest", git, cat, u"target=a.c"_answer, u"show|HEAD:a.c"_list},
        {"svn list", svn, &AppState::listTarget, u"target=file:///r"_answer, u"list|file:///r"_list},
        {"svn export", svn, save, u"path=d/icon@2x.png|revision=6"_answer, u"cat|-r|6|d/icon@2x.png@"_list},
        {"git export", git, save, u"path=d/icon@2x.png|revision=v1"_answer, u"show|v1:d/icon@2x.png"_list},
    };
    for (const auto &[name, kind, operation, answer, vector] : rows) {
        AskedCommands f(kind);
        f.user.promptAnswer = answer;
        f.user.chosenSaveFile = f.folder.path(u"saved"_s);
        EXPECT_EQ(f.vectorsOf(operation), QList<QStringList>(vector.isEmpty() ? 0 : 1, vector));
    }
}

TEST(HistoryCommands, CancelledDoNothing) {
    const std::pair<Operation, QString> rows[] = {
        {&AppState::rollbackSelectedRevision, u"confirm Rollback Commit: Revert 0123456 into the working copy? Review "
                                              "the resulting changes before committing."_s},
        {&AppState::showDiffAgainstRevision, u"prompt Diff: Revision Or Range="_s + hash + u", Path=d/icon@2x.png"_s},
        {&AppState::pullFileAtRevision, u"prompt Pull File: Path=d/icon@2x.png, Revision="_s + hash},
        {&AppState::catTarget, u"prompt Cat: URL Or Path=d/icon@2x.png, Revision="_s + hash},
        {&AppState::exportFileAtRevision, u"prompt Export File: Path=d/icon@2x.png, Revision="_s + hash},
    };
    for (const auto &[operation, asked] : rows) {
        AskedCommands f(RepositoryKind::git);
        f.user.confirms = false;
        EXPECT_EQ(f.vectorsOf(operation), QList<QStringList>());
        EXPECT_EQ(f.user.asked, QStringList(asked));
        EXPECT_EQ(f.app->alert.value(), std::nullopt);
    }
}

TEST(HistoryCommands, RollbackNeedsARevision) {
    AskedCommands f(RepositoryKind::git);
    f.app->selectedRevision = std::nullopt;
    EXPECT_EQ(f.vectorsOf(&AppState::rollbackSelectedRevision), QList<QStringList>());
    EXPECT_EQ(f.app->alert.value()->title, u"No Commit Selected"_s);
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
    EXPECT_EQ(f.user.asked, u"prompt Diff: Revision Or Range=BASE, Path=|"
                            "prompt Diff: Revision Or Range=BASE, Path=b.c|"
                            "prompt Diff: Revision Or Range=9, Path=b.c"_list);
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
        EXPECT_EQ(f.rows(), u"*M a@b.bin"_list);
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
        EXPECT_EQ(tree.read(u"wc/a@b.bin"_s), versions[0]);
    }
}

TEST(HistoryCommands, GitTakesANameForANameAndAPatternForAPattern) {
    GitFixture repository;
    repository.writeAll({{u"[ab].c"_s, "1\n"}, {u"a.c"_s, "1\n"}});
    repository.commitAll(u"first"_s);
    repository.writeAll({{u"[ab].c"_s, "2\n"}, {u"a.c"_s, "2\n"}});
    repository.commitAll(u"second"_s);
    HistoryFixture f(repository);
    f.select(u"[ab].c"_s);
    EXPECT_EQ(f.diffLines(), u"-1|+2"_list);
    f.user.promptAnswer = u"path=[ab].c|revision=HEAD~1"_answer;
    awaited(f.app.pullFileAtRevision());
    EXPECT_EQ(f.rows(), u"*M [ab].c"_list);
    f.user.promptAnswer = u"path=*.c|revision=HEAD~1"_answer;
    awaited(f.app.pullFileAtRevision());
    EXPECT_EQ(f.rows(), u"*M [ab].c|*M a.c"_list);
}

TEST(HistoryCommands, PullingOverLocalChangesAsksFirst) {
    GitFixture repository;
    repository.writeAll({{u"d/f.c"_s, "1\n"},
                         {u".env"_s, "1\n"},
                         {u"conf/c"_s, "1\n"},
                         {u".gitignore"_s, "*.o\n"},
                         {u"clean.c"_s, "1\n"}});
    repository.commitAll(u"first"_s);
    repository.git(u"rm|-q|--cached|.env|conf/c"_list);
    repository.write(u".gitignore"_s, "*.o\n.env\nconf/\n");
    repository.commitAll(u"second"_s);
    repository.writeAll({{u"d/f.c"_s, "mine\n"}, {u".env"_s, "mine\n"}, {u"e/x.o"_s}, {u"e/clean.c"_s}});
    repository.git(u"add|e/clean.c"_list);
    repository.git(u"commit|-q|-m|third|--|e"_list);
    AppFixture f(repository);
    f.user.confirms = false;
    const Rows<QString, bool> rows{{"changed file", u"d/f.c"_s, true},
                                   {"folder of one", u"d"_s, true},
                                   {"pattern", u"*.c"_s, true},
                                   {"ignored file", u".env"_s, true},
                                   {"file in an ignored folder", u"conf/c"_s, true},
                                   {"file as committed", u"clean.c"_s, false},
                                   {"folder with ignored files", u"e"_s, false}};
    for (const auto &[name, path, asks] : rows) {
        f.user.promptAnswer = Answer{{u"path"_s, path}, {u"revision"_s, u"HEAD~1"_s}};
        f.user.asked.clear();
        awaited(f.app.pullFileAtRevision());
        EXPECT_EQ(f.user.asked.contains(u"confirm Pull File: Local changes in "_s + path + u" will be discarded."_s),
                  asks);
    }
    EXPECT_TRUE(f.app.commandOutput.value()->commandLine.endsWith(u" checkout HEAD~1 -- e"_s));
    EXPECT_EQ(repository.tree.read(u"wc/d/f.c"_s), "mine\n");
    EXPECT_EQ(repository.tree.read(u"wc/.env"_s), "mine\n");
}

TEST(HistoryCommands, ASaveThatFailsLeavesTheOlderFileAlone) {
    GitFixture repository;
    commitVersions(repository);
    TempTree out;
    out.write(u"locked/a.bin"_s, "old");
    out.makeDirectory(u"folder.bin"_s);
    ::chmod(QFile::encodeName(out.path()).constData(), 0755);
    ::chmod(QFile::encodeName(out.path(u"locked"_s)).constData(), 0555);
    const QString failed = u"Export File Failed: "_s;
    const Rows<QString, QString, QString> rows{
        {"no such revision", out.path(u"a.bin"_s), u"v9"_s, failed + u"fatal: invalid object name 'v9'.\n"_s},
        {"a folder that cannot be written", out.path(u"locked/a.bin"_s), u"HEAD"_s,
         failed + u"Could not write "_s + out.path(u"locked/a.bin"_s) + u": Permission denied"_s},
        {"a folder of that name", out.path(u"folder.bin"_s), u"HEAD"_s,
         failed + u"Could not write "_s + out.path(u"folder.bin"_s) + u": Filename refers to a directory"_s},
    };
    HistoryFixture f(repository);
    const QStringList before = out.entries();
    for (const auto &[name, destination, revision, wantedAlert] : rows) {
        f.user.promptAnswer = Answer{{u"path"_s, u"a@b.bin"_s}, {u"revision"_s, revision}};
        f.user.chosenSaveFile = destination;
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
        EXPECT_EQ(f.alertText(), wantedAlert);
        EXPECT_EQ(out.entries(), before);
        EXPECT_EQ(out.read(u"locked/a.bin"_s), "old");
    }
}

} // namespace
} // namespace kestor

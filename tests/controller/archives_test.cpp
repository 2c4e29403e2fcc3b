#include "controller/archive_names.h"
#include "support/app_test.h"
#include "support/environment_variable.h"

#include <QProcess>

namespace kestor {
namespace {

TEST(ArchiveNames, KeepOnlyWhatEveryFileSystemTakes) {
    const Rows<QString, QString> rows{
        {"allowed characters", u"aZ09-_.x"_s, u"aZ09-_.x"_s},
        {"a run of others is one hyphen", u"Café  Ünïcode"_s, u"Caf-n-code"_s},
        {"a hyphen before such a run stays", u"a- b"_s, u"a--b"_s},
        {"an accent of its own belongs to its letter", u"cafe\u0301s"_s, u"caf-s"_s},
        {"an emoji of several parts", u"x\U0001F469\u200D\U0001F680y"_s, u"x-y"_s},
        {"hyphens and dots at the ends", u".-.a_.-"_s, u"a_"_s},
        {"nothing left", u"..."_s, u"Archive"_s},
        {"empty", QString(), u"Archive"_s},
    };
    for (const auto &[name, text, component] : rows)
        EXPECT_EQ(archiveNameComponent(text), component);
    EXPECT_EQ(archiveRootName({.name = u"My App"_s}, {.revision = 42}), u"My-App-r42"_s);
    EXPECT_EQ(archiveRootName({.name = u"My App"_s}, {.commitHash = u"abcdef0123"_s}), u"My-App-abcdef0"_s);
    EXPECT_EQ(archiveFileName(u"/a.b/backup"_s), u"/a.b/backup.zip"_s);
    EXPECT_EQ(archiveFileName(u"/a.b/backup.zip"_s), u"/a.b/backup.zip"_s);
}

void fill(RepositoryFixture &repository) {
    repository.write(u"größe/ä b@2x#%.txt"_s, "one\n");
    repository.tree.writeProgram(u"wc/tool.sh"_s, "");
    QFile::link(u"tool.sh"_s, repository.path(u"link"_s));
    repository.commitAll();
    repository.commit({{u"größe/ä b@2x#%.txt"_s, "two\n"}});
}

/// A folder for temporary files of its own as long as it lives.
struct Temporary {
    QStringList left() const { return tree.entries().filter(u"KestorSVN-"_s); }

    TempTree tree{};
    EnvironmentVariable variable{"TMPDIR", QFile::encodeName(tree.path())};
};

TEST(Archives, HoldTheTreeOfTheirRevision) {
    SvnFixture svn;
    fill(svn);
    GitFixture git;
    fill(git);
    runTool(u"svn"_s, {u"export"_s, u"-q"_s, u"-r"_s, u"2"_s, svn.path(), svn.tree.path(u"expected"_s)}, svn.path());
    git.git({u"archive"_s, u"--output"_s, git.tree.path(u"expected.tar"_s), u"HEAD~1"_s});
    git.tree.makeDirectory(u"expected"_s);
    runTool(u"tar"_s, u"-xf|../expected.tar"_list, git.tree.path(u"expected"_s));
    const QString hash = QString::fromLatin1(git.git(u"rev-parse|HEAD~1"_list).trimmed());
    const Rows<RepositoryFixture *, QString> rows{{"svn", &svn, u"wc-r2"_s}, {"git", &git, u"wc-"_s + hash.left(7)}};
    for (const auto &[name, repository, root] : rows) {
        TempTree &tree = repository->tree;
        const Temporary temporary;
        AppFixture f(*repository);
        awaited(f.app.loadArchives());
        f.app.selectedArchiveEntryID = f.app.archiveEntries.value()[1].revision;
        f.user.chosenSaveFile = tree.path(u"out/chosen name"_s);
        tree.makeDirectory(u"out"_s);
        awaited(f.app.createArchiveZip());
        EXPECT_EQ(f.user.asked.last(), u"save Create Archive Zip [Create Zip]: "_s + root + u".zip"_s);
        EXPECT_EQ(f.output().stdoutText, u"Created "_s + tree.path(u"out/chosen name.zip"_s));
        EXPECT_EQ(tree.entries(u"out"_s), u"chosen name.zip"_list);
        EXPECT_EQ(temporary.left(), QStringList());
        runTool(u"cmake"_s, u"-E|tar|xf|chosen name.zip"_list, tree.path(u"out"_s));
        const QStringList compare{u"diff"_s, u"--no-index"_s, tree.path(u"expected"_s), tree.path(u"out/"_s + root)};
        EXPECT_EQ(QProcess::execute(u"git"_s, compare), 0) << "contents, links and programs";
    }
}

TEST(Archives, ThatFailSayWhyAndLeaveNothing) {
    SvnFixture svn;
    fill(svn);
    svn.tree.makeDirectory(u"out/folder.zip"_s);
    svn.tree.write(u"out/old.zip"_s, "old");
    svn.tree.makeDirectory(u"locked"_s);
    const auto path = [&svn](const QString &relative) {
        return svn.tree.path(relative);
    };
    const QString failed = u"Create Archive Zip Failed: "_s;
    const Rows<QString, QString> rows{
        {"a folder of that name", path(u"out/folder.zip"_s),
         failed + u"Could not write "_s + path(u"out/folder.zip"_s) + u": It is a folder."_s},
        {"a file that nobody was asked about", path(u"out/old"_s),
         failed + path(u"out/old.zip"_s) + u" already exists."_s},
        {"an old file when the tool fails", path(u"out/old.zip"_s), failed + u"svn: E"_s},
    };
    const Temporary temporary;
    AppFixture f(svn);
    awaited(f.app.loadArchives());
    f.app.selectedArchiveEntryID = 3;
    QDir().rename(path(u"repo/db"_s), path(u"repo/gone"_s));
    const QStringList before = svn.tree.entries(u"out"_s);
    for (const auto &[name, destination, alert] : rows) {
        f.user.chosenSaveFile = destination;
        awaited(f.app.createArchiveZip());
        EXPECT_TRUE(startsWith(f.alertText(), alert));
        EXPECT_EQ(svn.tree.entries(u"out"_s), before);
        EXPECT_EQ(svn.tree.read(u"out/old.zip"_s), "old");
        EXPECT_EQ(temporary.left(), QStringList());
        EXPECT_EQ(f.app.busyMessage.value(), std::nullopt);
    }
}

TEST(Archives, EndedByClosingLeaveTheOldFile) {
    TempTree tree;
    tree.write(u"out/old.zip"_s, "old");
    HeldApp f(RepositoryKind::git);
    f.user.chosenSaveFile = tree.path(u"out/old.zip"_s);
    f.app->archiveEntries = QList<LogEntry>{{.revision = 1, .commitHash = QString(40, u'a')}};
    f.app->selectedArchiveEntryID = 1;
    const QCoro::Task<> archive = f.app->createArchiveZip();
    ASSERT_TRUE(waitUntil([&f] { return !f.tool->runs.isEmpty(); }));
    EXPECT_EQ(f.app->busyKind.value(), BusyKind::interruptible);
    EXPECT_EQ(tree.entries(u"out"_s).size(), 2);
    f.app.reset();
    EXPECT_EQ(tree.entries(u"out"_s), QStringList{u"old.zip"_s});
    EXPECT_EQ(tree.read(u"out/old.zip"_s), "old");
}

TEST(Archives, ReplaceAFileAndTakeTheHistorysSelection) {
    GitFixture repository;
    fill(repository);
    repository.tree.write(u"out/old.zip"_s, "old");
    AppFixture f;
    f.app.selectedTab = WorkflowTab::history;
    f.open(repository);
    f.user.chosenSaveFile = repository.tree.path(u"out/old.zip"_s);
    // Of a run that was killed, and of one that goes on.
    const QString left = u"out/.KestorSVN-7d2f1c54-0d4b-4b8e-9f7a-0123456789ab"_s;
    repository.tree.write(left + u"/old.zip"_s);
    QFile::setPermissions(repository.tree.path(left), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const TemporaryFolder living(repository.tree.path(u"out"_s));
    awaited(f.app.createArchiveZip());
    EXPECT_TRUE(repository.tree.read(u"out/old.zip"_s).startsWith("PK"));
    EXPECT_EQ(repository.tree.entries(u"out"_s),
              QStringList({QFileInfo(living.path()).fileName() + u'/', u"old.zip"_s}));
}

TEST(Archives, KeepTheSelectedCommitWhenNumbersMoveAndForgetOneThatIsGone) {
    GitFixture repository;
    fill(repository);
    AppFixture f(repository);
    awaited(f.app.loadArchives());
    EXPECT_EQ(f.app.selectedArchiveEntryID.value(), std::nullopt);
    f.app.selectedArchiveEntryID = f.app.archiveEntries.value()[1].revision;
    const std::optional<LogEntry> first = f.app.selectedArchiveEntry();
    repository.commit({{u"new"_s}});
    awaited(f.app.loadArchives());
    EXPECT_EQ(f.app.selectedArchiveEntry()->commitHash, first->commitHash);
    f.app.selectedArchiveEntryID = 1000000;
    repository.git(u"checkout|-q|--orphan|fresh"_list);
    awaited(f.app.loadArchives());
    EXPECT_EQ(f.app.selectedArchiveEntryID.value(), std::nullopt);
}

} // namespace
} // namespace kestor

#include "controller/archive_names.h"
#include "support/app_test.h"

#include <filesystem>
#include <sys/stat.h>

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

/// Everything below a folder as "NAME MODE CONTENT", links as "NAME -> TARGET".
QStringList treeOf(const TempTree &tree, const QString &folder) {
    QStringList all;
    for (const QString &entry : tree.entries(folder)) {
        const QString path = tree.path(folder + u'/' + entry);
        struct stat status {};
        ::lstat(QFile::encodeName(path.endsWith(u'/') ? path.chopped(1) : path).constData(), &status);
        if (S_ISLNK(status.st_mode))
            all.append(entry + u" -> "_s + QString::fromStdString(std::filesystem::read_symlink(path.toStdString())));
        else
            all.append(entry + u' ' + QString::number(status.st_mode & 0111, 8) + u' ' +
                       QString::fromLatin1(S_ISREG(status.st_mode) ? tree.read(folder + u'/' + entry) : QByteArray()));
    }
    return all;
}

template <typename Repository>
void fill(Repository &repository) {
    repository.writeAll({{u"größe/ä b@2x#%.txt"_s, "one\n"}, {u"tool.sh"_s, "#!/bin/sh\n"}});
    QFile::setPermissions(repository.path(u"tool.sh"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile::link(u"tool.sh"_s, repository.path(u"link"_s));
    repository.commitAll(u"first"_s);
    repository.write(u"größe/ä b@2x#%.txt"_s, "two\n");
    repository.commitAll(u"second"_s);
}

/// A folder for temporary files of its own as long as it lives.
class Temporary {
public:
    Temporary() : before(qgetenv("TMPDIR")) { qputenv("TMPDIR", QFile::encodeName(tree.path())); }
    ~Temporary() { before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before); }
    QStringList left() const {
        return QDir(tree.path()).entryList({u"KestorSVN-*"_s}, QDir::AllEntries | QDir::Hidden);
    }

private:
    TempTree tree{};
    QByteArray before;
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
    struct Row {
        RepositoryKind kind;
        TempTree &tree;
        QString root, commandLine;
    };
    const QString hash = QString::fromLatin1(git.git(u"rev-parse|HEAD~1"_list).trimmed());
    const Row rows[] = {
        {RepositoryKind::svn, svn.tree, u"wc-r2"_s, u"zip (libarchive) "_s},
        {RepositoryKind::git, git.tree, u"wc-"_s + hash.left(7), u"/usr/bin/git archive --format=zip --output "_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(rawValue(row.kind).toLocal8Bit().constData());
        const Temporary temporary;
        AppFixture f;
        f.open(row.tree.path(u"wc"_s), row.kind);
        awaited(f.app.loadArchives());
        f.app.selectedArchiveEntryID = f.app.archiveEntries.value()[1].revision;
        f.user.chosenSaveFile = row.tree.path(u"out/chosen name"_s);
        row.tree.makeDirectory(u"out"_s);
        awaited(f.app.createArchiveZip());
        EXPECT_EQ(f.user.asked.last(), u"save Create Archive Zip [Create Zip]: "_s + row.root + u".zip"_s);
        const CommandOutput output = f.app.commandOutput.value().value_or(CommandOutput());
        EXPECT_EQ(output.stdoutText, u"Created "_s + row.tree.path(u"out/chosen name.zip"_s));
        EXPECT_TRUE(startsWith(output.commandLine, row.commandLine));
        EXPECT_EQ(row.tree.entries(u"out"_s), u"chosen name.zip"_list);
        EXPECT_EQ(temporary.left(), QStringList());
        runTool(u"cmake"_s, u"-E|tar|xf|chosen name.zip"_list, row.tree.path(u"out"_s));
        EXPECT_EQ(treeOf(row.tree, u"out/"_s + row.root), treeOf(row.tree, u"expected"_s));
        EXPECT_EQ(row.tree.entries(u"out"_s).filter(u"ä b@2x#%.txt"_s).size(), 1);
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
        {"no such folder", path(u"none/x.zip"_s),
         failed + u"Could not write "_s + path(u"none/x.zip"_s) + u": No such file or directory"_s},
        {"an old file when the tool fails", path(u"out/old.zip"_s), failed + u"svn: E"_s},
    };
    const Temporary temporary;
    AppFixture f(svn);
    awaited(f.app.createArchiveZip());
    EXPECT_EQ(f.alertText(), u"No Archive Selected: Select a revision or commit in Archives first."_s);
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
    QSettings settings(tree.path(u"test.conf"_s), QSettings::IniFormat);
    ScriptedUser user;
    user.chosenSaveFile = tree.path(u"out/old.zip"_s);
    const auto git = std::make_shared<HeldTool>();
    std::optional<AppState> app(std::in_place, settings, user, Tools{git, git, git});
    const Project project{QUuid::createUuid(), u"wc"_s, tree.path(), RepositoryKind::git};
    app->projects = QList<Project>{project};
    app->selectedProjectID = project.id;
    app->archiveEntries = QList<LogEntry>{{.revision = 1, .commitHash = QString(40, u'a')}};
    app->selectedArchiveEntryID = 1;
    const QCoro::Task<> archive = app->createArchiveZip();
    ASSERT_TRUE(waitUntil([&git] { return !git->runs.isEmpty(); }));
    EXPECT_EQ(app->busyKind.value(), BusyKind::interruptible);
    EXPECT_EQ(tree.entries(u"out"_s).size(), 2);
    app.reset();
    EXPECT_EQ(tree.entries(u"out"_s), QStringList{u"old.zip"_s});
    EXPECT_EQ(tree.read(u"out/old.zip"_s), "old");
}

TEST(Archives, ReplaceAFileAndTakeTheHistorysSelection) {
    GitFixture repository;
    fill(repository);
    repository.tree.write(u"out/old.zip"_s, "old");
    AppFixture f;
    f.app.selectedTab = WorkflowTab::history;
    f.open(repository.path(), RepositoryKind::git);
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
    repository.write(u"new"_s);
    repository.commitAll(u"third"_s);
    awaited(f.app.loadArchives());
    EXPECT_EQ(f.app.selectedArchiveEntry()->commitHash, first->commitHash);
    f.app.selectedArchiveEntryID = 1000000;
    repository.git(u"checkout|-q|--orphan|fresh"_list);
    awaited(f.app.loadArchives());
    EXPECT_EQ(f.app.selectedArchiveEntryID.value(), std::nullopt);
}

} // namespace
} // namespace kestor

#include "support/app_test.h"
#include "support/environment_variable.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace kestor {
namespace {

using Answer = QMap<QString, QString>;

/// A controller, a folder to work in, and what the user answers to the questions in turn.
class Setup : public ::testing::Test {
protected:
    void checkOut(const QString &url, const QString &name) {
        forget();
        f.user.promptAnswers = {Answer{{u"url"_s, url}}, Answer{{u"name"_s, name}}};
        f.user.chosenDirectory = tree.path();
        awaited(f.app.setup.checkoutRepository());
    }
    void importFrom(const QString &folder, const QString &url) {
        forget();
        f.user.chosenDirectory = folder;
        f.user.promptAnswers = {Answer{{u"url"_s, url}, {u"message"_s, u"größe"_s}}};
        awaited(f.app.setup.importDirectory());
    }
    void exportTo(const QString &source, const QString &name) {
        forget();
        f.user.promptAnswers = {Answer{{u"source"_s, source}}, Answer{{u"name"_s, name}}};
        f.user.chosenDirectory = tree.path();
        awaited(f.app.setup.exportRepository());
    }
    void create(const QString &name) {
        forget();
        f.user.chosenNewFolder = tree.path(name);
        awaited(f.app.setup.createSVNRepository());
    }
    void forget() {
        f.app.alert = std::nullopt;
        f.app.commandOutput = std::nullopt;
        f.user.asked.clear();
    }
    /// Files below a folder with their contents, and its folders.
    QStringList contents(const QString &relative) const {
        QStringList all;
        for (const QString &entry : tree.entries(relative))
            all.append(entry + u'=' + QString::fromUtf8(tree.read(relative + u'/' + entry)));
        return all;
    }
    QString selectedPath() const { return f.app.selectedProject() ? f.app.selectedProject()->path : QString(); }

    TempTree tree{};
    AppFixture f{};
};

/// Files and folders whose names every layer has to pass on as they are.
void writeOddTree(TempTree &tree, const QString &folder) {
    tree.write(folder + u"/a.txt"_s, "one\n");
    tree.write(folder + u"/größe/icon@2x.png"_s, "p");
    tree.write(folder + u"/-dash"_s, "d");
    tree.write(folder + u"/a b/100%.txt"_s, "h");
    tree.makeDirectory(folder + u"/empty"_s);
}

TEST_F(Setup, CreatesARepositoryWithAWorkingCopyBeside) {
    for (const QString &name : u"Demo|größe @2 #1"_list) {
        SCOPED_TRACE(name.toStdString());
        create(name);
        EXPECT_EQ(f.user.asked, u"new folder Create SVN Repository [Create]: Repository Name:NewRepository"_list);
        EXPECT_EQ(f.output().stdoutText, u"Created repository at "_s + tree.path(name) +
                                             u".repo\nCreated working copy at "_s + tree.path(name));
        EXPECT_EQ(selectedPath(), tree.path(name));
        tree.write(name + u"/new.txt"_s);
        runTool(u"svn"_s, u"add|new.txt"_list, tree.path(name));
        runTool(u"svn"_s, u"commit|-m|first"_list, tree.path(name));
    }
}

TEST_F(Setup, CreatesNothingWhereSomethingStands) {
    const QStringList before = tree.entries();
    awaited(f.app.setup.createSVNRepository());
    f.user.chosenNewFolder = tree.path() + u'/';
    awaited(f.app.setup.createSVNRepository());
    EXPECT_EQ(f.alertText(), u"Repository Name Required: Choose a folder name for the new SVN repository."_s);
    EXPECT_EQ(tree.entries(), before);
    tree.makeDirectory(u"Demo"_s);
    create(u"Demo"_s);
    EXPECT_EQ(f.alertText(), u"Working Directory Already Exists: "_s + tree.path(u"Demo"_s) + u" already exists."_s);
    tree.makeDirectory(u"Left.repo"_s);
    create(u"Left"_s);
    EXPECT_EQ(f.alertText(), u"Repository Already Exists: "_s + tree.path(u"Left.repo"_s) + u" already exists."_s);
    create(u"none/Demo"_s);
    EXPECT_TRUE(startsWith(f.alertText(), u"Create SVN Repository Failed: "_s));
    EXPECT_EQ(tree.entries(), u"Demo/|Left.repo/"_list);
    EXPECT_TRUE(f.app.projects.value().isEmpty());
}

TEST_F(Setup, BringsATreeIntoARepositoryAndOutAgain) {
    writeOddTree(tree, u"tree@1"_s);
    runTool(u"svnadmin"_s, {u"create"_s, tree.path(u"my repo"_s)}, tree.path());
    const QStringList expected = contents(u"tree@1"_s);
    const QString repository = u"file://"_s + tree.path(u"my repo"_s);
    const QString urls[] = {repository + u"/ä@b"_s, QString(repository + u"/plain"_s).replace(u" "_s, u"%20"_s)};
    for (int round = 0; const QString &url : urls) {
        SCOPED_TRACE(url.toStdString());
        const QString number = QString::number(++round);
        importFrom(tree.path(u"tree@1"_s), url);
        EXPECT_EQ(f.output().title, u"Import"_s);
        EXPECT_EQ(f.user.asked, u"directory Choose Directory To Import|"
                                "prompt Import: Repository URL=, Message=Initial import"_list);
        checkOut(url, u"wc@"_s + number);
        EXPECT_EQ(f.output().title, u"Checkout"_s);
        EXPECT_EQ(selectedPath(), tree.path(u"wc@"_s + number));
        EXPECT_EQ(contents(u"wc@"_s + number), expected);
        exportTo(url, u"out@"_s + number);
        EXPECT_EQ(f.output().title, u"Export"_s);
        EXPECT_EQ(f.user.asked, u"prompt Export: URL Or Path=|directory Choose Export Destination Parent|"
                                "prompt Export Folder: Folder Name="_list);
        EXPECT_EQ(contents(u"out@"_s + number), expected);
    }
    exportTo(u"größe/icon@2x.png"_s, u"icon.png"_s);
    EXPECT_EQ(tree.read(u"icon.png"_s), "p") << "a path of the selected project is a name";
}

TEST_F(Setup, ClonesAllBranchesAndTags) {
    GitFixture origin;
    writeOddTree(origin.tree, u"wc"_s);
    origin.commitAll(u"first"_s);
    origin.git(u"tag|v1"_list);
    origin.git(u"branch|topic"_list);
    runTool(u"git"_s, {u"clone"_s, u"-q"_s, u"--bare"_s, origin.path(), tree.path(u"ä b.git"_s)}, tree.path());
    for (const QString &url :
         {tree.path(u"ä b.git"_s), u"file://"_s + tree.path(u"ä b.git"_s), u"file://"_s + tree.path(u"ä%20b.git"_s)}) {
        SCOPED_TRACE(url.toStdString());
        const QString name = u"clone"_s + QString::number(f.app.projects.value().size());
        checkOut(url, name);
        EXPECT_EQ(f.user.asked.last(), u"prompt Checkout Folder: Folder Name="_s + offeredFolderName(url));
        EXPECT_EQ(f.app.selectedProject()->kind, RepositoryKind::git);
        EXPECT_EQ(selectedPath(), tree.path(name));
        EXPECT_EQ(tree.read(name + u"/größe/icon@2x.png"_s), "p");
        const QByteArray names = runTool(u"git"_s, u"for-each-ref|--format=%(refname)"_list, tree.path(name));
        EXPECT_EQ(names, "refs/heads/main\nrefs/remotes/origin/HEAD\nrefs/remotes/origin/main\nrefs/remotes/origin/"
                         "topic\nrefs/tags/v1\n");
    }
}

TEST_F(Setup, RefusesBeforeAnyToolRuns) {
    SvnFixture repository;
    const QString url = repository.url(u"trunk"_s);
    tree.write(u"taken/a"_s);
    const QStringList before = tree.entries();
    const Rows<QString, QString, QString> rows{
        {"nothing typed", QString(), u"x"_s, QString()},
        {"an option", u"--version"_s, u"x"_s, u"Invalid Address: An address cannot begin"_s},
        {"a way out", url, u"../x"_s, u"Invalid Folder Name: "_s},
        {"a folder with files", url, u"taken"_s,
         u"Destination Already Exists: "_s + tree.path(u"taken"_s) + u" already exists."_s},
    };
    for (const auto &[name, wantedUrl, folder, alert] : rows) {
        checkOut(wantedUrl, folder);
        EXPECT_EQ(f.alertText().left(alert.size()), alert);
        exportTo(wantedUrl, folder);
        EXPECT_EQ(f.alertText().left(alert.size()), alert);
        EXPECT_EQ(f.app.commandOutput.value(), std::nullopt) << "a tool ran";
    }
    EXPECT_EQ(tree.entries(), before);
    tree.makeDirectory(u"free"_s);
    checkOut(url, u"free"_s);
    EXPECT_EQ(selectedPath(), tree.path(u"free"_s)) << "an empty folder is taken";
}

TEST_F(Setup, NamesWhatAFailedCheckoutLeft) {
    SvnFixture repository;
    repository.commit({{u"a.txt"_s}, {u"b.txt"_s}});
    // Checks everything out and then fails, as when the connection breaks; to "bare" it leaves a mere folder.
    tree.writeProgram(u"bin/svn"_s,
                      "[ \"$1\" = checkout ] || exec /usr/bin/svn \"$@\"\n"
                      "case \"$3\" in *bare) mkdir \"$3\"; touch \"$3/part\";; *) /usr/bin/svn \"$@\";; esac\n"
                      "echo 'svn: E170013: Connection lost' >&2; exit 1\n");
    const EnvironmentVariable path("PATH", QFile::encodeName(tree.path(u"bin"_s)) + ':' + qgetenv("PATH"));
    const QString url = repository.url(u"trunk"_s);
    checkOut(url, u"bare"_s);
    EXPECT_EQ(f.alertText(), u"Checkout Failed: svn: E170013: Connection lost\nWhat was done until then is in "_s +
                                 tree.path(u"bare"_s) + u'.');
    EXPECT_TRUE(f.app.projects.value().isEmpty());
    EXPECT_TRUE(tree.exists(u"bare/part"_s));
    checkOut(url, u"usable"_s);
    EXPECT_TRUE(contains(f.alertText(), tree.path(u"usable"_s)));
    EXPECT_EQ(selectedPath(), tree.path(u"usable"_s)) << "a working copy that can be cleaned up and updated";
}

TEST_F(Setup, OverwritesNoFileByAnExport) {
    SvnFixture repository;
    repository.commit({{u"a.txt"_s, "new\n"}});
    tree.write(u"old.txt"_s, "old\n");
    exportTo(repository.path(u"a.txt"_s), u"old.txt"_s);
    EXPECT_TRUE(f.alertText().startsWith(u"Destination Already Exists"_s));
    EXPECT_EQ(tree.read(u"old.txt"_s), "old\n");
    tree.makeDirectory(u"empty"_s);
    exportTo(repository.path(u"a.txt"_s), u"empty"_s);
    EXPECT_TRUE(f.alertText().startsWith(u"Destination Already Exists"_s)) << "svn would put the file into the folder";
    exportTo(repository.url(u"none"_s), u"new"_s);
    EXPECT_TRUE(f.alertText().startsWith(u"Export Failed: svn: "_s));
}

TEST_F(Setup, MakesRemoteDirectories) {
    awaited(f.app.setup.makeRemoteDirectory());
    EXPECT_EQ(f.alertText(), u"No Project Selected: Choose a project first."_s);
    SvnFixture repository;
    repository.write(u"a.txt"_s);
    f.open(repository);
    const QString url = repository.url(u"trunk"_s);
    for (const QString &name : u"plain|a b@5"_list) {
        forget();
        f.user.promptAnswer = Answer{{u"url"_s, url + u'/' + name}, {u"message"_s, u"a.txt"_s}};
        awaited(f.app.setup.makeRemoteDirectory());
        EXPECT_EQ(f.output().title, u"Remote Directory"_s);
    }
    EXPECT_EQ(repository.svn({u"list"_s, url}), "a b@5/\nplain/\n");
    forget();
    f.user.promptAnswer = Answer{{u"url"_s, url + u"/x"_s}, {u"message"_s, QString()}};
    awaited(f.app.setup.makeRemoteDirectory());
    EXPECT_EQ(f.app.commandOutput.value(), std::nullopt) << "a message is needed";
}

TEST_F(Setup, EndsQuietlyWhenAQuestionIsCancelled) {
    f.user.promptAnswers = {Answer{{u"url"_s, u"file:///x"_s}}};
    awaited(f.app.setup.checkoutRepository());
    f.user.promptAnswers = {Answer{{u"url"_s, u"file:///x"_s}}};
    f.user.chosenDirectory = tree.path();
    awaited(f.app.setup.checkoutRepository());
    awaited(f.app.setup.importDirectory());
    EXPECT_EQ(f.app.commandOutput.value(), std::nullopt);
    EXPECT_TRUE(tree.entries().isEmpty());
}

TEST_F(Setup, NamesTheRepositoryWhoseWorkingCopyCouldNotBeCheckedOut) {
    tree.writeProgram(u"svn"_s, "echo no room; exit 1\n");
    f.settings.setValue(u"KestorSVN.svnExecutablePath"_s, tree.path(u"svn"_s));
    create(u"Demo"_s);
    EXPECT_EQ(f.alertText(),
              u"Create SVN Repository Failed: no room\nWhat was done until then is in "_s + tree.path(u"Demo.repo."_s));
}

TEST_F(Setup, MayBeCutShortWhenOnlyANewFolderIsWritten) {
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    const QString server = u"://127.0.0.1:%1/x"_s.arg(silent.serverPort());
    const Rows<Answer, QCoro::Task<> (RepositorySetup::*)()> rows{
        {"svn", {{u"url"_s, u"svn"_s + server}}, &RepositorySetup::checkoutRepository},
        {"git", {{u"url"_s, u"git"_s + server + u".git"_s}}, &RepositorySetup::checkoutRepository},
        {"export", {{u"source"_s, u"svn"_s + server}}, &RepositorySetup::exportRepository},
    };
    for (const auto &[name, address, operation] : rows) {
        AppFixture fixture;
        fixture.user.chosenDirectory = tree.path();
        fixture.user.promptAnswers = {address, Answer{{u"name"_s, QString::fromLatin1(name)}}};
        const QCoro::Task<> running = (fixture.app.setup.*operation)();
        ASSERT_TRUE(waitUntil([&] { return silent.hasPendingConnections(); }));
        delete silent.nextPendingConnection();
        EXPECT_EQ(fixture.app.busyKind.value(), BusyKind::interruptible);
    }
}

} // namespace
} // namespace kestor

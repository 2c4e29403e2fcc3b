#include "support/app_test.h"
#include "support/environment_variable.h"
#include "tools/svn_preference.h"

namespace kestor {
namespace {

class TypedCommands : public ::testing::Test {
protected:
    /// Runs the line as if the user had typed it; the alert that came of it.
    QString typed(const QString &line) {
        f.user.promptAnswer = QMap<QString, QString>{{u"arguments"_s, line}};
        f.app.alert = std::nullopt;
        f.app.commandOutput = std::nullopt;
        awaited(f.app.svnProgram.runCustomSVNCommand());
        return f.alertText();
    }
    /// A program of that content becomes the svn that is used.
    QString choose(const QByteArray &script) {
        tree.writeProgram(u"svn"_s, script);
        const QString path = tree.path(u"svn"_s);
        f.user.chosenFile = path;
        awaited(f.app.svnProgram.setSVNExecutable());
        return path;
    }
    QString output() const { return f.output().stdoutText; }

    TempTree tree{};
    AppFixture f{};
};

TEST_F(TypedCommands, AreParsedBeforeAnythingRuns) {
    const Rows<QString, QString> rows{
        {"nothing typed", {}, {}},
        {"empty quotes alone", u"\"\" ''"_s, u"No Arguments: Enter svn arguments to run."_s},
        {"unclosed quote", u"log -r \"5"_s, u"Could Not Parse Arguments: Missing closing \" quote."_s},
        {"zero byte", u"info a\0b"_s,
         u"svn info Failed: Could not launch /bin/false: An argument contains a NUL character, which no program can be "
         "given."_s},
        {"too long for the system", u"info "_s + QString(1 << 20, u'x'),
         u"svn info Failed: Could not launch /bin/false: Argument list too long"_s},
    };
    f.settings.setValue(svnExecutablePathKey, u"/bin/false"_s);
    for (const auto &[name, line, wantedAlert] : rows) {
        EXPECT_EQ(typed(line), wantedAlert);
        EXPECT_EQ(f.app.commandOutput.value(), std::nullopt);
    }
}

TEST_F(TypedCommands, RunInTheProjectAndLoadWhatTheyChanged) {
    EXPECT_EQ(typed(u"--version --quiet"_s), QString()) << "also without a project";
    EXPECT_EQ(f.output().title, u"svn --version"_s);
    SvnFixture repository;
    f.open(repository);
    EXPECT_EQ(typed(u"mkdir 'a b' --quiet"_s), QString());
    EXPECT_EQ(f.rows(), u"*A a b"_list);
    EXPECT_EQ(f.output().title, u"svn mkdir"_s);
}

TEST_F(TypedCommands, ThatWaitForAnEditorOrAPasswordFailAtOnce) {
    SvnFixture repository;
    repository.write(u"a.c"_s);
    repository.svn(u"add|a.c"_list);
    f.open(repository);
    const EnvironmentVariable editor("EDITOR", "sleep 3600;");
    for (const QString &line : u"propedit svn:ignore .|propedit --revprop -r 1 svn:log|commit"_list) {
        SCOPED_TRACE(line.toStdString());
        const QString alert = typed(line);
        EXPECT_TRUE(startsWith(alert, u"svn "_s) && alert.contains(u"svn: E2"_s));
    }
}

TEST_F(TypedCommands, ShowWhatTheChosenProgramDoes) {
    const QString path = choose("echo partly; exit 3\n");
    EXPECT_EQ(typed(u"x"_s), u"svn x Failed: partly\n"_s);
    EXPECT_EQ(f.output().status, 3);
    choose("head -c 8000000 /dev/zero | tr '\\0' x\n");
    EXPECT_EQ(typed(u"x"_s), QString());
    EXPECT_EQ(output().size(), 8'000'000);
    QFile::remove(path);
    EXPECT_EQ(typed(u"x"_s), u"svn x Failed: Could not launch "_s + path + u": The file does not exist."_s);
    f.user.chosenFile = tree.path();
    awaited(f.app.svnProgram.setSVNExecutable());
    EXPECT_EQ(f.app.svnExecutablePath.value(), tree.path());
    awaited(f.app.svnProgram.showSVNHelp());
    EXPECT_EQ(f.alertText(),
              u"svn Help Failed: Could not launch "_s + tree.path() + u": It is a folder, not a program."_s);
    f.user.chosenFile = std::nullopt;
    awaited(f.app.svnProgram.setSVNExecutable());
    EXPECT_EQ(preferredSVNPath(f.settings), tree.path()) << "a cancelled choice changes nothing";
    awaited(f.app.svnProgram.useSVNFromPath());
    EXPECT_FALSE(f.settings.contains(svnExecutablePathKey));
    EXPECT_EQ(f.app.svnExecutablePath.value(), QString());
    awaited(f.app.svnProgram.showSVNHelp());
    EXPECT_EQ(f.output().title, u"svn Help"_s);
    EXPECT_TRUE(output().contains(u"Available subcommands:"_s));
    awaited(f.app.svnProgram.showSVNVersion());
    EXPECT_EQ(f.output().title, u"svn Version"_s);
    EXPECT_TRUE(output().startsWith(u"svn, version 1."_s));
}

} // namespace
} // namespace kestor

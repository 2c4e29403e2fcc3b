#include "support/awaited.h"
#include "support/printers.h"
#include "support/temp_tree.h"
#include "tools/arguments.h"
#include "tools/git_client.h"
#include "tools/svn_admin_client.h"
#include "tools/svn_client.h"

#include <QFile>
#include <QSettings>

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;
using testing::awaited;
using testing::runTool;
using testing::TempTree;

/// Sets PATH for the life of the object.
class PathVariable {
public:
    explicit PathVariable(const QByteArray &value) { qputenv("PATH", value); }
    ~PathVariable() { qputenv("PATH", saved); }
    Q_DISABLE_COPY_MOVE(PathVariable)

private:
    QByteArray saved = qgetenv("PATH");
};

class Clients : public ::testing::Test {
protected:
    QString failure(Tool &tool, const QString &directory = {}) {
        try {
            awaited(tool.run(args("--version", "--quiet"), directory, CheckStatus::yes));
        } catch (const SVNClientError &error) {
            return error.errorDescription();
        }
        return u"(none)"_s;
    }
    void writeProgram(const QString &name, const QByteArray &script) {
        tree.write(name, "#!/bin/sh\n" + script);
        QFile::setPermissions(tree.path(name), QFile::ReadOwner | QFile::ExeOwner);
    }
    void choose(const QString &path) { settings.setValue(u"KestorSVN.svnExecutablePath"_s, path); }

    TempTree tree;
    QSettings settings{tree.path(u"settings.ini"_s), QSettings::IniFormat};
    SVNClient svn{settings};
    SVNAdminClient svnAdmin{settings};
    GitClient git;
};

TEST_F(Clients, ChosenSvnIsUsedFromTheNextRunOn) {
    writeProgram(u"bin/svn"_s, "echo chosen svn $*");
    writeProgram(u"bin/svnadmin"_s, "echo chosen svnadmin $*");
    const QStringList arguments = args("x", "y z");
    const QString foundBefore = svn.displayExecutable();
    choose(tree.path(u"bin/svn"_s));
    const SVNCommandResult result = awaited(svn.run(arguments, {}, CheckStatus::yes));
    EXPECT_EQ(result.stdoutText(), u"chosen svn x y z\n"_s);
    EXPECT_EQ(result.commandLine, tree.path(u"bin/svn"_s) + u" x 'y z'"_s);
    EXPECT_EQ(awaited(svnAdmin.run(arguments, {}, CheckStatus::yes)).stdoutText(), u"chosen svnadmin x y z\n"_s);
    EXPECT_EQ(svn.displayExecutable(), tree.path(u"bin/svn"_s));
    settings.remove(u"KestorSVN.svnExecutablePath"_s);
    EXPECT_EQ(svn.displayExecutable(), foundBefore);
}

TEST_F(Clients, BadChoiceFailsInsteadOfFallingBack) {
    choose(u"/nowhere/svn"_s);
    EXPECT_EQ(failure(svn), u"Could not launch /nowhere/svn: The file does not exist."_s);
    EXPECT_EQ(failure(svnAdmin), u"(none)"_s);
    choose({});
    EXPECT_EQ(failure(svn), u"(none)"_s);
    EXPECT_EQ(svn.displayExecutable(), QString());
}

TEST_F(Clients, PathIsReadAnewOnEachRun) {
    writeProgram(u"svn"_s, "echo mine");
    writeProgram(u"git"_s, "echo mine");
    const PathVariable path(tree.path().toUtf8() + ":/usr/bin:/bin");
    EXPECT_EQ(awaited(svn.run({}, {}, CheckStatus::yes)).stdoutText(), u"mine\n"_s);
    EXPECT_EQ(svn.displayExecutable(), tree.path(u"svn"_s));
    const QString gone = tree.path(u"gone"_s);
    EXPECT_EQ(failure(git, gone),
              u"Could not launch %1: The folder %2 does not exist."_s.arg(tree.path(u"git"_s), gone));
}

TEST_F(Clients, SvnTakesPathsAndMessagesThatAreNotAscii) {
    const PathVariable path("/usr/bin:/bin");
    const QString repository = tree.path(u"größe.repo"_s);
    const QString url = u"file://"_s + repository;
    const QString copy = tree.path(u"Kopie ä"_s);
    awaited(svnAdmin.run(args("create", repository), {}, CheckStatus::yes));
    awaited(svn.run(args("mkdir", "-m", "größe", url + u"/änderung"_s), {}, CheckStatus::yes));
    awaited(svn.run(args("checkout", url, copy), {}, CheckStatus::yes));
    EXPECT_EQ(tree.entries(u"Kopie ä"_s), args("änderung/"));
    const QString log = awaited(svn.run(args("log"), copy, CheckStatus::yes)).stdoutText();
    EXPECT_TRUE(log.contains(u"\ngröße\n"_s)) << log.toStdString();
}

TEST_F(Clients, GitPrintsNamesUnquotedEvenAgainstTheConfiguration) {
    const PathVariable path("/usr/bin:/bin");
    runTool(u"git"_s, args("init", "-q"), tree.path());
    runTool(u"git"_s, args("config", "core.quotePath", "true"), tree.path());
    tree.write(u"größe ä.txt"_s);
    const QStringList status = args("status", "--porcelain", "--", u"größe ä.txt");
    EXPECT_EQ(awaited(git.run(status, tree.path(), CheckStatus::yes)).stdoutText(), u"?? \"größe ä.txt\"\n"_s);
}

TEST_F(Clients, UncheckedStatusIsAnAnswer) {
    const PathVariable path("/usr/bin:/bin");
    const SVNCommandResult result = awaited(svn.run(args("info"), tree.path(), CheckStatus::no));
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.stderrText().contains(u"is not a working copy"_s)) << result.stderrData.constData();
}

} // namespace
} // namespace kestor

#include "support/awaited.h"
#include "support/temp_tree.h"
#include "support/test.h"
#include "tools/arguments.h"
#include "tools/svn_admin_client.h"
#include "tools/svn_client.h"

#include <QSettings>

namespace kestor {
namespace {

class Clients : public ::testing::Test {
protected:
    QString failure(Tool &tool) {
        try {
            awaited(tool.run(args("--version", "--quiet"), {}, CheckStatus::yes));
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

} // namespace
} // namespace kestor

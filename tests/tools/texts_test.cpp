#include "support/test.h"
#include "tools/arguments.h"
#include "tools/command_result.h"
#include "tools/shell_escaped.h"

namespace kestor {
namespace {

TEST(ShellEscaped, QuotesOnlyWhatAShellWouldRead) {
    const Rows<QStringList, QString> rows{
        {"apostrophe", args("svn", "commit", "-m", "it's done"), uR"(svn commit -m 'it'\''s done')"_s},
        {"plain", args("/usr/bin/svn", "--depth=empty", "a.b-c", "größe@2x", "~%^#,:+"),
         u"/usr/bin/svn --depth=empty a.b-c größe@2x ~%^#,:+"_s},
        {"empty argument leaves two blanks", args("a", "", "b"), u"a  b"_s},
        {"no arguments", {}, {}},
        {"line feed", args("a\nb"), u"'a\nb'"_s},
        {"carriage return stays", args("a\rb"), u"a\rb"_s},
        {"only apostrophes", args("''"), uR"(''\'''\''')"_s},
    };
    for (const auto &[name, arguments, line] : rows)
        EXPECT_EQ(shellEscaped(arguments), line);
    for (const QChar special : u" \t\n\"\\$;&|()<>*?[]{}!"_s)
        EXPECT_EQ(shellEscaped(args(u"x"_s + special)), u"'x"_s + special + u'\'');
}

TEST(ClientError, DescribesAFailedCommand) {
    const Rows<SVNCommandResult, QString> rows{
        {"error text first", {.status = 1, .stdoutData = "out\n", .stderrData = "err\n"}, u"err\n"_s},
        {"output without error text", {.status = 1, .stdoutData = "out"}, u"out"_s},
        {"silent", {.status = 1}, u"Command exited with status 1."_s},
        {"silent signal", {.status = 137}, u"Command exited with status 137."_s},
        {"words stay readable", {.status = 1, .stdoutData = "out", .stderrData = "no \366"}, u"no \uFFFD"_s},
    };
    for (const auto &[name, wantedResult, description] : rows) {
        const SVNClientError error = SVNClientError::commandFailed(wantedResult);
        EXPECT_EQ(error.errorDescription(), description);
        EXPECT_EQ(QString::fromUtf8(error.what()), description);
    }
}

} // namespace
} // namespace kestor

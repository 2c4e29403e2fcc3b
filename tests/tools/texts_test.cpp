#include "support/printers.h"
#include "tools/arguments.h"
#include "tools/command_result.h"
#include "tools/shell_escaped.h"

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

TEST(ShellEscaped, QuotesOnlyWhatAShellWouldRead) {
    struct Row {
        const char *name;
        QStringList arguments;
        QString line;
    };
    const Row rows[] = {
        {"apostrophe", args("svn", "commit", "-m", "it's done"), uR"(svn commit -m 'it'\''s done')"_s},
        {"plain", args("/usr/bin/svn", "--depth=empty", "a.b-c", "größe@2x", "~%^#,:+"),
         u"/usr/bin/svn --depth=empty a.b-c größe@2x ~%^#,:+"_s},
        {"empty argument leaves two blanks", args("a", "", "b"), u"a  b"_s},
        {"no arguments", {}, {}},
        {"line feed", args("a\nb"), u"'a\nb'"_s},
        {"carriage return stays", args("a\rb"), u"a\rb"_s},
        {"only apostrophes", args("''"), uR"(''\'''\''')"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(shellEscaped(row.arguments), row.line);
    }
    for (const QChar special : u" \t\n\"\\$;&|()<>*?[]{}!"_s)
        EXPECT_EQ(shellEscaped(args(u"x"_s + special)), u"'x"_s + special + u'\'');
}

TEST(CommandResult, TextIsStrict) {
    struct Row {
        const char *name;
        QByteArray bytes;
        QString text;
    };
    const Row rows[] = {{"valid", "gr\303\266\303\237e", u"größe"_s},
                        {"Latin-1", "gr\366\337e", {}},
                        {"cut short", "gr\303", {}},
                        {"surrogate", "\355\240\200", {}},
                        {"zero byte", QByteArray("a\0b", 3), u"a\0b"_s}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const SVNCommandResult result{.stdoutData = row.bytes, .stderrData = row.bytes};
        EXPECT_EQ(result.stdoutText(), row.text);
        EXPECT_EQ(result.stderrText(), row.text);
    }
}

TEST(ClientError, DescribesAFailedCommand) {
    struct Row {
        const char *name;
        SVNCommandResult result;
        QString description;
    };
    const Row rows[] = {
        {"error text first", {.status = 1, .stdoutData = "out\n", .stderrData = "err\n"}, u"err\n"_s},
        {"output without error text", {.status = 1, .stdoutData = "out"}, u"out"_s},
        {"silent", {.status = 1}, u"Command exited with status 1."_s},
        {"silent signal", {.status = 137}, u"Command exited with status 137."_s},
        {"words stay readable", {.status = 1, .stdoutData = "out", .stderrData = "no \366"}, u"no \uFFFD"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const SVNClientError error = SVNClientError::commandFailed(row.result);
        EXPECT_EQ(error.errorDescription(), row.description);
        EXPECT_EQ(QString::fromUtf8(error.what()), row.description);
        ASSERT_NE(error.failedResult(), nullptr);
        EXPECT_EQ(*error.failedResult(), row.result);
    }
}

} // namespace
} // namespace kestor

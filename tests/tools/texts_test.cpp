#include "support/test.h"
#include "tools/arguments.h"
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

} // namespace
} // namespace kestor

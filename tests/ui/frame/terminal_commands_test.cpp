#include "support/window_test.h"
#include "ui/frame/terminal_commands.h"

namespace kestor {
namespace {

/// The first commands for a folder with a blank in its name, "_" for blanks.
QString firstCommands(const DesktopEnvironment &environment, qsizetype count) {
    QStringList lines;
    for (const TerminalCommand &command : terminalCommands(environment, u"/my work"_s).first(count))
        lines.append((QStringList(command.program) + command.arguments).join(u'|'));
    return lines.join(u'\n').replace(u' ', u'_').replace(u'\n', u' ');
}

TEST(TerminalCommands, PreferTheDesktopThenTheUserThenTheSystem) {
    const QString always = u"xdg-terminal-exec "_s;
    const Rows<DesktopEnvironment, QString> rows{
        {"nothing is known", {}, always + u"x-terminal-emulator gnome-terminal|--working-directory=/my_work"_s},
        {"the desktop's own", {u"KDE"_s, {}}, always + u"konsole|--workdir|/my_work x-terminal-emulator"_s},
        {"one of several desktop names",
         {u"ubuntu:GNOME"_s, {}},
         always + u"gnome-terminal|--working-directory=/my_work kgx|--working-directory=/my_work"_s},
        {"the user's, by its path",
         {u"unheard-of"_s, u"/opt/bin/kitty"_s},
         always + u"/opt/bin/kitty|--directory|/my_work x-terminal-emulator"_s},
        {"the user's, with arguments and unknown",
         {{}, uR"(myterm --title "a b")"_s},
         always + u"myterm|--title|a_b x-terminal-emulator"_s},
    };
    for (const auto &[name, environment, expected] : rows)
        EXPECT_EQ(firstCommands(environment, expected.count(u' ') + 1), expected);
}

} // namespace
} // namespace kestor

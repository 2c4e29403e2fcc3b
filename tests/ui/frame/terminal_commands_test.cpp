#include "support/printers.h"
#include "ui/frame/terminal_commands.h"

#include <gtest/gtest.h>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

/// The first commands for a folder with a blank in its name, one per line.
QStringList firstCommands(const DesktopEnvironment &environment, qsizetype count) {
    QStringList lines;
    for (const TerminalCommand &command : terminalCommands(environment, u"/my work"_s).first(count))
        lines.append((QStringList(command.program) + command.arguments).join(u'|'));
    return lines;
}

TEST(TerminalCommands, PreferTheDesktopThenTheUserThenTheSystem) {
    struct Row {
        const char *name;
        DesktopEnvironment environment;
        QStringList expected;
    };
    const Row rows[] = {
        {"nothing is known",
         {},
         {u"xdg-terminal-exec"_s, u"x-terminal-emulator"_s, u"gnome-terminal|--working-directory=/my work"_s}},
        {"the desktop's own",
         {u"KDE"_s, {}},
         {u"xdg-terminal-exec"_s, u"konsole|--workdir|/my work"_s, u"x-terminal-emulator"_s}},
        {"one of several desktop names",
         {u"ubuntu:GNOME"_s, {}},
         {u"xdg-terminal-exec"_s, u"gnome-terminal|--working-directory=/my work"_s,
          u"kgx|--working-directory=/my work"_s}},
        {"the user's, by its path",
         {u"unheard-of"_s, u"/opt/bin/kitty"_s},
         {u"xdg-terminal-exec"_s, u"/opt/bin/kitty|--directory|/my work"_s, u"x-terminal-emulator"_s}},
        {"the user's, with arguments and unknown",
         {{}, uR"(myterm --title "a b")"_s},
         {u"xdg-terminal-exec"_s, u"myterm|--title|a b"_s, u"x-terminal-emulator"_s}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(firstCommands(row.environment, row.expected.size()), row.expected);
    }
}

TEST(TerminalCommands, ListEachProgramOnce) {
    QStringList programs;
    for (const TerminalCommand &command : terminalCommands({u"KDE:GNOME"_s, u"konsole"_s}, u"/w"_s))
        programs.append(command.program);
    QStringList once = programs;
    once.removeDuplicates();
    EXPECT_EQ(programs, once);
}

} // namespace
} // namespace kestor

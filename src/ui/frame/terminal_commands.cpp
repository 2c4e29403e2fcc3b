#include "ui/frame/terminal_commands.h"

#include <QFileInfo>
#include <QProcess>

#include <algorithm>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

/// Arguments with "%" where the folder goes, separated by blanks.
struct KnownTerminal {
    QStringView program;
    QStringView arguments;
};

constexpr KnownTerminal knownTerminals[] = {
    {u"gnome-terminal", u"--working-directory=%"},
    {u"kgx", u"--working-directory=%"},
    {u"ptyxis", u"--new-window --working-directory=%"},
    {u"konsole", u"--workdir %"},
    {u"xfce4-terminal", u"--working-directory=%"},
    {u"mate-terminal", u"--working-directory=%"},
    {u"lxterminal", u"--working-directory=%"},
    {u"qterminal", u"--workdir %"},
    {u"io.elementary.terminal", u"--working-directory=%"},
    {u"deepin-terminal", u"--work-directory %"},
    {u"tilix", u"--working-directory=%"},
    {u"terminator", u"--working-directory=%"},
    {u"kitty", u"--directory %"},
    {u"alacritty", u"--working-directory %"},
    {u"foot", u"--working-directory=%"},
    {u"wezterm", u"start --cwd %"},
    {u"urxvt", u"-cd %"},
    {u"xterm", u""},
};

struct DesktopTerminals {
    QStringView desktop;
    QStringView programs; ///< separated by blanks
};

constexpr DesktopTerminals desktopTerminals[] = {
    {u"GNOME", u"gnome-terminal kgx ptyxis"},
    {u"KDE", u"konsole"},
    {u"XFCE", u"xfce4-terminal"},
    {u"MATE", u"mate-terminal"},
    {u"X-Cinnamon", u"gnome-terminal"},
    {u"LXDE", u"lxterminal"},
    {u"LXQt", u"qterminal"},
    {u"Pantheon", u"io.elementary.terminal"},
    {u"Deepin", u"deepin-terminal"},
};

QStringList words(QStringView text) {
    return text.toString().split(u' ', Qt::SkipEmptyParts);
}

/// The arguments that make `program` begin in `directory`; none for a program that is not known.
QStringList directoryArguments(const QString &program, const QString &directory) {
    const QString name = QFileInfo(program).fileName();
    const auto *known = std::ranges::find(knownTerminals, QStringView(name), &KnownTerminal::program);
    if (known == std::end(knownTerminals))
        return {};
    QStringList arguments = words(known->arguments);
    for (QString &argument : arguments)
        argument.replace(u'%', directory);
    return arguments;
}

QStringList terminalsOf(const QString &desktops) {
    QStringList programs;
    for (const QString &desktop : desktops.split(u':', Qt::SkipEmptyParts)) {
        const auto *known = std::ranges::find(desktopTerminals, QStringView(desktop), &DesktopTerminals::desktop);
        if (known != std::end(desktopTerminals))
            programs += words(known->programs);
    }
    return programs;
}

} // namespace

QList<TerminalCommand> terminalCommands(const DesktopEnvironment &environment, const QString &directory) {
    QList<TerminalCommand> commands;
    const auto add = [&commands, &directory](const QString &program, const QStringList &ownArguments) {
        const bool listed = std::ranges::find(commands, program, &TerminalCommand::program) != commands.end();
        if (!listed)
            commands.append({program, ownArguments + directoryArguments(program, directory)});
    };
    add(u"xdg-terminal-exec"_s, {});
    for (const QString &program : terminalsOf(environment.desktops))
        add(program, {});
    const QStringList chosen = QProcess::splitCommand(environment.terminal);
    if (!chosen.isEmpty())
        add(chosen.first(), chosen.mid(1));
    add(u"x-terminal-emulator"_s, {});
    for (const KnownTerminal &known : knownTerminals)
        add(known.program.toString(), {});
    return commands;
}

} // namespace kestor

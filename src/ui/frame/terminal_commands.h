#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace kestor {

/// A terminal program and what makes it begin in a folder.
struct TerminalCommand {
    QString program{};
    QStringList arguments{};

    friend bool operator==(const TerminalCommand &, const TerminalCommand &) = default;
};

/// What is known of the desktop that the window runs on.
struct DesktopEnvironment {
    QString desktops{}; ///< $XDG_CURRENT_DESKTOP, for example "ubuntu:GNOME"
    QString terminal{}; ///< $TERMINAL, a program or a command line
};

/// The terminals to try for `directory`, best first and each once: the standard launcher, the desktop's own, $TERMINAL,
/// the system's alternative, then known programs. The child's working directory has to be set as well, since not every
/// program has an option for it.
QList<TerminalCommand> terminalCommands(const DesktopEnvironment &environment, const QString &directory);

} // namespace kestor

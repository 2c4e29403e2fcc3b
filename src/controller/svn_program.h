#pragma once

#include "controller/workspace.h"

namespace kestor {

/// The `svn` executable itself: which one is used, and command lines that the user types for it. None of it needs a
/// project. Main thread only.
class SvnProgram {
public:
    explicit SvnProgram(Workspace &shared) : workspace(shared) {}

    /// Asks for arguments and runs `svn` with them, in the selected project if there is one.
    QCoro::Task<> runCustomSVNCommand();
    QCoro::Task<> showSVNHelp();
    QCoro::Task<> showSVNVersion();
    /// Lets the user choose the executable. Whether it runs shows with the next command.
    QCoro::Task<> setSVNExecutable();
    /// Forgets the chosen executable.
    QCoro::Task<> useSVNFromPath();

private:
    QCoro::Task<> runTyped(QString line);
    void storeExecutable(const QString &path);

    Workspace &workspace;
};

} // namespace kestor

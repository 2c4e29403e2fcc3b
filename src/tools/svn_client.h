#pragma once

#include "tools/child_process.h"
#include "tools/tool.h"

#include <QSettings>

namespace kestor {

/// Runs `svn`. The executable is looked up afresh on every run: the preference "KestorSVN.svnExecutablePath" as it
/// stands, else PATH, else the usual folders.
class SVNClient final : public Tool {
public:
    /// `settings` must outlive the client.
    explicit SVNClient(QSettings &settings);

    QCoro::Task<SVNCommandResult> run(QStringList arguments, QString directory, CheckStatus check,
                                      RunPurpose purpose = RunPurpose::userCommand) override;
    void stop() override { children.stop(); }
    /// How the executable is named to the user: the preference, else the path found, else "svn from PATH".
    QString displayExecutable() const;

private:
    QSettings &defaults;
    ChildProcesses children;
};

} // namespace kestor

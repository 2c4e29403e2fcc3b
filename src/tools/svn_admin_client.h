#pragma once

#include "tools/child_process.h"
#include "tools/tool.h"

#include <QSettings>

namespace kestor {

/// Runs `svnadmin`: the one beside a chosen `svn` first, else PATH, else the usual folders.
class SVNAdminClient final : public Tool {
public:
    /// `settings` must outlive the client.
    explicit SVNAdminClient(QSettings &settings);

    QCoro::Task<SVNCommandResult> run(QStringList arguments, QString directory, CheckStatus check,
                                      RunPurpose purpose = RunPurpose::userCommand) override;
    void stop() override { children.stop(); }

private:
    QSettings &defaults;
    ChildProcesses children;
};

} // namespace kestor

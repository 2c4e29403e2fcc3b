#pragma once

#include "tools/child_process.h"
#include "tools/tool.h"

namespace kestor {

/// Runs `git` from PATH, else from the usual folders.
class GitClient final : public Tool {
public:
    QCoro::Task<SVNCommandResult> run(QStringList arguments, QString directory, CheckStatus check,
                                      RunPurpose purpose = RunPurpose::userCommand) override;
    void stop() override { children.stop(); }

private:
    ChildProcesses children;
};

} // namespace kestor

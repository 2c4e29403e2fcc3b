#pragma once

#include "tools/tool.h"

namespace kestor {

/// Runs `git` from PATH, else from the usual folders.
class GitClient final : public Tool {
public:
    QCoro::Task<SVNCommandResult> run(QStringList arguments, QString directory, CheckStatus check,
                                      RunPurpose purpose = RunPurpose::userCommand) override;
};

} // namespace kestor

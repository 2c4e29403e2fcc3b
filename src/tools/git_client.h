#pragma once

#include "tools/searched_tool.h"

namespace kestor {

/// Runs `git` from PATH, else from the usual folders.
class GitClient final : public SearchedTool {
private:
    Search search(const QString &directory, RunPurpose purpose) const override;
};

} // namespace kestor

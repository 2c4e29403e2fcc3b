#pragma once

#include "controller/commit_plan.h"
#include "model/project.h"

#include <QString>

#include <optional>

namespace kestor {

/// What the disk says about the ticked rows before a commit.
struct CommitLook {
    CommitRequest request{};           ///< with what only the disk tells
    std::optional<QString> obstacle{}; ///< why the commit must not run, in words for the user
};

/// Looks at the ticked paths of a project. In the way of a commit are a row that is gone according to the tool but on
/// disk again, since it would be deleted or added, a conflict of Git's whose markers are still in the file, what lies
/// in a repository of its own, since the tools would take it for that one's, and a deletion that Git commits only with
/// more than is ticked. Reads the disk; workers.
CommitLook lookAtTickedPaths(const CommitRequest &ticked, const Project &project);

} // namespace kestor

#pragma once

#include <QString>

namespace kestor {

/// One branch of a Git repository. Identified by `name`.
struct GitBranch {
    QString name{};         ///< short name, for example "main" or "origin/main"
    bool isCurrent = false; ///< checked out
    bool isRemote = false;  ///< remote-tracking

    friend bool operator==(const GitBranch &, const GitBranch &) = default;
};

} // namespace kestor

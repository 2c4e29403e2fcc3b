#pragma once

#include <QString>

namespace kestor {

/// The branch that a Git repository shall switch to.
struct SwitchTarget {
    QString name{};        ///< short name, for example "main" or "origin/main"
    bool isRemote = false; ///< a remote-tracking branch

    friend bool operator==(const SwitchTarget &, const SwitchTarget &) = default;
};

} // namespace kestor

#pragma once

#include "tools/child_process.h"
#include "tools/started_child.h"

#include <memory>

namespace kestor {

/// A child that already works while this process is on the way to its event loop; what it prints is kept until its end.
/// One that nobody waits for is killed, so it must be one that only looks. Started on any thread, otherwise main thread
/// only.
class EarlyChild : public StartedChild {
public:
    /// Needs no event loop. Nothing where it cannot be started or the system has no such way: the ordinary run, which
    /// comes later, tells why.
    static std::unique_ptr<EarlyChild> start(const ChildCommand &command);

    /// Whether it is what `command` asks for, by whatever environment.
    virtual bool isRunOf(const ChildCommand &command) const = 0;
    /// Needs the event loop, which completes `end` from now on.
    virtual void watch() = 0;
};

} // namespace kestor

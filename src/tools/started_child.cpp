#include "tools/started_child.h"

#include <csignal>

namespace kestor {

namespace {

constexpr int cleanUpMilliseconds = 1000;

} // namespace

void StartedChild::askToEnd() {
    stopped = true;
    cleanUp.setRemainingTime(cleanUpMilliseconds);
    const auto process = static_cast<pid_t>(id());
    // To the whole group, as Ctrl+C in a terminal would: a tool's own children end with it. Right after its start the
    // child may have none yet.
    if (process > 0 && ::kill(-process, SIGTERM) != 0)
        ::kill(process, SIGTERM);
}

void StartedChild::kill() const {
    ::kill(-static_cast<pid_t>(id()), SIGKILL);
}

} // namespace kestor

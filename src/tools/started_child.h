#pragma once

#include "tools/command_result.h"
#include "tools/completion.h"
#include "tools/running.h"

#include <QDeadlineTimer>

namespace kestor {

/// A child process that was started in a session of its own and whose end one coroutine waits for.
class StartedChild : public Stoppable {
public:
    void askToEnd() final;
    void endWait() final { end.complete(); }
    bool wasStopped() const { return stopped; }
    /// Why it did not start after all, in the system's words; "" when it did.
    virtual QString launchError() const { return {}; }
    /// To be called once, after its end.
    virtual SVNCommandResult takeResult() = 0;

    Completion end;

protected:
    /// What is added to the number of a signal that ended it.
    static constexpr int signalStatusBase = 128;

    /// Of the process, 0 when there is none.
    virtual qint64 id() const = 0;
    /// What is left of the time to clean up that one has who was asked to end, in milliseconds; else 0.
    int cleanUpTime() const { return static_cast<int>(cleanUp.remainingTime()); }
    /// Kills it and whatever it has started.
    void kill() const;

private:
    bool stopped = false;
    QDeadlineTimer cleanUp{};
};

} // namespace kestor

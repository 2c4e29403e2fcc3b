#pragma once

#include "tools/command_result.h"
#include "tools/running.h"
#include "tools/tool.h"

#include <QCoroTask>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <future>
#include <memory>

namespace kestor {

class EarlyChild;
class StartedChild;

/// What to start, and how.
struct ChildCommand {
    QString executable{};  ///< a path; PATH is not searched
    QString displayName{}; ///< how a failure names the executable
    QStringList arguments{};
    QString directory{}; ///< the working directory, "" for this process's own
    QProcessEnvironment environment{};
    OutputReader reader{}; ///< as for Tool::runReading
};

/// The child processes of one tool. Each runs in a session of its own, so that nothing in it can prompt on a terminal;
/// standard input is inherited. No thread waits for a child. Main thread only.
class ChildProcesses {
public:
    ChildProcesses();
    ~ChildProcesses();
    Q_DISABLE_COPY_MOVE(ChildProcesses)

    /// As Tool::begin.
    void begin(const ChildCommand &command);
    /// Starts a child and waits for its end; both its outputs are read completely. Throws as Tool::run does, with
    /// "Could not launch NAME: REASON" when it does not start.
    QCoro::Task<SVNCommandResult> run(ChildCommand command, CheckStatus check);
    /// Ends all children as Tool::stop describes; so does the destructor.
    void stop() { running.stop(); }

private:
    std::unique_ptr<StartedChild> started(const ChildCommand &command);

    std::future<std::unique_ptr<EarlyChild>> begun; ///< for the first run
    Running running;
};

} // namespace kestor

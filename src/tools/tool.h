#pragma once

#include "tools/command_result.h"

#include <QByteArrayView>
#include <QCoroTask>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace kestor {

/// Whether a non-zero exit status is an error.
enum class CheckStatus : std::uint8_t { no, yes };

/// Who asked for the run, and of what. A background read must not get into the way of the user's own commands in a
/// terminal: Git then takes no optional locks. Only a repository search finds a Git repository that begins in a folder
/// above the working directory; every other run would act on what is not the project's.
enum class RunPurpose : std::uint8_t { userCommand, backgroundRead, repositorySearch };

/// Gets what a tool has written since the last call. It must not end the run.
using OutputReader = std::function<void(QByteArrayView written)>;

/// A command-line tool that runs as a child process. Main thread only; runs are independent and may overlap.
class Tool {
public:
    Tool() = default;
    virtual ~Tool() = default;
    Q_DISABLE_COPY_MOVE(Tool)

    /// Starts at once, also before there is an event loop, what the first run() will ask for; a first run that asks for
    /// something else drops it. Only for what looks and changes nothing. Where it cannot start, or a tool has no way
    /// to, nothing is told and the run begins when it is asked for.
    virtual void begin(const QStringList & /*arguments*/, const QString & /*directory*/, RunPurpose /*purpose*/) {}

    /// Runs the tool and waits for its end without blocking the thread. `directory` is the child's working directory,
    /// "" for this process's own. Throws SVNClientError when the tool cannot be started or, with CheckStatus::yes, when
    /// it exits non-zero. There is no time-out.
    virtual QCoro::Task<SVNCommandResult> run(QStringList arguments, QString directory, CheckStatus check,
                                              RunPurpose purpose = RunPurpose::userCommand) = 0;

    /// The same with CheckStatus::no, for output that is read while the tool writes it: `reader` gets the beginning of
    /// standard output piece by piece, of which the result still has all. A tool may as well give none of it early.
    virtual QCoro::Task<SVNCommandResult> runReading(QStringList arguments, QString directory, RunPurpose purpose,
                                                     OutputReader reader);

    /// For closing: asks every running child to end (SIGTERM, so that it removes its locks) without waiting for it.
    /// Whoever awaits a run has resumed with a launchFailed error before this returns, and so does every later run
    /// at once. An owner whose workflows use its members calls this first in its destructor.
    virtual void stop() {}
};

inline QCoro::Task<SVNCommandResult> Tool::runReading(QStringList arguments, QString directory, RunPurpose purpose,
                                                      OutputReader /*reader*/) {
    return run(std::move(arguments), std::move(directory), CheckStatus::no, purpose);
}

} // namespace kestor

#include "tools/child_process.h"

#include "tools/early_child.h"
#include "tools/shell_escaped.h"
#include "tools/started_child.h"

#include <QFileInfo>
#include <QProcess>

#include <algorithm>
#include <csignal>
#include <unistd.h>
#include <utility>

namespace kestor {
namespace {

using namespace Qt::StringLiterals;

SVNClientError couldNotLaunch(const QString &displayName, const QString &reason) {
    return SVNClientError::launchFailed(u"Could not launch %1: %2"_s.arg(displayName, reason));
}

/// Why the child cannot start, in words clearer than the system's; "" when nothing is seen to be in its way.
QString launchObstacle(const ChildCommand &command) {
    const QFileInfo executable(command.executable);
    if (!executable.exists())
        return u"The file does not exist."_s;
    if (executable.isDir())
        return u"It is a folder, not a program."_s;
    if (!executable.isExecutable())
        return u"The file is not executable."_s;
    const auto holdsNull = [](const QString &argument) {
        return argument.contains(QChar::Null);
    };
    if (std::ranges::any_of(command.arguments, holdsNull))
        return u"An argument contains a NUL character, which no program can be given."_s;
    if (command.directory.isEmpty())
        return {};
    const QFileInfo directory(command.directory);
    if (!directory.exists())
        return u"The folder %1 does not exist."_s.arg(command.directory);
    if (!directory.isDir())
        return u"%1 is not a folder."_s.arg(command.directory);
    if (!directory.isExecutable())
        return u"The folder %1 cannot be opened."_s.arg(command.directory);
    return {};
}

/// Appending alone would copy what is there into each larger block, which for a long output takes too long.
void appendTo(QByteArray &output, const QByteArray &read) {
    const qsizetype size = output.size() + read.size();
    if (size > output.capacity())
        output.reserve(std::max(size, 2 * output.capacity()));
    output.append(read);
}

/// One started child. Lives in the frame of the coroutine that waits for its end.
class Child final : public QProcess, public StartedChild {
public:
    explicit Child(const ChildCommand &command);
    ~Child() override;
    Q_DISABLE_COPY_MOVE(Child)

    QString launchError() const override;
    SVNCommandResult takeResult() override;

private:
    qint64 id() const override { return processId(); }
    void connectSignals();

    SVNCommandResult result;
    OutputReader reader;
    bool startError = false;
};

Child::Child(const ChildCommand &command) : reader(command.reader) {
    result.commandLine = shellEscaped(QStringList(command.executable) + command.arguments);
    // An absolute path, because QProcess looks up a bare name in PATH and the child starts in another folder.
    setProgram(QFileInfo(command.executable).absoluteFilePath());
    setArguments(command.arguments);
    setWorkingDirectory(command.directory);
    setProcessEnvironment(command.environment);
    // Without a terminal of its own svn would ask for passwords on standard input, where nobody sees the question.
    if (::isatty(STDIN_FILENO) != 0)
        setStandardInputFile(nullDevice());
    else
        setInputChannelMode(ForwardedInputChannel);
    setChildProcessModifier([] { ::setsid(); });
    connectSignals();
    start(ReadOnly);
}

/// A child that still runs was asked to end. svn never hears of that while it waits for a silent server.
Child::~Child() {
    if (id() > 0 && !waitForFinished(cleanUpTime()))
        StartedChild::kill();
    setProcessState(NotRunning); // QProcess would wait longer
}

void Child::connectSignals() {
    connect(this, &QProcess::readyReadStandardOutput, this, [this] {
        const QByteArray read = readAllStandardOutput();
        appendTo(result.stdoutData, read);
        if (reader)
            reader(read);
    });
    connect(this, &QProcess::readyReadStandardError, this,
            [this] { appendTo(result.stderrData, readAllStandardError()); });
    connect(this, &QProcess::errorOccurred, this,
            [this](ProcessError error) { startError = startError || error == FailedToStart; });
    // Queued: what waits for the end destroys this object, which must not happen inside QProcess's own functions.
    connect(
        this, &QProcess::stateChanged, this,
        [this](ProcessState state) {
            if (state == NotRunning)
                end.complete();
        },
        Qt::QueuedConnection);
}

/// QProcess puts the name of the system call before the system's words.
QString Child::launchError() const {
    return startError ? errorString().section(u": "_s, -1) : QString();
}

SVNCommandResult Child::takeResult() {
    result.stdoutData.append(readAllStandardOutput());
    result.stderrData.append(readAllStandardError());
    result.stdoutData.squeeze(); // what grew to the next power of two may be half empty
    result.status = exitStatus() == CrashExit ? signalStatusBase + exitCode() : exitCode();
    return std::move(result);
}

} // namespace

ChildProcesses::ChildProcesses() = default;
ChildProcesses::~ChildProcesses() = default;

void ChildProcesses::begin(const ChildCommand &command) {
    // A folder that a slow network has to bring first shall not hold up the window.
    begun = std::async(std::launch::async,
                       [command] { return launchObstacle(command).isEmpty() ? EarlyChild::start(command) : nullptr; });
}

std::unique_ptr<StartedChild> ChildProcesses::started(const ChildCommand &command) {
    std::unique_ptr<EarlyChild> early = begun.valid() ? begun.get() : nullptr;
    if (early && early->isRunOf(command)) {
        early->watch();
        return early;
    }
    return std::make_unique<Child>(command);
}

QCoro::Task<SVNCommandResult> ChildProcesses::run(ChildCommand command, CheckStatus check) {
    if (running.isStopped())
        throw couldNotLaunch(command.displayName, u"The application is closing."_s);
    if (const QString obstacle = launchObstacle(command); !obstacle.isEmpty())
        throw couldNotLaunch(command.displayName, obstacle);

    const std::unique_ptr<StartedChild> child = started(command);
    const Running::Entry entry(running, child.get());
    co_await child->end;
    if (child->wasStopped())
        throw SVNClientError::launchFailed(u"%1 was stopped: The application is closing."_s.arg(command.displayName));
    if (const QString error = child->launchError(); !error.isEmpty())
        throw couldNotLaunch(command.displayName, error);
    SVNCommandResult result = child->takeResult();
    if (check == CheckStatus::yes && result.status != 0)
        throw SVNClientError::commandFailed(std::move(result));
    co_return result;
}

} // namespace kestor

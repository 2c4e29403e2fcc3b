#include "tools/early_child.h"

#ifdef Q_OS_LINUX
#include "tools/shell_escaped.h"

#include <QFile>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>
#endif

namespace kestor {

#ifdef Q_OS_LINUX

namespace {

/// What a killed child may need to be gone, in milliseconds.
constexpr int deathTime = 10;

/// A file in memory, which never makes its writer wait.
class MemoryFile {
public:
    explicit MemoryFile(const char *name) : descriptor(::memfd_create(name, MFD_CLOEXEC)) {}
    ~MemoryFile() {
        if (descriptor >= 0)
            ::close(descriptor);
    }
    Q_DISABLE_COPY_MOVE(MemoryFile)

    bool isOpen() const { return descriptor >= 0; }
    int number() const { return descriptor; }
    QByteArray contents() const;

private:
    int descriptor;
};

QByteArray MemoryFile::contents() const {
    struct stat file {};
    if (::fstat(descriptor, &file) != 0)
        return {};
    QByteArray read(file.st_size, Qt::Uninitialized);
    qsizetype size = 0;
    while (size < read.size()) {
        const ssize_t piece =
            ::pread(descriptor, read.data() + size, static_cast<size_t>(read.size() - size), static_cast<off_t>(size));
        if (piece < 0 && errno == EINTR)
            continue;
        if (piece <= 0)
            break;
        size += piece;
    }
    read.truncate(size);
    return read;
}

/// Texts as a program is given them: pointers that end with a null.
class Words {
public:
    explicit Words(const QStringList &texts) {
        for (const QString &text : texts)
            bytes.push_back(QFile::encodeName(text));
        for (QByteArray &word : bytes)
            pointers.push_back(word.data());
        pointers.push_back(nullptr);
    }
    char *const *data() const { return pointers.data(); }

private:
    std::vector<QByteArray> bytes{};
    std::vector<char *> pointers{};
};

/// How a child begins.
class SpawnPlan {
public:
    SpawnPlan() {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attributes);
    }
    ~SpawnPlan() {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    Q_DISABLE_COPY_MOVE(SpawnPlan)

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

/// The id of the process, 0 when it could not be started.
pid_t spawned(const ChildCommand &command, const MemoryFile &output, const MemoryFile &errors) {
    if (!output.isOpen() || !errors.isOpen())
        return 0;
    SpawnPlan plan;
    posix_spawnattr_setflags(&plan.attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF);
    sigset_t reset;
    sigemptyset(&reset);
    sigaddset(&reset, SIGPIPE);
    posix_spawnattr_setsigdefault(&plan.attributes, &reset);
    if (::isatty(STDIN_FILENO) != 0)
        posix_spawn_file_actions_addopen(&plan.actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&plan.actions, output.number(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&plan.actions, errors.number(), STDERR_FILENO);
    if (!command.directory.isEmpty())
        posix_spawn_file_actions_addchdir_np(&plan.actions, QFile::encodeName(command.directory).constData());
    const Words arguments(QStringList(command.executable) + command.arguments);
    const Words environment(command.environment.toStringList());
    pid_t process = 0;
    const int error = ::posix_spawn(&process, arguments.data()[0], &plan.actions, &plan.attributes, arguments.data(),
                                    environment.data());
    return error == 0 ? process : 0;
}

/// A descriptor that becomes readable when the process ends, negative when there can be none.
int endOf(pid_t process) {
    return static_cast<int>(::syscall(SYS_pidfd_open, process, 0)); // some C libraries declare it for C alone
}

class SpawnedChild final : public EarlyChild {
public:
    explicit SpawnedChild(ChildCommand command)
        : asked(std::move(command)), process(spawned(asked, output, errors)), ended(process > 0 ? endOf(process) : -1) {
    }
    ~SpawnedChild() override;
    Q_DISABLE_COPY_MOVE(SpawnedChild)

    bool isUp() const { return ended >= 0; }
    bool isRunOf(const ChildCommand &command) const override;
    void watch() override;
    SVNCommandResult takeResult() override;

private:
    qint64 id() const override { return process; }
    bool hasEndedWithin(int milliseconds) const;
    int exitStatus();

    ChildCommand asked;
    MemoryFile output{"output"};
    MemoryFile errors{"errors"};
    pid_t process; ///< 0 once it is gone for good
    int ended;     ///< as endOf() gives it
    std::optional<QSocketNotifier> notifier{};
};

SpawnedChild::~SpawnedChild() {
    notifier.reset();
    if (process > 0) {
        if (!hasEndedWithin(cleanUpTime())) {
            kill();
            hasEndedWithin(deathTime);
        }
        ::waitpid(process, nullptr, WNOHANG);
    }
    if (ended >= 0)
        ::close(ended);
}

bool SpawnedChild::hasEndedWithin(int milliseconds) const {
    pollfd readable{ended, POLLIN, 0};
    return ::poll(&readable, 1, milliseconds) > 0;
}

bool SpawnedChild::isRunOf(const ChildCommand &command) const {
    return !command.reader && command.executable == asked.executable && command.arguments == asked.arguments &&
           command.directory == asked.directory;
}

void SpawnedChild::watch() {
    notifier.emplace(ended, QSocketNotifier::Read);
    // Queued: what waits for the end destroys the notifier.
    QObject::connect(
        &*notifier, &QSocketNotifier::activated, &*notifier, [this] { end.complete(); }, Qt::QueuedConnection);
}

int SpawnedChild::exitStatus() {
    siginfo_t told{};
    if (::waitid(P_PIDFD, static_cast<id_t>(ended), &told, WEXITED) != 0)
        return -1;
    return told.si_code == CLD_EXITED ? told.si_status : signalStatusBase + told.si_status;
}

SVNCommandResult SpawnedChild::takeResult() {
    const int status = exitStatus();
    process = 0;
    return {shellEscaped(QStringList(asked.executable) + asked.arguments), status, output.contents(),
            errors.contents()};
}

} // namespace

std::unique_ptr<EarlyChild> EarlyChild::start(const ChildCommand &command) {
    // Bytes of the environment that are not UTF-8 would arrive changed.
    const bool isText = !command.environment.toStringList().join(u'\n').contains(QChar::ReplacementCharacter);
    if (!isText)
        return nullptr;
    auto child = std::make_unique<SpawnedChild>(command);
    return child->isUp() ? std::move(child) : nullptr;
}

#else

std::unique_ptr<EarlyChild> EarlyChild::start(const ChildCommand & /*command*/) {
    return nullptr;
}

#endif

} // namespace kestor

#include "ui/start/instance_start.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace kestor {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr std::chrono::milliseconds betweenTries = 10ms;
constexpr QIODevice::OpenMode openMode = QIODevice::ReadWrite | QIODevice::Unbuffered;
/// Nobody else may hold the lock.
constexpr QFileDevice::Permissions ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

/// The path of a socket in `folder` that belongs to this lock file and no other, whatever else has its name elsewhere.
QByteArray socketPathFor(const QFile &lockFile, const QString &folder) {
    struct stat entry {};
    if (folder.isEmpty() || ::fstat(lockFile.handle(), &entry) != 0)
        return {};
    const QByteArray identity = QByteArray::number(entry.st_dev) + ':' + QByteArray::number(entry.st_ino);
    const QByteArray name = QCryptographicHash::hash(identity, QCryptographicHash::Sha1).toHex().left(16);
    return QFile::encodeName(folder) + "/kestorsvn-" + name;
}

} // namespace

InstanceStart::InstanceStart(const QString &preferencesFile, OpenRequest request) : asked(std::move(request)) {
    const QFileInfo preferences(preferencesFile);
    QDir().mkpath(preferences.path());
    lockFile.setFileName(preferences.path() + u'/' + preferences.completeBaseName() + u".lock"_s);
}

InstanceStart::~InstanceStart() {
    if (server.isOpen())
        ::unlink(socketPath.constData());
}

InstanceStart::Outcome InstanceStart::tryFor(std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    for (;;) {
        const Lock lock = takeLock();
        if (lock == Lock::taken)
            listen();
        if (lock != Lock::elsewhere)
            return Outcome::first;
        if (handOver())
            return Outcome::handedOver;
        if (deadline.hasExpired())
            return Outcome::unanswered;
        pauseFor(betweenTries);
    }
}

InstanceStart::Lock InstanceStart::takeLock() {
    if (!lockFile.isOpen() && !lockFile.open(openMode, ownerOnly))
        return Lock::impossible;
    if (::flock(lockFile.handle(), LOCK_EX | LOCK_NB) == 0)
        return Lock::taken;
    return errno == EWOULDBLOCK || errno == EINTR ? Lock::elsewhere : Lock::impossible;
}

void InstanceStart::listen() {
    first.reset();
    const QString folders[] = {qEnvironmentVariable("XDG_RUNTIME_DIR"), QFileInfo(lockFile).path(), QDir::tempPath()};
    for (const QString &folder : folders) {
        socketPath = socketPathFor(lockFile, folder);
        server = listenAt(socketPath);
        if (server.isOpen())
            break;
    }
    lockFile.resize(0);
    lockFile.seek(0);
    lockFile.write(server.isOpen() ? socketPath : QByteArray());
}

/// One step of it: whether the first one has now taken the request.
bool InstanceStart::handOver() {
    if (!first.isOpen()) {
        lockFile.seek(0);
        first = connectTo(lockFile.readAll());
        unsent = encoded(asked);
    }
    if (!first.isOpen())
        return false;
    const qsizetype sent = sendSome(first, unsent);
    unsent.remove(0, std::max<qsizetype>(sent, 0));
    const Received answer = receiveSome(first);
    if (!answer.data.isEmpty())
        return true;
    if (sent < 0 || answer.ended)
        first.reset();
    return false;
}

/// Less when something can be sent or has come.
void InstanceStart::pauseFor(std::chrono::milliseconds time) {
    const short wanted = unsent.isEmpty() ? POLLIN : POLLIN | POLLOUT;
    pollfd connection{first.get(), wanted, 0};
    ::poll(&connection, 1, static_cast<int>(time.count()));
}

} // namespace kestor

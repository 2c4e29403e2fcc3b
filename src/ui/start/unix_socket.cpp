#include "ui/start/unix_socket.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace kestor {

namespace {

#ifdef MSG_NOSIGNAL
constexpr int sendFlags = MSG_NOSIGNAL;
#else
constexpr int sendFlags = 0;
#endif

FileDescriptor prepared(FileDescriptor socket) {
    if (!socket.isOpen())
        return socket;
    ::fcntl(socket.get(), F_SETFD, FD_CLOEXEC);
    ::fcntl(socket.get(), F_SETFL, O_NONBLOCK);
#ifdef SO_NOSIGPIPE
    const int on = 1;
    ::setsockopt(socket.get(), SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on);
#endif
    return socket;
}

FileDescriptor newSocket() {
    return prepared(FileDescriptor(::socket(AF_UNIX, SOCK_STREAM, 0)));
}

/// Calls `use` (bind or connect) with the path as an address.
template <typename Use>
bool withAddress(const QByteArray &path, Use use) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path)
        return false;
    std::ranges::copy(path, std::begin(address.sun_path));
    return use(reinterpret_cast<const sockaddr *>(&address), socklen_t(sizeof address)) == 0;
}

bool isOfThisUser(const FileDescriptor &socket) {
#ifdef SO_PEERCRED
    ucred other{};
    socklen_t size = sizeof other;
    return ::getsockopt(socket.get(), SOL_SOCKET, SO_PEERCRED, &other, &size) == 0 && other.uid == ::geteuid();
#else
    uid_t user = 0;
    gid_t group = 0;
    return ::getpeereid(socket.get(), &user, &group) == 0 && user == ::geteuid();
#endif
}

bool wouldWait() {
    return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
}

} // namespace

FileDescriptor listenAt(const QByteArray &path) {
    FileDescriptor socket = newSocket();
    ::unlink(path.constData());
    const auto bindTo = [&socket](const sockaddr *address, socklen_t size) {
        return ::bind(socket.get(), address, size);
    };
    if (!withAddress(path, bindTo) || ::listen(socket.get(), SOMAXCONN) != 0)
        return FileDescriptor();
    return socket;
}

FileDescriptor connectTo(const QByteArray &path) {
    FileDescriptor socket = newSocket();
    const auto connectWith = [&socket](const sockaddr *address, socklen_t size) {
        return ::connect(socket.get(), address, size);
    };
    if (!withAddress(path, connectWith) || !isOfThisUser(socket))
        return FileDescriptor();
    return socket;
}

FileDescriptor acceptFrom(const FileDescriptor &listening) {
    FileDescriptor socket = prepared(FileDescriptor(::accept(listening.get(), nullptr, nullptr)));
    return socket.isOpen() && isOfThisUser(socket) ? std::move(socket) : FileDescriptor();
}

qsizetype sendSome(const FileDescriptor &socket, QByteArrayView data) {
    const ssize_t sent = ::send(socket.get(), data.data(), static_cast<std::size_t>(data.size()), sendFlags);
    return sent < 0 && wouldWait() ? 0 : sent;
}

bool isHungUp(const FileDescriptor &socket) {
    pollfd connection{socket.get(), 0, 0};
    return ::poll(&connection, 1, 0) > 0 && (connection.revents & (POLLHUP | POLLERR)) != 0;
}

Received receiveSome(const FileDescriptor &socket) {
    constexpr qsizetype most = 64 * 1024;
    QByteArray data(most, Qt::Uninitialized);
    const ssize_t received = ::recv(socket.get(), data.data(), static_cast<std::size_t>(most), 0);
    data.resize(std::max<qsizetype>(received, 0));
    return {data, received == 0 || (received < 0 && !wouldWait())};
}

} // namespace kestor

#pragma once

#include <QByteArray>

#include <unistd.h>
#include <utility>

namespace kestor {

/// An open file descriptor, closed with the object; -1 for none.
class FileDescriptor {
public:
    explicit FileDescriptor(int owned = -1) : number(owned) {}
    ~FileDescriptor() { reset(); }
    FileDescriptor(FileDescriptor &&other) noexcept : number(std::exchange(other.number, -1)) {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept {
        std::swap(number, other.number);
        return *this;
    }
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;

    bool isOpen() const { return number >= 0; }
    int get() const { return number; }
    void reset() {
        if (isOpen())
            ::close(number);
        number = -1;
    }

private:
    int number;
};

// Local stream sockets that never wait and that programs started later do not inherit. Qt's own would do; but loading
// Qt Network takes longer than the rest of what happens before the window.

/// Listens at the path (as the system encodes it), in place of what lies there. None when that is not possible, as
/// where the path is longer than about 100 bytes.
FileDescriptor listenAt(const QByteArray &path);
/// None when nobody listens there, or somebody of another user does.
FileDescriptor connectTo(const QByteArray &path);
/// The next one who connected. None when nobody waits; somebody of another user is turned away.
FileDescriptor acceptFrom(const FileDescriptor &listening);

/// Sends what fits; the number of bytes sent, -1 when nobody reads any more.
qsizetype sendSome(const FileDescriptor &socket, QByteArrayView data);

/// Whether the other one has gone, so that nobody reads an answer. What it sent before can still be received.
bool isHungUp(const FileDescriptor &socket);

struct Received {
    QByteArray data{};
    bool ended = false; ///< nothing more will come
};
/// What has arrived, up to 64 KiB.
Received receiveSome(const FileDescriptor &socket);

} // namespace kestor

#pragma once

#include "ui/start/open_request.h"
#include "ui/start/unix_socket.h"

#include <QFile>

#include <chrono>
#include <cstdint>

namespace kestor {

/// One start of the program among others with the same preferences: the first keeps them locked for its life, so that
/// no two windows write them, and the others hand it what they were asked to open. The lock is the file
/// "KestorSVN.lock" beside the preferences, which ends with its process however that ends; in it stands where the first
/// one listens. Needs no application object.
class InstanceStart {
public:
    enum class Outcome : std::uint8_t {
        first,      ///< the preferences are this process's, or nothing can be locked or kept there at all
        handedOver, ///< the first one has taken the request: nothing is left to do
        unanswered, ///< there is a first one, which has not answered yet
    };

    /// Creates the folder of the preferences where it is missing.
    InstanceStart(const QString &preferencesFile, OpenRequest request);
    ~InstanceStart();
    Q_DISABLE_COPY_MOVE(InstanceStart)

    /// Tries for so long at most, once in any case. To be called again after `unanswered`: the first one may still
    /// answer, or end and leave its place to this process.
    Outcome tryFor(std::chrono::milliseconds patience);

    const OpenRequest &request() const { return asked; }
    /// Where others connect; none unless this process is the first, nor where there is no place for a socket.
    const FileDescriptor &listening() const { return server; }

private:
    enum class Lock : std::uint8_t { taken, impossible, elsewhere };

    Lock takeLock();
    void listen();
    bool handOver();
    void pauseFor(std::chrono::milliseconds time);

    QFile lockFile;
    OpenRequest asked;
    QByteArray socketPath{}; ///< of `server`
    FileDescriptor server{};
    FileDescriptor first{}; ///< connected to the first one
    QByteArray unsent{};
};

} // namespace kestor

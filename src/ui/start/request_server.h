#pragma once

#include "ui/start/open_request.h"
#include "ui/start/unix_socket.h"

#include <QObject>
#include <QSocketNotifier>

#include <functional>

namespace kestor {

/// Takes the requests of later starts in the event loop of its thread. Whoever connects has a few seconds to say a
/// whole request; half of one is nothing, nor is one whose sender hung up before it was taken.
class RequestServer final : public QObject {
    Q_OBJECT

public:
    /// Says whether the request has been taken; only then its sender hears so.
    using Take = std::function<bool(const OpenRequest &)>;

    /// `listening` must outlive the server; it need not be open.
    RequestServer(const FileDescriptor &listening, Take take);

private:
    void acceptNext();

    const FileDescriptor &listening;
    Take take;
    QSocketNotifier arrivals{QSocketNotifier::Read};
};

} // namespace kestor

#include "ui/start/request_server.h"

#include <QTimer>

#include <chrono>

namespace kestor {

using namespace std::chrono_literals;

namespace {

/// More than any system hands to a program as its arguments.
constexpr qsizetype longestMessage = 64 * 1024 * 1024;

/// One who connected. Ends itself when it has its answer, hangs up or takes too long.
class Caller final : public QObject {
public:
    Caller(FileDescriptor connection, const RequestServer::Take &takeRequest, QObject *parent)
        : QObject(parent), socket(std::move(connection)), take(takeRequest) {
        connect(&notifier, &QSocketNotifier::activated, this, &Caller::read);
        notifier.setSocket(socket.get());
        notifier.setEnabled(true);
        QTimer::singleShot(5s, this, &Caller::end);
    }

private:
    void read() {
        const Received received = receiveSome(socket);
        message += received.data;
        const std::optional<OpenRequest> request = decodedRequest(message);
        // Who gave up waiting for this thread wants nothing any more.
        if (request && !isHungUp(socket) && take(*request))
            sendSome(socket, "1");
        if (request || received.ended || message.size() > longestMessage)
            end();
    }
    void end() {
        notifier.setEnabled(false);
        socket.reset();
        deleteLater();
    }

    FileDescriptor socket;
    const RequestServer::Take &take;
    QSocketNotifier notifier{QSocketNotifier::Read};
    QByteArray message{};
};

} // namespace

RequestServer::RequestServer(const FileDescriptor &listeningSocket, Take takeRequest)
    : listening(listeningSocket), take(std::move(takeRequest)) {
    connect(&arrivals, &QSocketNotifier::activated, this, &RequestServer::acceptNext);
    if (!listening.isOpen())
        return;
    arrivals.setSocket(listening.get());
    arrivals.setEnabled(true);
}

void RequestServer::acceptNext() {
    FileDescriptor caller = acceptFrom(listening);
    if (caller.isOpen())
        new Caller(std::move(caller), take, this);
}

} // namespace kestor

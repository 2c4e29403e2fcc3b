#include "ui/frame/session_bus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QPointer>
#include <QPromise>
#include <QThreadPool>

#include <memory>

namespace kestor {

using namespace Qt::StringLiterals;

namespace {

/// Whether a bus is running. The library, asked for one that is not, would start a bus of its own.
bool hasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/bus"_s);
}

using Answer = std::optional<QVariantList>;

void finishWith(QPromise<Answer> &promise, const Answer &answer) {
    promise.addResult(answer);
    promise.finish();
}

void sendCall(const QDBusMessage &call, const std::shared_ptr<QPromise<Answer>> &promise) {
    const QDBusPendingCall pending = QDBusConnection::sessionBus().asyncCall(call);
    auto *watcher = new QDBusPendingCallWatcher(pending, QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [promise, watcher] {
        const QDBusMessage reply = watcher->reply();
        const bool answered = reply.type() == QDBusMessage::ReplyMessage;
        finishWith(*promise, answered ? Answer(reply.arguments()) : std::nullopt);
        watcher->deleteLater();
    });
}

} // namespace

void withSessionBus(QObject *context, std::function<void(bool connected)> use) {
    QThreadPool::globalInstance()->start([guard = QPointer<QObject>(context), use = std::move(use)] {
        const bool connected = hasSessionBus() && QDBusConnection::sessionBus().isConnected();
        const auto report = [guard, use, connected] {
            if (guard)
                use(connected);
        };
        QMetaObject::invokeMethod(QCoreApplication::instance(), report, Qt::QueuedConnection);
    });
}

QFuture<Answer> callSessionBus(const QDBusMessage &call) {
    auto promise = std::make_shared<QPromise<Answer>>();
    promise->start();
    withSessionBus(QCoreApplication::instance(), [promise, call](bool connected) {
        if (connected) {
            sendCall(call, promise);
        } else {
            finishWith(*promise, std::nullopt);
        }
    });
    return promise->future();
}

} // namespace kestor

#pragma once

#include <QDBusMessage>
#include <QFuture>
#include <QVariantList>

#include <functional>
#include <optional>

class QObject;

namespace kestor {

/// Calls `use` on the main thread once the session bus is connected, with whether there is one. Connecting happens on a
/// worker, so a bus that does not answer holds nothing up. Not called when `context` is gone by then.
void withSessionBus(QObject *context, std::function<void(bool connected)> use);

/// The arguments of the answer to a method call on the session bus; nothing when there is no bus or the call failed.
/// Never cancelled. Main thread only.
QFuture<std::optional<QVariantList>> callSessionBus(const QDBusMessage &call);

} // namespace kestor

#pragma once

#include <QThreadPool>

#include <utility>

namespace kestor {

/// Gives `value` back on a worker: to free a hundred megabytes takes longer than the main thread may.
template <typename Value>
void releaseOnWorker(Value value) {
    QThreadPool::globalInstance()->start([held = std::move(value)]() mutable { held = Value(); });
}

} // namespace kestor

#pragma once

#include <QCoroTask>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <exception>
#include <functional>
#include <optional>
#include <stdexcept>
#include <utility>

namespace kestor::testing {

/// Spins the event loop until `condition` holds; false when 20 seconds pass first.
inline bool waitUntil(const std::function<bool()> &condition) {
    QDeadlineTimer deadline(20000);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QEventLoop loop;
        QTimer::singleShot(1, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

template <typename Value>
QCoro::Task<> storeResult(QCoro::Task<Value> task, std::optional<Value> *value, std::exception_ptr *error) {
    try {
        Value result = co_await task;
        value->emplace(std::move(result));
    } catch (...) {
        *error = std::current_exception();
    }
}

inline QCoro::Task<> storeEnd(QCoro::Task<> task, bool *ended, std::exception_ptr *error) {
    try {
        co_await task;
    } catch (...) {
        *error = std::current_exception();
    }
    *ended = true;
}

/// The value of a finished task; spins the event loop until then and rethrows what the task threw.
template <typename Value>
Value awaited(QCoro::Task<Value> task) {
    std::optional<Value> value;
    std::exception_ptr error;
    const QCoro::Task<> storing = storeResult(std::move(task), &value, &error);
    if (!waitUntil([&] { return value.has_value() || error != nullptr; }))
        throw std::runtime_error("the task did not end in time");
    if (error)
        std::rethrow_exception(error);
    return *std::move(value);
}

inline void awaited(QCoro::Task<> task) {
    bool ended = false;
    std::exception_ptr error;
    const QCoro::Task<> storing = storeEnd(std::move(task), &ended, &error);
    if (!waitUntil([&] { return ended; }))
        throw std::runtime_error("the task did not end in time");
    if (error)
        std::rethrow_exception(error);
}

} // namespace kestor::testing

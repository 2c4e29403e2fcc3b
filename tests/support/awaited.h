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

/// Whether a task has ended, and what it threw.
struct TaskEnd {
    bool reached = false;
    std::exception_ptr error{};
};

inline QCoro::Task<> storeEnd(QCoro::Task<> task, TaskEnd *end) {
    try {
        co_await task;
    } catch (...) {
        end->error = std::current_exception();
    }
    end->reached = true;
}

/// Spins the event loop until the task has ended, and rethrows what it threw.
inline void awaited(QCoro::Task<> task) {
    TaskEnd end;
    const QCoro::Task<> storing = storeEnd(std::move(task), &end);
    if (!waitUntil([&] { return end.reached; }))
        throw std::runtime_error("the task did not end in time");
    if (end.error)
        std::rethrow_exception(end.error);
}

template <typename Value>
QCoro::Task<> storeResult(QCoro::Task<Value> task, std::optional<Value> *value) {
    Value result = co_await task;
    value->emplace(std::move(result));
}

/// The same with the value of the task.
template <typename Value>
Value awaited(QCoro::Task<Value> task) {
    std::optional<Value> value;
    awaited(storeResult(std::move(task), &value));
    return *std::move(value);
}

} // namespace kestor::testing

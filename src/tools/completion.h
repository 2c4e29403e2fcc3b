#pragma once

#include <coroutine>
#include <utility>

namespace kestor {

/// The end of something that one coroutine waits for: `co_await completion;` goes on inside `complete()`. Unlike a
/// future it resumes at once, not through the event loop, so whoever completes it can rely on the waiting code having
/// run. One thread only; neither copied nor moved while awaited.
class Completion {
public:
    Completion() = default;
    Completion(const Completion &) = delete;
    Completion &operator=(const Completion &) = delete;

    /// Resumes the waiting coroutine, which may destroy this object. Further calls do nothing.
    void complete() {
        if (std::exchange(completed, true))
            return;
        if (const std::coroutine_handle<> resumed = std::exchange(waiting, nullptr))
            resumed.resume();
    }

    auto operator co_await() noexcept {
        struct Awaiter {
            Completion &completion;
            bool await_ready() const noexcept { return completion.completed; }
            void await_suspend(std::coroutine_handle<> coroutine) noexcept { completion.waiting = coroutine; }
            void await_resume() const noexcept {}
        };
        return Awaiter{*this};
    }

private:
    std::coroutine_handle<> waiting{};
    bool completed = false;
};

} // namespace kestor

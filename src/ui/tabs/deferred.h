#pragma once

#include <QTimer>

#include <functional>
#include <utility>

namespace kestor {

/// Does something once after the events at hand, however often that is asked for.
class Deferred {
public:
    explicit Deferred(std::function<void()> action) {
        timer.setSingleShot(true);
        timer.setInterval(0);
        timer.callOnTimeout(std::move(action));
    }

    void start() { timer.start(); }

private:
    QTimer timer{};
};

} // namespace kestor

#pragma once

#include "net/error.hpp"

namespace net {

/// Decides whether and when a failed request is sent again.
class RetryPolicy {
public:
    static constexpr int kGiveUp = -1;

    int nextDelay(int attempt) const;
    bool shouldRetry(const Error& error) const;
    void reset();

private:
    int attempts_ = 0;
};

} // namespace net

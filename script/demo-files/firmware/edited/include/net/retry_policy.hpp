#pragma once

#include "net/config.hpp"
#include "net/error.hpp"
#include "util/random.hpp"

namespace net {

/// Decides whether and when a failed request is sent again.
class RetryPolicy {
public:
    static constexpr int kGiveUp = -1;

    explicit RetryPolicy(const RetryConfig& config);

    int nextDelay(int attempt, bool jitter);
    bool shouldRetry(const Error& error) const;
    void reset();

private:
    RetryConfig config_;
    util::Random random_;
    int attempts_ = 0;
};

} // namespace net

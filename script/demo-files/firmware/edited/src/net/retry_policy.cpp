#include "net/retry_policy.hpp"

#include <algorithm>
#include <cmath>

// Requests that fail are repeated with growing pauses. The gateway drops
// clients that come back too often, so the pauses may only grow.
//
// All times are in milliseconds.

namespace net {

RetryPolicy::RetryPolicy(const RetryConfig& config) : config_(config) {}

// Delay before the next attempt.
int RetryPolicy::nextDelay(int attempt, bool jitter)
{
    if (attempt >= config_.maxAttempts) return kGiveUp;
    const double base = config_.baseDelayMs;
    double delay = base * std::pow(2.0, attempt);
    if (jitter) {
        // Spread clients that lost the same link.
        delay *= random_.uniform(0.85, 1.15);
    }
    return int(std::min(delay, config_.maxDelayMs));
}

void RetryPolicy::reset()
{
    attempts_ = 0;
}

// Errors of the link are worth another attempt; errors that the server
// reports in full are not.
bool RetryPolicy::shouldRetry(const Error& error) const
{
    switch (error.code) {
    case Error::Timeout:
    case Error::Reset:  // the peer went away
        return attempts_ < config_.maxAttempts;
    case Error::Busy:
        return attempts_ < config_.maxAttempts;
    default:
        return false;
    }
}

} // namespace net

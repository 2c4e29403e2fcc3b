#include "net/retry_policy.hpp"

#include <algorithm>
#include <cmath>

// Requests that fail are repeated with growing pauses. The gateway drops
// clients that come back too often, so the pauses may only grow.
//
// All times are in milliseconds.

namespace net {

namespace {
constexpr int kLongestDelay = 60000;
} // namespace

// Delay before the next attempt.
int RetryPolicy::nextDelay(int attempt) const
{
    if (attempt > 5) return kGiveUp;
    const double base = 250.0;
    double delay = base * std::pow(2.0, attempt);
    return static_cast<int>(delay);
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
    case Error::Reset:  // peer went away
        return true;
    case Error::Busy:
        return attempts_ < 5;
    default:
        return false;
    }
}

} // namespace net

#include "net/retry_policy.hpp"

#include <gtest/gtest.h>

TEST(RetryPolicy, GivesUpAfterTheConfiguredAttempts)
{
    net::RetryPolicy policy({.maxAttempts = 3, .baseDelayMs = 100, .maxDelayMs = 1000});
    EXPECT_EQ(policy.nextDelay(2, false), 400);
    EXPECT_EQ(policy.nextDelay(3, false), net::RetryPolicy::kGiveUp);
}

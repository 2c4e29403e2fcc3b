#include "sleep_scheduler.h"

static unsigned next_wake_ms = 0;

void sleep_until(unsigned wake_ms)
{
    if (wake_ms > next_wake_ms)
        next_wake_ms = wake_ms;
}

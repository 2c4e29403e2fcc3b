#include "battery_gauge.h"

/* Millivolts at which the cell counts as empty. */
#define EMPTY_MV 3100
#define FULL_MV 4200

int battery_percent(int millivolts)
{
    if (millivolts <= EMPTY_MV)
        return 0;
    if (millivolts >= FULL_MV)
        return 100;
    return (millivolts - EMPTY_MV) * 100 / (FULL_MV - EMPTY_MV);
}

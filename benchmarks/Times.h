#pragma once

#include <algorithm>
#include <time.h>
#include <vector>

#include "Require.h"

/** CLOCK_MONOTONIC in nanoseconds, which a double holds exactly for the first 104 days. */
inline double monotonicTime()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

/** Of all but the share of the greatest. */
inline double greatestOf(std::vector<double> aValues, double aShare)
{
    require(!aValues.empty(), "measuring nothing");
    std::sort(aValues.begin(), aValues.end());
    return aValues[static_cast<std::size_t>(static_cast<double>(aValues.size() - 1) * aShare)];
}

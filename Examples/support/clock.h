// What examples need of the clock.
#pragma once

#include "VELTRuntime/VELTRuntime.h"

#include <chrono>

namespace example {

/// Seconds since this was first asked, a Double.
inline id seconds() {
    using Clock = std::chrono::steady_clock;
    static const Clock::time_point start = Clock::now();
    return VELT_ID(std::chrono::duration<double>(Clock::now() - start).count());
}

}  // namespace example

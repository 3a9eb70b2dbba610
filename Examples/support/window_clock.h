// Time for examples with windows: a clock, and waiting while the windows live.
#pragma once

#include "VELTRuntime/VELTRuntimeUI.h"

#include "VELTRuntime/platform/foundation/run_loop.h"

#include <chrono>

namespace example {

/// Seconds since this was first asked, a Double.
inline id seconds() {
    using Clock = std::chrono::steady_clock;
    static const Clock::time_point start = Clock::now();
    return VELT_ID(std::chrono::duration<double>(Clock::now() - start).count());
}

/// Lets that many seconds pass; what happens meanwhile is handled.
inline void pause(const id& time) {
    const double end = VELT_CDOUBLE(seconds()) + VELT_CDOUBLE(time);
    for (double now = 0; (now = VELT_CDOUBLE(seconds())) < end;) velt::RunLoop::current().runOnce(end - now);
}

}  // namespace example

// Waiting while the windows live.
#pragma once

#include "support/clock.h"

#include "VELTRuntime/platform/foundation/run_loop.h"

namespace example {

/// Lets that many seconds pass; what happens meanwhile is handled.
inline void pause(const id& time) {
    const double end = VELT_CDOUBLE(seconds()) + VELT_CDOUBLE(time);
    for (double now = 0; (now = VELT_CDOUBLE(seconds())) < end;) velt::RunLoop::current().runOnce(end - now);
}

}  // namespace example

// What examples need of the terminal and the clock: how often Ctrl-C was pressed, and for how long the program has run.
#pragma once

#include "VELTRuntime/VELTRuntime.h"

#include <chrono>
#include <csignal>

namespace example {

inline volatile std::sig_atomic_t interruptCount = 0;

/// From now on Ctrl-C is counted and no longer ends the program.
inline void countInterrupts() {
    std::signal(SIGINT, [](int) { interruptCount = interruptCount + 1; });
}

/// How often Ctrl-C was pressed.
inline id interrupts() { return VELT_ID(static_cast<long>(interruptCount)); }

/// Seconds since this was first asked, a Double.
inline id seconds() {
    using Clock = std::chrono::steady_clock;
    static const Clock::time_point start = Clock::now();
    return VELT_ID(std::chrono::duration<double>(Clock::now() - start).count());
}

}  // namespace example

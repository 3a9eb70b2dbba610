// What examples need of the terminal: how often Ctrl-C was pressed.
#pragma once

#include "VELTRuntime/VELTRuntime.h"

#include <csignal>

namespace example {

inline volatile std::sig_atomic_t interruptCount = 0;

/// From this call on Ctrl-C is counted and does not end the program.
inline void countInterrupts() {
    std::signal(SIGINT, [](int) { interruptCount = interruptCount + 1; });
}

/// How often Ctrl-C was pressed.
inline id interrupts() { return VELT_ID(static_cast<long>(interruptCount)); }

}  // namespace example

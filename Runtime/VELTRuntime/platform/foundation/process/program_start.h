// Starting a program: a child that borrows this process's memory until it executes, so that a large parent starts it as
// fast as a small one.
#pragma once

#include "VELTRuntime/export.h"

#include <array>
#include <sys/types.h>

namespace velt {

/// What a child becomes. Everything is prepared beforehand: nothing can be allocated between its start and its program.
struct StartPlan {
    const char* path;
    char* const* arguments;
    char* const* environment;
    /// Null for this program's own.
    const char* folder;
    /// What becomes the child's standard input, output and error; -1 for this program's own. None is below 3 unless it
    /// stays what it is.
    std::array<int, 3> standard;
    bool newSession;
};

/// What became of a start.
struct StartResult {
    /// 0, or the system's error: there is no child then.
    int error = 0;
    pid_t identifier = 0;
    /// Of the process; -1 when the system gave none, with the reason.
    int descriptor = -1;
    int descriptorError = 0;
};

/// Starts the child with no signal blocked, and with every signal below the real-time ones at its default. No
/// descriptor above the standard ones is passed on.
VELT_EXPORT StartResult startProgram(const StartPlan& plan);

}  // namespace velt

// What becomes of an exception that leaves a callback of the main loop. Nobody is there to catch it, so it is reported
// on standard error and the process ends with a failure status; unless a dialog waits for its answer.
#pragma once

#include "VELTRuntime/export.h"

namespace velt {

/// While one exists on a thread, an exception that leaves a callback there is reported and the program goes on: whoever
/// waits for an answer still gets it. The program's status is a failure once it ends.
class VELT_EXPORT CallbackShelter {
public:
    CallbackShelter() noexcept;
    ~CallbackShelter();
    CallbackShelter(const CallbackShelter&) = delete;
    CallbackShelter& operator=(const CallbackShelter&) = delete;
};

/// Reports the exception being handled, and ends the process unless this thread has a shelter; call it in a catch
/// clause.
VELT_EXPORT void callbackRaised() noexcept;

/// A status for the operating system; the failure status in place of success when a sheltered callback raised.
VELT_EXPORT int statusAfterCallbacks(int status) noexcept;

}  // namespace velt

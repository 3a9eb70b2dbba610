// The main thread's run loop within the event loop of the windows.
#pragma once

#include "VELTRuntime/export.h"

namespace velt {

/// From now on the main thread's run loop waits in the application object's event loop, and is served by its nested
/// loops (a dialog, a drag) too. To be called when the application object has been made.
VELT_EXPORT void runWithinApplication();

}  // namespace velt

// The toolkit's application object: made at the first need from any entry point, and the rule that windows and views
// belong to the thread that made it.
#pragma once

#include "VELTRuntime/export.h"

namespace velt {

/// Makes the application object when there is none. Without a display the process says so in one sentence on standard
/// error and ends with status 1. Only on the main thread: raises "NSInternalInconsistencyException" naming what needed
/// it on another.
VELT_EXPORT void requireApplicationObject(const char* what);

/// There is an application object, so windows can be made.
VELT_EXPORT bool hasApplicationObject();

/// Raises "NSInternalInconsistencyException" naming the call on any thread but the main one.
VELT_EXPORT void requireMainThread(const char* call);

/// The calling thread is the main one.
VELT_EXPORT bool isMainThread();

}  // namespace velt

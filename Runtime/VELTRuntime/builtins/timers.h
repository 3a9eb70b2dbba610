// Timers and threads of programs: methods of an object by name, later or beside the rest. They need no window and are
// called on any thread.
#pragma once

#include "VELTRuntime/values/value.h"

/// A timer that sends the owner the method of that name once, at the next turn of the calling thread's run loop or
/// after some seconds (through VELT_CDOUBLE). A method with an argument is given the timer. nil when the owner has no
/// such method.
VELT_EXPORT id VELT_NSTIMER_INIT(const id& owner, const char* method);
VELT_EXPORT id VELT_NSTIMER_INIT(const id& owner, const char* method, const id& seconds);
/// The timer does not fire any more. nil.
VELT_EXPORT id VELT_NSTIMER_STOP(const id& timer);

/// A thread, not started, that will run the owner's method of that name, with nil when it takes an argument. nil when
/// the owner has no such method.
VELT_EXPORT id VELT_NSTHREAD_INIT(const id& owner, const char* method);
/// nil. Starting a thread again raises "NSInvalidArgumentException".
VELT_EXPORT id VELT_NSTHREAD_START(const id& thread);
/// Asks the thread to end; its method has to look at it. nil.
VELT_EXPORT id VELT_NSTHREAD_CANCEL(const id& thread);
/// Booleans; False for nil.
VELT_EXPORT id VELT_NSTHREAD_ISEXECUTING(const id& thread);
VELT_EXPORT id VELT_NSTHREAD_ISFINISHED(const id& thread);
VELT_EXPORT id VELT_NSTHREAD_ISCANCELLED(const id& thread);

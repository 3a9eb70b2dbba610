// Messages that are sent later or on the main thread. Receivers and arguments are kept until then; nil as receiver gets
// nothing. The selector carries one argument; one without takes the message without it.
#pragma once

#include "VELTRuntime/values/value.h"

/// Sends the message after some seconds (through VELT_CDOUBLE), on the calling thread's run loop. Returns nil. Raises
/// nothing for a selector that the receiver lacks: that fails when it is sent.
VELT_EXPORT id VELT_NSOBJECT_PERFORMSELECTORDELAYED(const id& object, const id& selector, const id& argument,
                                                    const id& delay);
/// The same at the next pass of the run loop.
VELT_EXPORT id VELT_NSOBJECT_PERFORMSELECTORNEXTRUNLOOP(const id& object, const id& selector, const id& argument);
/// Sends the message on the main thread. With a true last argument (through VELT_CBOOL) it has been sent when this
/// returns, at once when this is the main thread, and raises here what it raises; else it waits for the main thread's
/// run loop. Returns nil.
VELT_EXPORT id VELT_NSOBJECT_PERFORMSELECTORONMAINTHREAD(const id& object, const id& selector, const id& argument,
                                                         const id& wait);

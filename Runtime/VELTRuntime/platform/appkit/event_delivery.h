// Handing the toolkit's events to programs: nothing that a program raises may pass through the toolkit's frames, and
// nothing that handles an event may be freed while it does.
#pragma once

#include "VELTRuntime/platform/appkit/event.h"
#include "VELTRuntime/platform/appkit/view.h"
#include "VELTRuntime/platform/object/callback_failure.h"
#include "VELTRuntime/platform/object/exception.h"

namespace velt {

/// Runs what an event asks for. An exception that leaves it is reported as any uncaught one, and ends the process
/// unless a dialog waits for its answer.
template <class Function> void runReported(Function&& function) noexcept {
    try {
        function();
    } catch (...) {
        callbackRaised();
    }
}

/// Sends a view an event by name, as the application's current event. The view lives until it has been handled.
VELT_EXPORT void deliver(NSView& view, Selector selector, const Ref<NSEvent>& event) noexcept;

/// The view's class answers that message itself, instead of handing it to the next responder.
VELT_EXPORT bool answersItself(const NSView& view, Selector selector);

}  // namespace velt

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

/// An event that a program's subclass of a control is offered before the control itself works on it. The innermost
/// offer counts; the subclass leaves the event to the control by handing it on.
class OfferedEvent {
public:
    OfferedEvent(const NSResponder& responder, const NSEvent& event);
    ~OfferedEvent();
    OfferedEvent(const OfferedEvent&) = delete;
    OfferedEvent& operator=(const OfferedEvent&) = delete;
    bool isLeft() const { return left_; }
    /// A responder hands an event on. True when it is the one that was offered to it.
    static bool leave(const NSResponder& responder, const id& event);

private:
    const NSResponder& responder_;
    const NSEvent& event_;
    OfferedEvent* outer_;
    bool left_ = false;
};

/// The view's class answers that message itself, instead of handing it to the next responder.
VELT_EXPORT bool answersItself(const NSView& view, Selector selector);

}  // namespace velt

#include "VELTRuntime/platform/appkit/responder.h"

#include "VELTRuntime/platform/appkit/event_delivery.h"

using velt::Selector;

id NSResponder::nextResponder() const { return nextResponder_.isNil() ? ownNextResponder() : nextResponder_; }

id NSResponder::passOn(Selector selector, const id& argument) const {
    if (velt::OfferedEvent::leave(*this, argument)) return nil;
    const id next =
        velt::findResponder(nextResponder(), [selector](const id& asked) { return velt::respondsTo(asked, selector); });
    return next.isNil() ? nil : velt::send(next, selector, argument);
}

void NSResponder::describe(velt::ClassBuilder<NSResponder>& c) {
    c.property("nextResponder", &NSResponder::nextResponder, &NSResponder::setNextResponder)
        .property("menu", &NSResponder::menu, &NSResponder::setMenu)
        .property("acceptsFirstResponder", &NSResponder::acceptsFirstResponder)
        .method("becomeFirstResponder", &NSResponder::becomeFirstResponder)
        .method("resignFirstResponder", &NSResponder::resignFirstResponder)
        .owns(&NSResponder::nextResponder_)
        .owns(&NSResponder::menu_);
    // What is not answered goes on to the next responder.
#define VELT_PASSED_EVENT(name)                                                                                        \
    c.method(name, [](const id& self, const id* event) {                                                               \
        return velt::as<NSResponder>(self)->passOn(VELT_SELECTOR(name), event[0]);                                     \
    });
    VELT_PASSED_EVENT("mouseDown:")
    VELT_PASSED_EVENT("mouseUp:")
    VELT_PASSED_EVENT("mouseDragged:")
    VELT_PASSED_EVENT("mouseMoved:")
    VELT_PASSED_EVENT("mouseEntered:")
    VELT_PASSED_EVENT("mouseExited:")
    VELT_PASSED_EVENT("rightMouseDown:")
    VELT_PASSED_EVENT("rightMouseUp:")
    VELT_PASSED_EVENT("rightMouseDragged:")
    VELT_PASSED_EVENT("otherMouseDown:")
    VELT_PASSED_EVENT("otherMouseUp:")
    VELT_PASSED_EVENT("otherMouseDragged:")
    VELT_PASSED_EVENT("scrollWheel:")
    VELT_PASSED_EVENT("keyDown:")
    VELT_PASSED_EVENT("keyUp:")
    VELT_PASSED_EVENT("flagsChanged:")
#undef VELT_PASSED_EVENT
}

#include "VELTRuntime/platform/appkit/event_delivery.h"

#include "VELTRuntime/platform/appkit/application.h"

namespace velt {

void deliver(NSView& view, Selector selector, const Ref<NSEvent>& event) noexcept {
    runReported([&] {
        const Ref<NSView> kept(&view);
        const CurrentEvent scope(event);
        send(kept, selector, event);
    });
}

namespace {

OfferedEvent* innermost = nullptr;  // events are handled on the main thread alone

}  // namespace

OfferedEvent::OfferedEvent(const NSResponder& responder, const NSEvent& event)
    : responder_(responder), event_(event), outer_(std::exchange(innermost, this)) {}

OfferedEvent::~OfferedEvent() { innermost = outer_; }

bool OfferedEvent::leave(const NSResponder& responder, const id& event) {
    if (!innermost || &innermost->responder_ != &responder || event.object() != &innermost->event_) return false;
    innermost->left_ = true;
    return true;
}

bool answersItself(const NSView& view, Selector selector) {
    const Method* own = view.isa().method(selector);
    return own && own != NSResponder::entry().method(selector);
}

}  // namespace velt

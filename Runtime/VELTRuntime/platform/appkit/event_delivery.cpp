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

bool answersItself(const NSView& view, Selector selector) {
    const Method* own = view.isa().method(selector);
    return own && own != NSResponder::entry().method(selector);
}

}  // namespace velt

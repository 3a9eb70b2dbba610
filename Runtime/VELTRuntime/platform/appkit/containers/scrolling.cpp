#include "VELTRuntime/platform/appkit/containers/scrolling.h"

#include "VELTRuntime/platform/appkit/containers/clip_view.h"
#include "VELTRuntime/platform/appkit/containers/scroll_view.h"

#include <algorithm>

namespace velt {

namespace {

NSRect common(const NSRect& a, const NSRect& b) {
    const double left = std::max(a.origin.x, b.origin.x), bottom = std::max(a.origin.y, b.origin.y);
    const double right = std::min(a.origin.x + a.size.width, b.origin.x + b.size.width);
    const double top = std::min(a.origin.y + a.size.height, b.origin.y + b.size.height);
    if (right <= left || top <= bottom) return {};
    return {{left, bottom}, {right - left, top - bottom}};
}

/// The innermost clip view around a view; null when there is none.
NSClipView* enclosingClipView(const NSView& view) {
    for (NSView* at = view.superviewPointer(); at; at = at->superviewPointer()) {
        if (auto* clip = dynamic_cast<NSClipView*>(at)) return clip;
    }
    return nullptr;
}

}  // namespace

NSScrollView* enclosingScrollView(const NSView& view) {
    const NSClipView* clip = enclosingClipView(view);
    return clip ? dynamic_cast<NSScrollView*>(clip->superviewPointer()) : nullptr;
}

NSRect visibleRect(const NSView& view) {
    NSRect seen = view.bounds();
    for (const NSView* at = view.superviewPointer(); at; at = at->superviewPointer()) {
        seen = common(seen, view.convertRectFromView(at->bounds(), at));
    }
    return seen;
}

void scrollPoint(NSView& view, NSPoint point) {
    NSClipView* clip = enclosingClipView(view);
    if (!clip) return;
    NSPoint target = view.convertPointToView(point, clip);
    clip->scrollToPoint(clip->constrainScrollPoint(target));
}

bool scrollRectToVisible(NSView& view, NSRect rect) {
    NSClipView* clip = enclosingClipView(view);
    return clip && clip->bringIntoSight(view.convertRectToView(rect, clip));
}

}  // namespace velt

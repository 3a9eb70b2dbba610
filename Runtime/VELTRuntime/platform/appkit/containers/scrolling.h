// Scrolling as any view can ask for it: the scroll view around it, what of it is seen, bringing a part into sight.
#pragma once

#include "VELTRuntime/export.h"
#include "VELTRuntime/values/structures.h"

class NSScrollView;
class NSView;

namespace velt {

/// The innermost scroll view whose document the view is or lies in; null when there is none.
VELT_EXPORT NSScrollView* enclosingScrollView(const NSView& view);

/// The part of the view's bounds that no superview cuts off, in the view's coordinates; the zero rectangle when there
/// is none.
VELT_EXPORT NSRect visibleRect(const NSView& view);

/// Scrolls so that a point of the view comes to the corner of the visible part from which its coordinates begin.
VELT_EXPORT void scrollPoint(NSView& view, NSPoint point);

/// Scrolls as little as brings a rectangle of the view into sight; false when nothing had to move.
VELT_EXPORT bool scrollRectToVisible(NSView& view, NSRect rect);

}  // namespace velt

// How a view's frame follows its superview's size.
#pragma once

#include "VELTRuntime/values/structures.h"

namespace velt {

/// What of a view gives way when its superview is resized; a mask is a sum of these.
enum ResizingMask : unsigned long {
    kMinXMargin = 1,
    kWidthSizable = 2,
    kMaxXMargin = 4,
    kMinYMargin = 8,
    kHeightSizable = 16,
    kMaxYMargin = 32,
};

/// The frame after its superview's size changed from one to another. Along each axis the change is shared by the parts
/// that give way, in proportion to their sizes, or evenly when they have none; without such parts the frame stays at
/// the superview's lower left.
NSRect resizedFrame(NSRect frame, NSSize from, NSSize to, unsigned long mask);

}  // namespace velt

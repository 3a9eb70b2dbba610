// The rectangles of a window: its frame with the title bar, and the content within.
#pragma once

#include "VELTRuntime/values/structures.h"

namespace velt {

/// What a window has; a style mask is a sum of these, 0 for one without a border.
enum WindowStyle : unsigned long {
    kTitledWindow = 1,
    kClosableWindow = 2,
    kMiniaturizableWindow = 4,
    kResizableWindow = 8,
    kUtilityWindow = 16,
};

/// Height of a title bar in the program's arithmetic. Desktops draw theirs as they like, outside of the content; one
/// fixed height keeps every program's figures the same on all of them.
inline constexpr double kTitleBarHeight = 22;

constexpr NSRect contentRectForFrame(NSRect frame, unsigned long style) {
    if (style & kTitledWindow) frame.size.height -= kTitleBarHeight;
    return frame;
}
constexpr NSRect frameRectForContent(NSRect content, unsigned long style) {
    if (style & kTitledWindow) content.size.height += kTitleBarHeight;
    return content;
}

}  // namespace velt

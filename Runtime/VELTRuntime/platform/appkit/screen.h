// The screens of the desktop, in the program's coordinates: the main screen's lower left corner is the origin, y points
// up.
#pragma once

#include "VELTRuntime/values/structures.h"

namespace velt {

/// A rectangle of the desktop, where y points down from the main screen's upper edge, in the program's coordinates; and
/// the other way round.
constexpr NSRect flipped(NSRect rect, double mainScreenHeight) {
    rect.origin.y = mainScreenHeight - (rect.origin.y + rect.size.height);
    return rect;
}

/// 0 when there is no screen.
double mainScreenHeight();

/// The main screen without the desktop's panels; the zero rectangle when there is no screen or no application object.
NSRect visibleScreenFrame();

}  // namespace velt

// Drawing of plain strings with attributes by name, as custom views do it.
#pragma once

#include "VELTRuntime/values/structures.h"

namespace velt {

/// Draws a string into what is being drawn; nothing happens when nothing is. The rectangle's origin is where the text's
/// lower left corner comes to, its upper left one where y points down; with `wraps` the text fills the rectangle from
/// its top in lines as wide as it. Attributes is a dictionary with a font ("NSFont"), colours ("NSColor",
/// "NSBackgroundColor"), "NSUnderline" and "NSStrikethrough" (0 or not), or nil.
void drawText(const id& text, NSRect rect, bool wraps, const id& attributes);

/// The size of a string in the lines that it has.
NSSize textSize(const id& text, const id& attributes);

}  // namespace velt

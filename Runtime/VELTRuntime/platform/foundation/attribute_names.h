// The names under which programs find the attributes of a text.
#pragma once

#include "VELTRuntime/values/string.h"

namespace velt::attribute {

inline const id& font() { return "NSFont"_v; }                        // a font
inline const id& foregroundColor() { return "NSColor"_v; }            // a colour
inline const id& backgroundColor() { return "NSBackgroundColor"_v; }  // a colour
inline const id& underline() { return "NSUnderline"_v; }              // a number, 0 for none
inline const id& strikethrough() { return "NSStrikethrough"_v; }      // a number, 0 for none
inline const id& superscript() { return "NSSuperScript"_v; }          // a number, below 0 for a subscript
inline const id& link() { return "NSLink"_v; }                        // a URL or a string
inline const id& toolTip() { return "NSToolTip"_v; }                  // a string
inline const id& paragraphStyle() { return "NSParagraphStyle"_v; }    // a paragraph style, of all of its paragraph

}  // namespace velt::attribute
